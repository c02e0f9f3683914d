import platform
import unittest
from urllib.parse import quote

from program import TestCase, vantic

BASE = ["--base-url", "https://api.vantic.example"]


def url(*words):
    return vantic("request", *words).json["url"]


class Request(TestCase):
    def test_prints_all_of_the_request(self):
        outcome = vantic("request", "Time", *BASE)
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        self.assertEqual(
            list(outcome.json.items()),
            [("method", "GET"), ("url", "https://api.vantic.example/v2/time"), ("headers", {}), ("timeout", 30),
             ("body", None)],
        )

    def test_prints_whole_timeouts_without_a_fraction(self):
        for given, printed in [("5", "5"), ("2.50", "2.5"), ("12.0", "12"), ("1e2", "100")]:
            with self.subTest(given):
                self.assertIn(f'"timeout": {printed},', vantic("request", "Time", *BASE, "--timeout", given).out)

    def test_builds_the_url_of_each_operation(self):
        for words, path in [
            (["Time"], "v2/time"),
            (["Avatars"], "v3/image/avatar/"),
            (["Resource", "--withHref", "show/x"], "v2/show/x"),
            (["Resource", "--withHref", "/show/x"], "v2//show/x"),
            (["Video", "--houseNumber", "ZW1"], "v2/video/ZW1"),
            (["Video", "--usingHref", "video/1"], "v2/video/1"),
            (["Videos", "--houseNumbers", "A", "--houseNumbers", "B"], "v2/videos/A,B"),
        ]:
            with self.subTest(words):
                self.assertEqual(url(*words, *BASE), "https://api.vantic.example/" + path)

    def test_builds_the_url_of_shows_and_series(self):
        show = ["Show", "--showSlugOrId", "x"]
        for words, path in [
            (show, "v2/show/x?embed=highlightVideo"),
            ([*show, "--embedSeries"], "v2/show/x?embed=highlightVideo,selectedSeries,seriesList"),
            ([*show, "--selectedSeries", "3"], "v2/show/x/series/3?embed=highlightVideo"),
            ([*show, "--selectedVideo", "V", "--selectedSeries", "3"], "v2/show/x/video/V?embed=highlightVideo"),
            ([*show, "--selectedVideo", ""], "v2/show/x/video/?embed=highlightVideo"),
            ([*show, "--channel", "c"], "v2/show/x?channel=c&embed=highlightVideo"),
            ([*show, "--channel", ""], "v2/show/x?embed=highlightVideo"),
            ([*show, "--channel", "c d", "--embedSeries", "--selectedSeries", "18446744073709551615"],
             "v2/show/x/series/18446744073709551615?channel=c%20d&embed=highlightVideo,selectedSeries,seriesList"),
            (["Show", "--usingHref", "show/x"], "v2/show/x"),
            (["Show", "--usingHref", "/show/x"], "v2//show/x"),
            (["Shows", "--showSlugsOrIds", "a", "--showSlugsOrIds", "b"], "v2/shows/a,b"),
            (["Shows"], "v2/shows/"),
            (["Series", "--usingHref", "series/1"], "v2/series/1"),
            (["ShowsList"], "v2/shows"),
            (["ShowsList", "--closedCaptionOnly", "--channel", "c"], "v2/shows/cc?channel=c"),
            (["ShowsList", "--closedCaptionOnly", "--channel", ""], "v2/shows/cc"),
            (["ShowsList", "--channel", "c"], "v2/shows?channel=c"),
            (["RelatedShows", "--showSlug", "x"], "v2/related/show/x"),
            (["RelatedShows", "--showSlug", "x", "--channel", "c"], "v2/related/show/x?channel=c"),
            (["RelatedShows", "--showSlug", "x", "--channel", ""], "v2/related/show/x"),
            (["Search", "--keyword", "a b"], "v2/search?keyword=a%20b"),
            (["Search", "--keyword", "", "--channel", ""], "v2/search?keyword=&channel="),
            (["Search", "--channel", "c", "--keyword", "a&b"], "v2/search?keyword=a%26b&channel=c"),
        ]:
            with self.subTest(words):
                self.assertEqual(url(*words, *BASE), "https://api.vantic.example/" + path)

    def test_requests_shows_and_series_with_get_and_without_a_body(self):
        for words in [["Show", "--showSlugOrId", "x"], ["Show", "--usingHref", "x"], ["Shows"], ["Series", "--usingHref", "x"],
                      ["ShowsList"], ["RelatedShows", "--showSlug", "x"], ["Search", "--keyword", "x"]]:
            with self.subTest(words):
                request = vantic("request", *words, *BASE, "--header", "A: 1", "--timeout", "5").json
                self.assertEqual({**request, "url": ""},
                                 {"method": "GET", "url": "", "headers": {"A": "1"}, "timeout": 5, "body": None})

    def test_builds_the_url_of_screens_and_menus(self):
        for words, path in [
            (["Home"], "v2/home"),
            (["Browse"], "v2/browse"),
            (["Collection", "--collectionId", "1"], "v2/collection/1"),
            (["Collection", "--collectionId", "1", "--embedHighlightItem"], "v2/collection/1?embed=highlightItem"),
            (["Category", "--category", "c"], "v2/category/c"),
            (["Channel", "--channel", "c"], "v2/channel/c"),
            (["Navigation", "--type", "channels"], "v2/navigation/channels"),
            (["Navigation", "--type", "categories"], "v2/navigation/categories"),
            (["NavigationMainMenuList", "--channels", "a,b"], "v2/navigation/mobile?include=personalize&channel=a,b"),
        ]:
            with self.subTest(words):
                self.assertEqual(url(*words, *BASE), "https://api.vantic.example/" + path)

    def test_builds_the_url_of_live_and_notices(self):
        for words, path in [
            (["NowNext", "--houseNumber", "N"], "v2/nownext/N"),
            (["Livestreams"], "v2/livestreams"),
            (["Livestreams", "--region", "nsw"], "v2/livestreams/nsw"),
            (["ProductAlert", "--alertId", "7"], "v2/alert/7"),
            (["Remap", "--path", "a/b"], "v2/remap/a/b"),
            (["Remap", "--path", "/a/b"], "v2/remap/a/b"),
            (["Remap", "--path", "a", "--queryItems", "x=1=2", "--queryItems", "y", "--queryItems", "z="],
             "v2/remap/a?x=1%3D2&y&z="),
        ]:
            with self.subTest(words):
                self.assertEqual(url(*words, *BASE), "https://api.vantic.example/" + path)

    def test_sends_each_region_as_its_raw_value(self):
        for region in ["act", "sa", "nsw", "vic", "wa", "nt", "qld", "tas"]:
            self.assertEqual(url("Livestreams", "--region", region, *BASE), f"{BASE[1]}/v2/livestreams/{region}")

    def test_sends_each_application_as_its_raw_value(self):
        for app in ["lumeno", "kids", "lumeno int", "me"]:
            self.assertIn(f"?appId={quote(app)}&", url("Messages", "--appId", app, *BASE))

    def test_appends_the_query_of_a_route_to_that_of_the_base_url(self):
        base = ["--base-url", "http://h/a?key=1"]
        for words, path in [
            (["Remap", "--path", "", "--queryItems", "b=2", "--queryItems", "a=1"], "v2/remap/?key=1&b=2&a=1"),
            (["Remap", "--path", "//x"], "v2/remap//x?key=1"),
            (["NavigationMainMenuList", "--channels", ""], "v2/navigation/mobile?key=1&include=personalize&channel="),
            (["Collection", "--collectionId", "a b", "--embedHighlightItem"],
             "v2/collection/a%20b?key=1&embed=highlightItem"),
        ]:
            with self.subTest(words):
                self.assertEqual(url(*words, *base), "http://h/a/" + path)

    def test_sends_a_get_without_a_body_for_each_screen_and_notice(self):
        for words in [["Home"], ["Browse"], ["Collection", "--collectionId", "1"], ["Category", "--category", "c"],
                      ["Channel", "--channel", "c"], ["Navigation", "--type", "channels"],
                      ["NavigationMainMenuList", "--channels", "a"], ["NowNext", "--houseNumber", "N"], ["Livestreams"],
                      ["Messages", "--appId", "me"], ["ProductAlert", "--alertId", "7"], ["Remap", "--path", "x"]]:
            with self.subTest(words):
                request = vantic("request", *words, *BASE, "--header", "A: 1", "--timeout", "5").json
                self.assertEqual((request["method"], request["body"]), ("GET", None))
                self.assertEqual((request["headers"], request["timeout"]), ({"A": "1"}, 5))

    def test_describes_application_and_device_to_messages(self):
        words = ["Messages", "--appId", "lumeno int", *BASE]
        given = ["--appVersion", "1 2", "--systemVersion", "17.0", "--machine", "m"]
        self.assertEqual(
            url(*words, *given, "--loggedIn"),
            "https://api.vantic.example/v2/messages?appId=lumeno%20int&appVersion=1%202&platform=ios"
            "&platformVersion=17.0&device=m&authStatus=true",
        )
        self.assertEqual(
            url(*words, "--appVersion", ""),
            "https://api.vantic.example/v2/messages?appId=lumeno%20int&appVersion=&platform=ios"
            f"&platformVersion={quote(platform.release())}&device={platform.machine()}&authStatus=false",
        )
        self.assertNotIn("appVersion", url(*words))

    def test_keeps_path_and_query_of_the_base_url(self):
        self.assertEqual(url("Time", "--base-url", "http://h:81/a/b/?c=d"), "http://h:81/a/b/v2/time?c=d")

    def test_does_not_need_the_type_of_a_resource(self):
        for more in [[], ["--as", "Nothing"]]:
            self.assertEqual(url("Resource", "--withHref", "x", *more, *BASE), "https://api.vantic.example/v2/x")

    def test_does_not_need_options_of_loading(self):
        outcome = vantic("request", "Time", *BASE, "--verbose", "--ca", "/nowhere")
        self.assertEqual((outcome.code, outcome.err), (0, ""))


