import json
import tempfile
import time
import unittest

from program import SampleService, TestCase, vantic

GENERIC = "The operation couldn’t be completed. (dev.vantic.VanticRestKit.networkService error {}.)\n"
NOT_DECODED = "Unable to decode the server response\n"


class FromService(TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = SampleService().__enter__()
        cls.addClassCleanup(cls.service.stop)

    def setUp(self):
        self.service.control("DELETE", "log")
        self.service.control("DELETE", "faults")

    def load(self, *words):
        return vantic("load", *words, "--base-url", self.service.url)

    def value(self, *words):
        outcome = self.load(*words)
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        return outcome.json

    def failure(self, *words):
        outcome = self.load(*words)
        self.assert_failed(outcome)
        return outcome.err


class Load(FromService):
    def test_prints_the_value_like_decode(self):
        video = self.load("Video", "--houseNumber", "HL0101")
        self.assertEqual((video.code, video.err), (0, ""))
        self.assertEqual(video.json["houseNumber"], "HL0101")
        self.assertEqual(len(video.json), 53)
        self.assertEqual(video.out, json.dumps(video.json, indent=2, ensure_ascii=False) + "\n")

    def test_loads_the_time_pictures_and_videos(self):
        self.assertLess(abs(self.value("Time") - time.time()), 60)
        self.assertTrue([avatar["url"] for avatar in self.value("Avatars")])
        self.assertEqual(self.value("Video", "--usingHref", "video/HL0102")["houseNumber"], "HL0102")
        videos = self.value("Videos", "--houseNumbers", "HL0101", "--houseNumbers", "HL0102")["videos"]
        self.assertEqual([video["houseNumber"] for video in videos], ["HL0101", "HL0102"])
        self.assertEqual(self.value("Videos"), {"videos": []})

    def test_loads_an_href_as_any_type_and_as_a_list_of_it(self):
        words = ["Resource", "--withHref", "video/HL0101", "--as"]
        self.assertEqual(self.value(*words, "Video"), self.value("Video", "--houseNumber", "HL0101"))
        self.assertEqual(len(self.value(*words, "VideoAnalytics")), 30)
        self.assertGreater(self.value("Resource", "--withHref", "time", "--as", "Time"), 0)
        self.assertEqual(self.failure(*words, "[Video]"), NOT_DECODED)
        self.assertEqual(self.failure(*words, "Link"), NOT_DECODED)

    def test_sends_what_request_prints(self):
        words = ["Video", "--houseNumber", "A b/c,", "--header", "X-One: 1", "--header", "X-Two: a,b"]
        printed = vantic("request", *words, "--base-url", self.service.url).json
        self.load(*words)
        [sent] = self.service.control("GET", "log")
        self.assertEqual((sent["method"], self.service.url + sent["target"]), (printed["method"], printed["url"]))
        headers = {header["name"]: header["value"] for header in sent["headers"]}
        self.assertEqual({name: headers[name] for name in printed["headers"]}, printed["headers"])
        self.assertEqual(headers["Accept"], "*/*")

    def test_of_an_unknown_resource_fails_with_404_in_one_line(self):
        self.assertEqual(self.failure("Video", "--houseNumber", "none"), GENERIC.format(404))

    def test_of_a_broken_service_fails_with_500_in_one_line(self):
        self.service.fault("v2/time", "status", status=500)
        self.assertEqual(self.failure("Time"), GENERIC.format(500))

    def test_of_a_body_that_is_not_json_fails_to_decode(self):
        for words in [["Time"], ["Resource", "--withHref", "time", "--as", "Time"]]:
            self.service.fault("v2/time", "malformed")
            self.assertEqual(self.failure(*words), NOT_DECODED)

    def test_of_another_entity_fails_to_decode(self):
        self.service.fault("v2/video/HL0101", "malformed", text='{"_entity":"show","_links":{}}')
        self.assertEqual(self.failure("Video", "--houseNumber", "HL0101"), NOT_DECODED)

    def test_of_a_connection_that_breaks_fails_in_one_line(self):
        self.service.fault("v2/time", "reset")
        self.failure("Time")

    def test_waits_no_longer_than_its_timeout_without_data(self):
        self.service.fault("v2/time", "stall")
        began = time.monotonic()
        outcome = self.load("Time", "--timeout", "0.2", "--verbose")
        self.assertEqual(outcome.code, 1)
        self.assertIn("-1001", outcome.err)
        self.assertLess(time.monotonic() - began, 20)

    def test_prints_nothing_else_without_verbose(self):
        self.service.fault("v2/time", "status", status=503)
        self.assert_one_line(self.failure("Time"))

    def test_prints_the_reports_of_the_failure_hook_if_verbose(self):
        self.service.fault("v2/time", "status", status=503)
        outcome = self.load("Time", "--verbose")
        self.assertEqual((outcome.code, outcome.out), (1, ""))
        report, error = outcome.err.splitlines(keepends=True)
        self.assertIn("HttpCode: 503", report)
        self.assertEqual(json.loads(report[report.index("{"):])["url"], self.service.url + "/v2/time")
        self.assertEqual(error, GENERIC.format(503))

    def test_prints_no_report_for_a_success_or_a_decoding_failure(self):
        self.assertEqual(self.load("Time", "--verbose").err, "")
        self.service.fault("v2/time", "malformed")
        self.assertEqual(self.load("Time", "--verbose").err, NOT_DECODED)

    def test_of_a_url_that_is_not_http_fails_in_one_line(self):
        self.assert_failed(vantic("load", "Time", "--base-url", "ftp://127.0.0.1/"))
        self.assert_failed(vantic("load", "Time", "--base-url", "no-scheme"))


class LoadCatalogue(FromService):
    """Each operation of the catalogue."""

    def titles(self, items):
        return [next(iter(item.values()))["title"] for item in items]

    def test_loads_the_screens(self):
        home = self.value("Home")
        self.assertEqual((home["title"], home["featuredCollection"]["type"]), ("Home", "featured"))
        self.assertEqual([row["title"] for row in home["collections"]][:3], ["New this week", "Drama", "Films"])
        self.assertEqual(self.value("Category", "--category", "drama")["title"], "Drama")
        self.assertEqual(self.value("Channel", "--channel", "vantic-kids")["theme"], "light")
        self.assertEqual(self.failure("Category", "--category", "none"), GENERIC.format(404))

    def test_loads_a_collection_of_shows_videos_and_series(self):
        collection = self.value("Collection", "--collectionId", "1005", "--embedHighlightItem")
        self.assertEqual([list(item) for item in collection["mixedItems"]],
                         [["Show"], ["Video"], ["Series"], ["Show"], ["Video"]])
        self.assertEqual(collection["highlightItem"]["Show"]["title"], "Harbour Lights")
        self.assertIsNone(self.value("Collection", "--collectionId", "1005")["highlightItem"])

    def test_loads_a_show_with_a_selection(self):
        show = self.value("Show", "--showSlugOrId", "harbour-lights", "--embedSeries", "--channel", "vantic-one")
        self.assertEqual([series["seriesId"] for series in show["seriesList"]], ["111", "112"])
        self.assertEqual(show["selectedSeries"]["seriesId"], "112")
        first = self.value("Show", "--showSlugOrId", "11", "--selectedSeries", "111", "--embedSeries")
        self.assertEqual(first["selectedSeries"]["episodes"][1]["title"], "Slack Water")
        video = self.value("Show", "--showSlugOrId", "11", "--selectedVideo", "HL0102")
        self.assertEqual((video["highlightVideo"]["houseNumber"], video["seriesList"]), ("HL0102", []))
        self.assertEqual(self.value("Show", "--usingHref", "/show/night-ferry")["showId"], 15)

    def test_loads_shows_series_and_the_index(self):
        shows = self.value("Shows", "--showSlugsOrIds", "night-ferry", "--showSlugsOrIds", "11")
        self.assertEqual([show["slug"] for show in shows], ["night-ferry", "harbour-lights"])
        self.assertEqual(self.value("Shows"), [])
        self.assertEqual(len(self.value("Series", "--usingHref", "/series/111")["episodes"]), 3)
        index = self.value("ShowsList")
        self.assertEqual(sum(len(group["shows"]) for group in index["groups"]), 48)
        kids = self.value("ShowsList", "--channel", "vantic-kids", "--closedCaptionOnly")
        self.assertEqual({show["channel"] for group in kids["groups"] for show in group["shows"]}, {"vantic-kids"})

    def test_loads_related_shows_and_search_results(self):
        related = self.value("RelatedShows", "--showSlug", "harbour-lights", "--channel", "vantic-two")
        self.assertEqual(related["items"][0]["title"], "Night Ferry")
        found = self.value("Search", "--keyword", "ferry")
        self.assertEqual((found["keyword"], [show["title"] for show in found["items"]]), ("ferry", ["Night Ferry"]))
        self.assertEqual(self.value("Search", "--keyword", "zeppelin"), {"keyword": "zeppelin", "items": []})
        self.assertEqual(self.value("Search", "--keyword", "ferry", "--channel", "vantic-kids")["items"], [])

    def test_loads_the_navigation(self):
        channels = self.value("Navigation", "--type", "channels")["items"]
        self.assertEqual(channels[0]["title"], "Vantic One")
        self.assertEqual(len(self.value("Navigation", "--type", "categories")["items"]), 7)
        menu = self.value("NavigationMainMenuList", "--channels", "vantic-one,vantic-news")["items"]
        self.assertEqual([item["id"] for item in menu[1]["items"]], ["vantic-one", "vantic-news"])
        self.assertEqual(self.value("Browse")["items"][0]["items"], channels)

    def test_loads_schedules_and_livestreams(self):
        self.service.control("PUT", "clock", {"now": 1790078400})
        self.addCleanup(self.service.control, "DELETE", "clock")
        schedule = self.value("NowNext", "--houseNumber", "ONE0001")
        self.assertEqual(schedule["now"]["eventType"], "ONAIR")
        self.assertEqual(schedule["next"]["start"], schedule["now"]["end"])
        self.assertEqual(self.value("Livestreams")["videos"][0]["houseNumber"], "LIVE0001")
        self.assertEqual(self.value("Livestreams", "--region", "wa")["videos"][0]["houseNumber"], "LIVE0001WA")

    def test_loads_notices_and_remapped_paths(self):
        messages = self.value("Messages", "--appId", "lumeno int", "--loggedIn")
        self.assertEqual([message["messageId"] for message in messages], [501, 504, 505])
        self.assertEqual(self.value("ProductAlert", "--alertId", "storm")["link"]["href"], "/video/LIVE0001")
        remapped = self.value("Remap", "--path", "programs/harbour-lights", "--queryItems", "video=HL0102")
        self.assertEqual(list(remapped.values()), ["moved", "/show/harbour-lights/video/HL0102",
                                                   "vantic://show/harbour-lights/video/HL0102"])

    def test_prints_the_valid_elements_of_a_home_screen_with_unknown_entities_and_broken_elements(self):
        self.service.fault("v2/home", "oddities")
        water = self.value("Home")["collections"][4]
        self.assertEqual([list(item) for item in water["mixedItems"]],
                         [["Series"], ["Show"], ["Video"], ["Series"], ["Show"]])
        self.assertEqual((self.titles(water["mixedItems"])[0], water["type"]), ("Win a boat", "standard"))


class LoadFromAClosedPort(TestCase):
    def test_fails_in_one_line_if_the_service_has_stopped(self):
        with SampleService() as service:
            pass
        outcome = vantic("load", "Time", "--base-url", service.url, "--verbose")
        self.assertEqual((outcome.code, outcome.out), (1, ""))
        self.assertIn("-1004", outcome.err)
        self.assert_failed(vantic("load", "Time", "--base-url", service.url))


class LoadOverTLS(TestCase):
    def test_trusts_only_the_certificates_of_the_given_file(self):
        with tempfile.NamedTemporaryFile() as authority, SampleService("--tls", "--ca-out", authority.name) as service:
            words = ["load", "Time", "--base-url", service.url]
            trusted = vantic(*words, "--ca", authority.name)
            self.assertEqual((trusted.code, trusted.err), (0, ""))
            self.assertGreater(trusted.json, 0)

            self.assert_failed(vantic(*words))
            self.assertIn("-1202", vantic(*words, "--verbose").err)
            self.assert_failed(vantic(*words, "--ca", "/nowhere/at/all"))


if __name__ == "__main__":
    unittest.main()
