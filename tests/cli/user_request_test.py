import unittest
from urllib.parse import unquote

from program import TestCase, vantic

BASE = ["--base-url", "https://api.vantic.example", "--uid", "ann"]
TOKEN = ["--token", "T"]

# Each operation with all its options, and its request: method, path and query.
OPERATIONS = [
    (["getSubprofiles"], "GET", "v2/dataset/profile?UID=ann&source=lumeno"),
    (["getSubprofiles", "--includePrivateData"], "GET", "v2/dataset/profile?UID=ann&source=lumeno&include=private"),
    (["getSubprofiles", "--includeFamilyData"], "GET", "v2/dataset/profile?UID=ann&source=lumeno&include=family"),
    (["getSubprofiles", "--includePrivateData", "--includeFamilyData"], "GET",
     "v2/dataset/profile?UID=ann&source=lumeno&include=private,family"),
    (["createSubprofile", "--dataset", "{}"], "POST", "v2/dataset/profile?UID=ann&source=lumeno&include=private"),
    (["updateSubprofile", "--dataset", "{}"], "PATCH", "v2/dataset/profile?UID=ann&source=lumeno&include=private"),
    (["deleteHistory"], "DELETE", "v2/history?UID=ann&source=lumeno&slug=watchlist"),
    (["viewingHistory", "--limit", "5"], "GET",
     "v2/history/video?UID=ann&slug=watchlist&source=lumeno&raw=1&limit=5"),
    (["listRecentVideos", "--limit", "18446744073709551615"], "GET",
     "v2/history/video/recent?UID=ann&slug=watchlist&source=lumeno&done=0&raw=1&limit=18446744073709551615"),
    (["listRecentVideos", "--limit", "0", "--markedAsDone"], "GET",
     "v2/history/video/recent?UID=ann&slug=watchlist&source=lumeno&done=1&raw=1&limit=0"),
    (["listVideosForShow", "--showId", "-3"], "GET", "v2/history/show/-3?UID=ann&slug=watchlist&source=lumeno&raw=1"),
    (["listVideosForShow", "--showId", "3", "--markedAsDone", "true"], "GET",
     "v2/history/show/3?UID=ann&slug=watchlist&source=lumeno&raw=1&done=1"),
    (["listVideosForShow", "--showId", "3", "--markedAsDone=false"], "GET",
     "v2/history/show/3?UID=ann&slug=watchlist&source=lumeno&raw=1&done=0"),
    (["getVideoProgress", "--showId", "3", "--houseNumber", "H 1"], "GET",
     "v2/history/show/3/video/H%201?UID=ann&source=lumeno&slug=watchlist&raw=1"),
    (["updateVideoProgress", "--showId", "3", "--houseNumber", "H1", "--progress", "99"], "PATCH",
     "v2/history/show/3/video/H1/progress/99?UID=ann&source=lumeno&slug=watchlist&raw=1&done=0"),
    (["updateVideoProgress", "--showId", "3", "--houseNumber", "H1", "--progress", "99", "--isDone"], "PATCH",
     "v2/history/show/3/video/H1/progress/99?UID=ann&source=lumeno&slug=watchlist&raw=1&done=1"),
    (["listWatchlistShowIds"], "GET", "v2/saved/watchlist/show?UID=ann&raw=1&source=lumeno"),
    (["addWatchlistShow", "--showId", "42"], "POST", "v2/saved/watchlist/show/42?UID=ann&raw=1&source=lumeno"),
    (["deleteShow", "--showId", "42"], "DELETE", "v2/saved/watchlist/show/42?UID=ann&source=lumeno"),
]