class Services(TestCase):
    SEGMENTS = ["KAVROSegments", *BASE, "--withSubprofileID", 'a"/', "--apiKey", "k", "--accessToken", "t"]
    MODULE = ["RecsModule", *BASE, "--withModuleId", "m", "--limit", "5", "--httpMethod", "PUT", "--apiKey", "k&"]

    def test_segments_are_requested_with_a_body_and_three_headers(self):
        request = vantic("request", *self.SEGMENTS).json
        self.assertEqual((request["method"], request["url"]), ("POST", BASE[1] + "/api/v1/gigya/segments"))
        self.assertEqual(request["body"], '{"sub_profile_id":"a\\"\\/"}')
        self.assertEqual(request["headers"],
                         {"content-type": "application/json", "x-api-key": "k", "Authorization": "Bearer t"})

    def test_segments_are_requested_with_the_hosts_headers_which_take_precedence(self):
        headers = vantic("request", *self.SEGMENTS, "--header", "x-api-key: own", "--header", "X-More: 1").json["headers"]
        self.assertEqual(headers, {"content-type": "application/json", "x-api-key": "own", "Authorization": "Bearer t",
                                   "X-More": "1"})

    def test_recommendations_are_requested_with_the_key_in_the_query(self):
        request = vantic("request", *self.MODULE, "--header", "A: 1").json
        self.assertEqual(request["method"], "PUT")
        self.assertEqual(request["url"], BASE[1] + "/api/v2/recommendations/m?apikey=k%26")
        self.assertEqual(request["headers"], {"A": "1"})
        self.assertEqual(request["body"], '{"limit":5}')

    def test_recommendations_have_users_and_contents_in_the_body(self):
        request = vantic(
            "request", *self.MODULE, "--userId", "", "--accountId", "a", "--subprofileId", "s",
            "--exclude", "lumeno://program/1", "--exclude", "coremedia://audio/2/3", "--include", "lumeno://video/",
            "--andModuleContext", "coremedia://recipe/x y",
        ).json
        self.assertEqual(
            request["body"].replace("\\/", "/"),
            '{"limit":5,"userid":"","accountid":"a","subprofileid":"s","context":"coremedia://recipe/x y",'
            '"contentfilter":{"excludes":["lumeno://program/1","coremedia://audio/2/3"],'
            '"includes":["lumeno://video/"]}}',
        )


