import unittest

from program import TestCase, vantic

BASE = ["--base-url", "http://h"]


class MisspeltNames(TestCase):
    def assert_suggests(self, name, *words):
        self.assert_usage_error(vantic(*words), f"did you mean {name}?")

    def test_a_command(self):
        self.assert_suggests("decode", "decod", "Time")
        self.assert_suggests("load", "laod", "Time", *BASE)

    def test_an_operation(self):
        for command in ["request", "load"]:
            self.assert_suggests("Livestreams", command, "livestream", *BASE)
            self.assert_suggests("Show", command, "Shwo", *BASE)
        self.assert_suggests("viewingHistory", "user", "viewinghistory", *BASE, "--limit", "1")

    def test_an_option(self):
        self.assert_suggests("--houseNumber", "load", "Video", *BASE, "--housenumber", "HL0101")
        self.assert_suggests("--base-url", "load", "Time", "--baseurl", "http://h")
        self.assert_suggests("--lines", "decode", "--line", "Time")
        self.assert_suggests("--limit", "user", "viewingHistory", *BASE, "--limt", "1")

    def test_a_type(self):
        self.assert_suggests("Video", "decode", "Vidoe")
        self.assert_suggests("Show", "explain", "show")
        self.assert_suggests("Link", "decode", "[link]")
        self.assert_suggests("Video", "load", "Resource", "--withHref", "x", "--as", "video", *BASE)

    def test_a_name_that_is_close_to_none_gets_no_suggestion(self):
        for words in [["sing"], ["decode", "Nothing"], ["load", "Sing", *BASE], ["load", "Time", *BASE, "--zzz"]]:
            self.assertNotIn("did you mean", vantic(*words).err)


class Enumerations(TestCase):
    def test_all_allowed_values_are_listed(self):
        self.assert_usage_error(vantic("request", "Navigation", *BASE, "--type", "x"), "channels or categories, not x")
        self.assert_usage_error(vantic("request", "Livestreams", *BASE, "--region", "x"),
                                "act, sa, nsw, vic, wa, nt, qld or tas, not x")
        self.assert_usage_error(vantic("request", "Messages", *BASE, "--appId", "x"), "lumeno, kids, lumeno int or me")

    def test_a_misspelt_value_gets_a_suggestion(self):
        self.assert_usage_error(vantic("request", "Navigation", *BASE, "--type", "Channels"), "did you mean channels?")


if __name__ == "__main__":
    unittest.main()