class RequestForAUser(TestCase):
    def request(self, *words):
        outcome = vantic("request", *words, *BASE, *TOKEN)
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        return outcome.json

    def test_is_printed_for_each_operation(self):
        for words, method, target in OPERATIONS:
            with self.subTest(words):
                request = self.request(*words)
                self.assertEqual(list(request), ["method", "url", "headers", "timeout", "body"])
                self.assertEqual((request["method"], request["url"]), (method, f"{BASE[1]}/{target}"))
                self.assertEqual(request["headers"],
                                 {"Authorization": "Bearer T", "Content-Type": "application/x-www-form-urlencoded"})
                self.assertEqual(request["body"], "dataset=%7B%7D" if "--dataset" in words else None)

    def test_is_printed_indented(self):
        self.assertEqual(
            vantic("request", "deleteHistory", *BASE, *TOKEN).out,
            '{\n  "method": "DELETE",\n  "url": "https://api.vantic.example/v2/history?UID=ann&source=lumeno&slug=watchlist",\n'
            '  "headers": {\n    "Authorization": "Bearer T",\n    "Content-Type": "application/x-www-form-urlencoded"\n  },\n'
            '  "timeout": 30,\n  "body": null\n}\n',
        )

    def test_is_an_array_of_three_for_the_deletion_of_a_profile_in_starting_order(self):
        history, saved, dataset = self.request("deleteSubprofile")
        for request, target in [(history, "v2/history?UID=ann&source=lumeno&slug=watchlist"),
                                (saved, "v2/saved/watchlist?UID=ann&source=lumeno"),
                                (dataset, "v2/dataset/profile?UID=ann&source=lumeno")]:
            self.assertEqual((request["method"], request["url"], request["body"]),
                             ("DELETE", f"{BASE[1]}/{target}", None))
            self.assertEqual(request["headers"]["Authorization"], "Bearer T")

    def test_has_the_dataset_as_a_form_field_in_its_body(self):
        dataset = '{"t":"a b&\\u00e9\\"","whole":1.0,"part":0.5,"yes":true,"list":[1],"nested":{"a":1},"none":null}'
        body = self.request("createSubprofile", "--dataset", dataset)["body"]
        field, value = body.split("=")
        self.assertEqual(field, "dataset")
        self.assertNotRegex(value, r'[ &"{}:,]')
        self.assertEqual(unquote(value), '{"part":0.5,"t":"a b&é\\"","whole":1,"yes":true}')

    def test_contains_the_unchanged_user_and_token(self):
        request = vantic("request", "listWatchlistShowIds", "--uid", " a/b&c=", "--token", "", *BASE[:2]).json
        self.assertEqual(request["url"], f"{BASE[1]}/v2/saved/watchlist/show?UID=%20a/b%26c%3D&raw=1&source=lumeno")
        self.assertEqual(request["headers"]["Authorization"], "Bearer ")

    def test_has_the_hosts_headers_except_those_of_the_token(self):
        headers = self.request("deleteHistory", "--header", "Authorization: own", "--header", "Content-Type: own",
                               "--header", "X-Host: yes")["headers"]
        self.assertEqual(headers, {"Authorization": "Bearer T", "Content-Type": "application/x-www-form-urlencoded",
                                   "X-Host": "yes"})

    def test_has_the_hosts_timeout(self):
        self.assertEqual(self.request("deleteHistory", "--timeout", "2.5")["timeout"], 2.5)

    def test_fails_if_no_user_is_signed_in(self):
        outcome = vantic("request", "deleteSubprofile", *BASE[:2], *TOKEN)
        self.assert_failed(outcome)
        self.assertEqual(outcome.err, "Got nil uid from TrelvoContext.\n")


