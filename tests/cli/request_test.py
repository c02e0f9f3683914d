import unittest

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

    def test_prints_time_outs_without_a_fraction_where_they_are_whole(self):
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

    def test_keeps_path_and_query_of_the_base_url(self):
        self.assertEqual(url("Time", "--base-url", "http://h:81/a/b/?c=d"), "http://h:81/a/b/v2/time?c=d")

    def test_asks_no_type_of_a_resource(self):
        for more in [[], ["--as", "Nothing"]]:
            self.assertEqual(url("Resource", "--withHref", "x", *more, *BASE), "https://api.vantic.example/v2/x")

    def test_does_not_need_what_only_loading_needs(self):
        outcome = vantic("request", "Time", *BASE, "--verbose", "--ca", "/nowhere")
        self.assertEqual((outcome.code, outcome.err), (0, ""))


class Options(TestCase):
    def test_take_an_empty_text_for_a_value(self):
        for words in [["--houseNumber", ""], ["--houseNumber="]]:
            self.assertEqual(url("Video", *words, *BASE), "https://api.vantic.example/v2/video/")
        self.assertEqual(url("Videos", "--houseNumbers", "", "--houseNumbers=", *BASE),
                         "https://api.vantic.example/v2/videos/,")

    def test_take_text_as_it_comes(self):
        self.assertEqual(url("Video", "--houseNumber", " a=b/c?d,e#f%20", *BASE),
                         "https://api.vantic.example/v2/video/%20a=b/c%3Fd,e%23f%2520")

    def test_left_out_give_an_empty_list(self):
        self.assertEqual(url("Videos", *BASE), "https://api.vantic.example/v2/videos/")

    def test_may_hold_their_value_behind_an_equals_sign(self):
        self.assertEqual(url("Video", "--houseNumber=--a=b", "--base-url=http://h/"), "http://h/v2/video/--a=b")
        self.assertEqual(url("Video", "--houseNumber", "-1", *BASE), "https://api.vantic.example/v2/video/-1")
        self.assertEqual(vantic("request", "Time", *BASE, "--timeout=7").json["timeout"], 7)

    def test_come_in_any_order(self):
        self.assertEqual(url("Video", *BASE, "--timeout", "1", "--houseNumber", "a"),
                         "https://api.vantic.example/v2/video/a")

    def test_take_brackets_and_quotes_as_text(self):
        self.assertEqual(url("Videos", "--houseNumbers", "[a,b]", "--houseNumbers", "'c'", *BASE),
                         "https://api.vantic.example/v2/videos/%5Ba,b%5D,'c'")


class Headers(TestCase):
    def headers(self, *texts):
        words = [word for text in texts for word in ("--header", text)]
        return vantic("request", "Time", *BASE, *words).json["headers"]

    def test_are_those_of_the_host(self):
        self.assertEqual(self.headers("X-Key: a b", "Accept:text/plain"), {"X-Key": "a b", "Accept": "text/plain"})

    def test_of_one_name_the_last_one_wins(self):
        self.assertEqual(self.headers("A: 1", "B: 2", "A: 3"), {"A": "3", "B": "2"})

    def test_of_names_that_differ_in_case_are_joined(self):
        self.assertEqual(self.headers("a: 1", "A: 2"), {"A": "2,1"})

    def test_may_be_empty_and_may_hold_colons(self):
        self.assertEqual(self.headers("A:", "B: c:d: e"), {"A": "", "B": "c:d: e"})

    def test_are_printed_as_valid_json_whatever_their_bytes(self):
        outcome = vantic("request", "Time", *BASE, "--header", b"A: \xff\xc3\xa9\"")
        self.assertEqual(outcome.json["headers"], {"A": "\ufffdé\""})


if __name__ == "__main__":
    unittest.main()