class Options(TestCase):
    def test_accept_an_empty_value(self):
        for words in [["--houseNumber", ""], ["--houseNumber="]]:
            self.assertEqual(url("Video", *words, *BASE), "https://api.vantic.example/v2/video/")
        self.assertEqual(url("Videos", "--houseNumbers", "", "--houseNumbers=", *BASE),
                         "https://api.vantic.example/v2/videos/,")

    def test_accept_any_text_unchanged(self):
        self.assertEqual(url("Video", "--houseNumber", " a=b/c?d,e#f%20", *BASE),
                         "https://api.vantic.example/v2/video/%20a=b/c%3Fd,e%23f%2520")

    def test_left_out_give_an_empty_list(self):
        self.assertEqual(url("Videos", *BASE), "https://api.vantic.example/v2/videos/")

    def test_can_have_their_value_after_an_equals_sign(self):
        self.assertEqual(url("Video", "--houseNumber=--a=b", "--base-url=http://h/"), "http://h/v2/video/--a=b")
        self.assertEqual(url("Video", "--houseNumber", "-1", *BASE), "https://api.vantic.example/v2/video/-1")
        self.assertEqual(vantic("request", "Time", *BASE, "--timeout=7").json["timeout"], 7)

    def test_can_have_any_order(self):
        self.assertEqual(url("Video", *BASE, "--timeout", "1", "--houseNumber", "a"),
                         "https://api.vantic.example/v2/video/a")

    def test_treat_brackets_and_quotes_as_text(self):
        self.assertEqual(url("Videos", "--houseNumbers", "[a,b]", "--houseNumbers", "'c'", *BASE),
                         "https://api.vantic.example/v2/videos/%5Ba,b%5D,'c'")


class Headers(TestCase):
    def headers(self, *texts):
        words = [word for text in texts for word in ("--header", text)]
        return vantic("request", "Time", *BASE, *words).json["headers"]

    def test_are_those_of_the_host(self):
        self.assertEqual(self.headers("X-Key: a b", "Accept:text/plain"), {"X-Key": "a b", "Accept": "text/plain"})

    def test_with_the_same_name_override_earlier_ones(self):
        self.assertEqual(self.headers("A: 1", "B: 2", "A: 3"), {"A": "3", "B": "2"})

    def test_with_names_that_differ_in_case_are_joined(self):
        self.assertEqual(self.headers("a: 1", "A: 2"), {"A": "2,1"})

    def test_can_be_empty_and_contain_colons(self):
        self.assertEqual(self.headers("A:", "B: c:d: e"), {"A": "", "B": "c:d: e"})

    def test_are_printed_as_valid_json_whatever_their_bytes(self):
        outcome = vantic("request", "Time", *BASE, "--header", b"A: \xff\xc3\xa9\"")
        self.assertEqual(outcome.json["headers"], {"A": "\ufffdé\""})


if __name__ == "__main__":
    unittest.main()