class WrongUsage(TestCase):
    def test_no_operation_or_an_unknown_one(self):
        self.assert_usage_error(vantic("user"))
        self.assert_usage_error(vantic("user", *BASE))
        for name in ["Time", "deletehistory", "getDataset", "clearAuth", "refreshAuth", "deleteWatchlist", ""]:
            with self.subTest(name):
                self.assert_usage_error(vantic("user", name, *BASE), name)
        self.assert_usage_error(vantic("load", "deleteHistory", *BASE), "deleteHistory")

    def test_a_request_without_a_token_and_a_run_with_one(self):
        for words, *_ in OPERATIONS:
            with self.subTest(words):
                self.assert_usage_error(vantic("request", *words, *BASE), "--token")
                self.assert_usage_error(vantic("user", *words, *BASE, *TOKEN), "--token")

    def test_a_missing_or_invalid_base_url(self):
        for command, more in [("user", []), ("request", TOKEN)]:
            self.assert_usage_error(vantic(command, "deleteHistory", "--uid", "ann", *more), "--base-url")
            self.assert_usage_error(vantic(command, "deleteHistory", "--base-url", "http://[", *more), "--base-url")

    def test_a_missing_option(self):
        for words, *_ in OPERATIONS:
            flags = {"--includePrivateData", "--includeFamilyData", "--markedAsDone", "--isDone"}
            for at, word in enumerate(words):
                if not word.startswith("--") or word.split("=")[0] in flags:
                    continue
                with self.subTest((words, word)):
                    rest = words[:at] + words[at + 2:]
                    self.assert_usage_error(vantic("user", *rest, *BASE), word)
                    self.assert_usage_error(vantic("request", *rest, *BASE, *TOKEN), word)

    def test_a_doubled_option(self):
        for words in [["deleteHistory", "--uid", "a"], ["viewingHistory", "--limit", "1", "--limit=1"],
                      ["getSubprofiles", "--includeFamilyData", "--includeFamilyData"],
                      ["createSubprofile", "--dataset", "{}", "--dataset", "{}"]]:
            with self.subTest(words):
                self.assert_usage_error(vantic("user", *words, *BASE), "twice")
        self.assert_usage_error(vantic("request", "deleteHistory", *BASE, *TOKEN, *TOKEN), "--token")

    def test_an_option_of_another_operation(self):
        for words in [["deleteHistory", "--showId", "1"], ["deleteShow", "--showId", "1", "--houseNumber", "h"],
                      ["viewingHistory", "--limit", "1", "--markedAsDone"], ["deleteSubprofile", "ann"]]:
            with self.subTest(words):
                self.assert_usage_error(vantic("user", *words, *BASE))

    def test_a_dataset_that_is_not_a_json_object(self):
        for text in ["", "{", "[]", "1", '"a"', "null", "true", "{a:1}", "{} x", '{"a":1', "displayName=x"]:
            for command, operation, more in [("user", "createSubprofile", []), ("request", "updateSubprofile", TOKEN)]:
                with self.subTest((command, text)):
                    self.assert_usage_error(vantic(command, operation, "--dataset", text, *BASE, *more), "--dataset")

    def test_invalid_numbers_and_booleans(self):
        for name, texts, words in [
            ("--limit", ["", "-1", "1.5", "x", "18446744073709551616"], ["viewingHistory"]),
            ("--limit", ["-1", "many"], ["listRecentVideos"]),
            ("--showId", ["", "1.0", "x", "9223372036854775808"], ["deleteShow"]),
            ("--progress", ["", "half"], ["updateVideoProgress", "--showId", "1", "--houseNumber", "h"]),
            ("--markedAsDone", ["", "yes", "1"], ["listVideosForShow", "--showId", "1"]),
        ]:
            for text in texts:
                with self.subTest((name, text)):
                    self.assert_usage_error(vantic("user", *words, name, text, *BASE), name)
        self.assert_usage_error(vantic("user", "listRecentVideos", "--limit", "1", "--markedAsDone", "true", *BASE))
        self.assert_usage_error(vantic("user", "listVideosForShow", "--showId", "1", "--markedAsDone", *BASE))


class Help(TestCase):
    def test_lists_the_operations_for_users(self):
        outcome = vantic("--help")
        for words, *_ in OPERATIONS:
            self.assertIn(f"\n  {words[0]}", outcome.out)
        self.assertIn("vantic user", outcome.out)
        self.assertIn("--token", outcome.out)


if __name__ == "__main__":
    unittest.main()
