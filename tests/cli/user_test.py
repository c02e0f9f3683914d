import json
import unittest

from program import SampleService, TestCase, vantic

PROFILE = {"displayName": "Ann", "birthYear": 1980, "isChild": False, "avatarId": 101}
NO_TOKEN = "No valid auth token was found.  The last call to the token endpoint produced this error: "
GENERIC = "The operation couldn’t be completed. (dev.vantic.VanticRestKit.networkService error {}.)\n"


class UserCase(TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = SampleService().__enter__()
        cls.addClassCleanup(cls.service.stop)

    def setUp(self):
        for state in ["log", "faults", "users"]:
            self.service.control("DELETE", state)
        self.service.control("POST", "tokens", {"seconds": 3600, "rotation": "late", "refused": []})

    def user(self, *words, uid="ann"):
        return vantic("user", *words, "--uid", uid, "--base-url", self.service.url)

    def value(self, *words, **more):
        outcome = self.user(*words, **more)
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        self.assertEqual(outcome.out, json.dumps(outcome.json, indent=2, ensure_ascii=False) + "\n")
        return outcome.json

    def nothing(self, *words, **more):
        """Expects success and no output."""
        outcome = self.user(*words, **more)
        self.assertEqual((outcome.code, outcome.out, outcome.err), (0, "", ""))

    def failure(self, *words, **more):
        outcome = self.user(*words, **more)
        self.assert_failed(outcome)
        return outcome.err

    def sent(self):
        """The method and target of each received request."""
        return [(request["method"], request["target"]) for request in self.service.control("GET", "log")]

    def kept(self, uid="ann"):
        return self.service.control("GET", "users").get(uid)


class Subprofiles(UserCase):
    def test_are_created_and_printed_as_the_properties_of_a_profile(self):
        profile = self.value("createSubprofile", "--dataset", json.dumps(PROFILE))
        self.assertRegex(profile.pop("created"), r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$")
        self.assertRegex(profile.pop("updated"), r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$")
        self.assertEqual(
            list(profile.items()),
            [("uid", "ann"), ("parentUid", None), ("displayName", "Ann"), ("avatar", None), ("avatarId", 101),
             ("avatarAccessibilityText", None), ("isChild", False), ("birthYear", 1980), ("channelFilter", None)],
        )
        self.assertEqual(self.kept()["datasets"], {"profile": PROFILE})

    def test_are_listed_with_private_and_family_data_if_requested(self):
        self.value("createSubprofile", "--dataset", json.dumps(PROFILE))
        self.value("createSubprofile", "--dataset", '{"displayName":"Tim","isChild":true}', uid="ann.tim")
        [alone] = self.value("getSubprofiles")
        self.assertEqual((alone["displayName"], alone["birthYear"]), ("Ann", None))
        ann, tim = self.value("getSubprofiles", "--includePrivateData", "--includeFamilyData")
        self.assertEqual(ann["birthYear"], 1980)
        self.assertEqual((tim["uid"], tim["parentUid"], tim["isChild"]), ("ann.tim", "ann", True))

    def test_are_updated_with_the_dataset(self):
        self.value("createSubprofile", "--dataset", json.dumps(PROFILE))
        updated = self.value("updateSubprofile", "--dataset", '{"displayName":"A&B =1","channelFilter":"vantic-kids"}')
        self.assertEqual((updated["displayName"], updated["channelFilter"], updated["birthYear"]),
                         ("A&B =1", "vantic-kids", 1980))

    def test_without_a_user_have_their_own_message(self):
        self.assertEqual(
            self.failure("getSubprofiles"),
            "The requested dataset doesn't exist, either because it was deleted, or hasn't yet been created.\n",
        )

    def test_are_deleted_with_history_and_watchlist_before_the_program_ends(self):
        self.value("createSubprofile", "--dataset", "{}")
        self.value("addWatchlistShow", "--showId", "11")
        self.value("updateVideoProgress", "--showId", "11", "--houseNumber", "HL0101", "--progress", "9")
        self.nothing("deleteSubprofile")
        self.assertEqual(self.kept(), {"datasets": {}, "history": [], "saved": []})

    def test_are_deleted_and_awaited_even_without_a_completion(self):
        self.value("createSubprofile", "--dataset", "{}")
        self.value("addWatchlistShow", "--showId", "11")
        self.value("updateVideoProgress", "--showId", "11", "--houseNumber", "HL0101", "--progress", "9")
        self.service.fault("v2/history", "delay", seconds=1.5)
        self.service.fault("v2/saved/watchlist", "delay", seconds=1)
        self.nothing("deleteSubprofile")
        self.assertEqual(self.kept(), {"datasets": {}, "history": [], "saved": []})

    def test_are_deleted_even_if_the_rest_fails(self):
        self.value("createSubprofile", "--dataset", "{}")
        self.service.fault("v2/history", "status")
        self.service.fault("v2/saved/watchlist", "reset")
        self.nothing("deleteSubprofile")

    def test_that_cannot_be_deleted_fail_in_one_line(self):
        self.assertEqual(self.failure("deleteSubprofile"), GENERIC.format(404))
        self.assertEqual([method for method, _ in self.sent()].count("DELETE"), 3)


class History(UserCase):
    def progress(self, house_number, seconds, *more, show="11"):
        return self.value("updateVideoProgress", "--showId", show, "--houseNumber", house_number, "--progress",
                          str(seconds), *more)

    def keys(self, *words):
        return [record["key"] for record in self.value(*words)]

    def test_prints_records_field_by_field(self):
        [record] = self.progress("HL0101", 1380)
        self.assertRegex(record.pop("oid"), "^oid-")
        self.assertRegex(record.pop("lastAccessed"), r"^\d{4}-\d\d-\d\dT\d\d:\d\d:\d\dZ$")
        self.assertEqual(
            list(record.items()),
            [("source", "lumeno"), ("uid", "ann"), ("slug", "watchlist"), ("namespace", "video"), ("key", "HL0101"),
             ("progress", 1380), ("done", False)],
        )

    def test_lists_watched_videos_with_the_last_first(self):
        self.progress("HL0101", 2760, "--isDone")
        self.progress("HL0102", 60)
        self.progress("QO0101", 30, show="12")
        self.assertEqual(self.keys("viewingHistory", "--limit", "2"), ["QO0101", "HL0102"])
        self.assertEqual(self.keys("listRecentVideos", "--limit", "9"), ["QO0101", "HL0102"])
        self.assertEqual(self.keys("listRecentVideos", "--limit", "9", "--markedAsDone"), ["HL0101"])
        self.assertEqual(self.keys("listVideosForShow", "--showId", "11"), ["HL0102", "HL0101"])
        self.assertEqual(self.keys("listVideosForShow", "--showId", "11", "--markedAsDone", "true"), ["HL0101"])
        self.assertEqual(self.keys("listVideosForShow", "--showId", "11", "--markedAsDone", "false"), ["HL0102"])
        [resumed] = self.value("getVideoProgress", "--showId", "11", "--houseNumber", "HL0102")
        self.assertEqual((resumed["progress"], resumed["done"]), (60, False))

    def test_of_a_video_that_was_not_watched_is_an_empty_list(self):
        self.assertEqual(self.value("getVideoProgress", "--showId", "11", "--houseNumber", "HL0102"), [])

    def test_is_deleted_and_a_missing_one_counts_as_deleted(self):
        self.progress("HL0101", 1)
        self.nothing("deleteHistory")
        self.assertEqual(self.kept()["history"], [])
        self.nothing("deleteHistory")

    def test_that_lacks_its_records_has_its_own_sentence(self):
        self.service.fault("v2/history/video", "null", at="/data")
        self.assertEqual(self.failure("viewingHistory", "--limit", "1"), "Unable to retrieve history data\n")


class Watchlist(UserCase):
    def test_keeps_added_shows_in_order_until_they_are_removed(self):
        [added] = self.value("addWatchlistShow", "--showId", "12")
        self.assertEqual(list(added),
                         ["source", "oid", "slug", "namespace", "key", "order", "created", "updated"])
        self.assertEqual((added["source"], added["key"], added["order"]), ("lumeno", "12", 0))
        self.value("addWatchlistShow", "--showId", "11")
        self.assertEqual([record["key"] for record in self.value("listWatchlistShowIds")], ["12", "11"])
        self.nothing("deleteShow", "--showId", "12")
        self.assertEqual([record["key"] for record in self.value("listWatchlistShowIds")], ["11"])

    def test_without_shows_is_an_empty_list(self):
        self.assertEqual(self.user("listWatchlistShowIds").out, "[]\n")

    def test_fails_for_a_show_that_is_not_on_it(self):
        self.assertEqual(self.failure("deleteShow", "--showId", "12"), GENERIC.format(404))

    def test_that_lacks_its_records_has_its_own_sentence(self):
        self.service.fault("v2/saved/watchlist/show", "null", at="/data")
        self.assertEqual(self.failure("listWatchlistShowIds"), "Unable to retrieve saved data\n")


class Tokens(UserCase):
    def test_are_requested_first(self):
        self.value("listWatchlistShowIds")
        self.assertEqual(
            self.sent(),
            [("GET", "/v2/token?UID=ann&source=lumeno"),
             ("GET", "/v2/saved/watchlist/show?UID=ann&raw=1&source=lumeno")],
        )

    def test_are_requested_for_each_operation_if_they_expire_quickly(self):
        self.value("createSubprofile", "--dataset", "{}")
        self.service.control("POST", "tokens", {"seconds": 4})
        self.service.control("DELETE", "log")
        self.nothing("deleteSubprofile")
        self.assertEqual([target.split("?")[0] for _, target in self.sent()].count("/v2/token"), 3)

    def test_that_are_refused_have_their_own_message(self):
        self.service.control("POST", "tokens", {"refused": ["ann"]})
        self.assertEqual(
            self.failure("listWatchlistShowIds"),
            "Token request denied because account is unauthorized, likely because reconsent is required.\n",
        )
        self.assertEqual(len(self.sent()), 1)

    def test_that_fail_to_load_report_the_cause(self):
        self.service.fault("v2/token", "status", status=503)
        self.assertEqual(self.failure("viewingHistory", "--limit", "1"), NO_TOKEN + GENERIC.format(503))

    def test_missing_in_the_response_name_the_operation(self):
        self.service.fault("v2/token", "null", at="/auth")
        self.assertEqual(
            self.failure("deleteShow", "--showId", "1"),
            "Unknown error: In Trelvo.deleteShow(), no saved auth data and no authError found\n",
        )

    def test_are_not_requested_if_no_user_is_signed_in(self):
        outcome = vantic("user", "deleteSubprofile", "--base-url", self.service.url)
        self.assert_failed(outcome)
        self.assertEqual(outcome.err, "Got nil uid from TrelvoContext.\n")
        self.assertEqual(self.sent(), [])

    def test_are_requested_for_an_empty_user(self):
        self.assertEqual(self.value("listWatchlistShowIds", uid=""), [])
        self.assertEqual(self.sent()[0], ("GET", "/v2/token?UID=&source=lumeno"))

    def test_that_have_expired_fail_in_one_line(self):
        self.service.fault("v2/saved/watchlist/show", "expiredToken")
        self.assertEqual(self.failure("listWatchlistShowIds"), GENERIC.format(401))


class RequestOptions(UserCase):
    def test_hosts_headers_are_sent_with_all_requests_and_tokens_only_with_data(self):
        self.value("listWatchlistShowIds", "--header", "X-Host: yes")
        token, data = [{header["name"]: header["value"] for header in request["headers"]}
                       for request in self.service.control("GET", "log")]
        self.assertEqual((token["X-Host"], data["X-Host"]), ("yes", "yes"))
        self.assertNotIn("Authorization", token)
        self.assertNotIn("Content-Type", token)
        self.assertTrue(data["Authorization"].startswith("Bearer access-"))
        self.assertEqual(data["Content-Type"], "application/x-www-form-urlencoded")

    def test_failures_of_all_requests_are_reported_if_verbose(self):
        self.service.fault("v2/history", "status", status=503)
        self.value("createSubprofile", "--dataset", "{}")
        outcome = self.user("deleteSubprofile", "--verbose")
        self.assertEqual((outcome.code, outcome.out), (0, ""))
        self.assert_one_line(outcome.err)
        self.assertIn("HttpCode: 503", outcome.err)

    def test_a_wait_ends_at_the_timeout(self):
        self.service.fault("v2/token", "stall")
        outcome = self.user("listWatchlistShowIds", "--timeout", "0.2", "--verbose")
        self.assertEqual(outcome.code, 1)
        self.assertIn("-1001", outcome.err)


class SendsWhatRequestPrints(UserCase):
    OPERATIONS = [
        ["createSubprofile", "--dataset", '{"a b":"x&y=é","c":1.5}'],
        ["updateSubprofile", "--dataset", '{"d":true}'],
        ["getSubprofiles", "--includePrivateData", "--includeFamilyData"],
        ["getSubprofiles"],
        ["updateVideoProgress", "--showId", "11", "--houseNumber", "H 1", "--progress", "7", "--isDone"],
        ["viewingHistory", "--limit", "5"],
        ["listRecentVideos", "--limit", "5", "--markedAsDone"],
        ["listVideosForShow", "--showId", "11", "--markedAsDone", "false"],
        ["getVideoProgress", "--showId", "11", "--houseNumber", "H 1"],
        ["addWatchlistShow", "--showId", "42"],
        ["listWatchlistShowIds"],
        ["deleteShow", "--showId", "42"],
        ["deleteHistory"],
        ["deleteSubprofile"],
    ]

    def test_for_every_operation(self):
        for words in self.OPERATIONS:
            with self.subTest(words):
                self.service.control("DELETE", "log")
                self.assertEqual(self.user(*words).code, 0)
                token, *sent = self.service.control("GET", "log")
                [given] = {header["value"] for request in sent for header in request["headers"]
                           if header["name"] == "Authorization"}
                printed = vantic("request", *words, "--uid", "ann", "--token", given.removeprefix("Bearer "),
                                 "--base-url", self.service.url).json
                # Requests sent at once can arrive in any order.
                self.assertEqual(
                    sorted(self.seen(request) for request in sent),
                    sorted(self.wanted(request) for request in (printed if isinstance(printed, list) else [printed])),
                )

    def seen(self, request):
        headers = {header["name"]: header["value"] for header in request["headers"]}
        return (request["method"], self.service.url + request["target"], request["body"], headers["Authorization"],
                headers["Content-Type"])

    def wanted(self, request):
        self.assertEqual(set(request["headers"]), {"Authorization", "Content-Type"})
        return (request["method"], request["url"], request["body"] or "", request["headers"]["Authorization"],
                request["headers"]["Content-Type"])


class Services(UserCase):
    def load(self, *words):
        outcome = vantic("load", *words, "--base-url", self.service.url)
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        return outcome.json

    def test_segments_are_those_of_the_subprofile(self):
        words = ["KAVROSegments", "--withSubprofileID", "ann", "--apiKey", "k", "--accessToken", "t"]
        self.assertEqual(self.load(*words), {"activeAudiences": [], "activeBadges": ["iOSUser"], "userId": "ann"})
        self.value("updateVideoProgress", "--showId", "14", "--houseNumber", "SP0101", "--progress", "7")
        self.assertEqual(self.load(*words)["activeAudiences"], ["lumenoGenreFavourite180DVanticKids"])

    def test_recommendations_follow_limit_and_filters(self):
        words = ["RecsModule", "--withModuleId", "home", "--httpMethod", "POST", "--apiKey", "k"]
        module = self.load(*words, "--limit", "3")
        self.assertEqual((module["moduleid"], len(module["recommendations"])), ("home", 3))
        self.assertEqual(list(module["recommendations"][0]), ["rid", "recipeid"])
        first = module["recommendations"][0]["rid"]
        without = self.load(*words, "--limit", "3", "--exclude", first)
        self.assertNotIn(first, [item["rid"] for item in without["recommendations"]])
        alone = self.load(*words, "--limit", "3", "--include", first)
        self.assertEqual([item["rid"] for item in alone["recommendations"]], [first])

    def test_fail_in_one_line_if_refused(self):
        for words in [["KAVROSegments", "--withSubprofileID", "ann", "--apiKey", "", "--accessToken", "t"],
                      ["RecsModule", "--withModuleId", "m", "--limit", "1", "--httpMethod", "POST", "--apiKey", ""]]:
            outcome = vantic("load", *words, "--base-url", self.service.url)
            self.assert_failed(outcome)
            self.assertEqual(outcome.err, GENERIC.format(403))


if __name__ == "__main__":
    unittest.main()
