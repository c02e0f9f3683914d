import unittest

from program import TestCase, vantic

COMMANDS = ["types", "decode", "explain", "request", "load", "user", "help", "manual"]


class Help(TestCase):
    def text(self, *words):
        outcome = vantic(*words)
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        self.assertTrue(outcome.out)
        self.assertLessEqual(max(map(len, outcome.out.splitlines())), 120)
        return outcome.out

    def test_of_the_program_names_every_command(self):
        text = self.text("--help")
        for command in COMMANDS:
            self.assertIn(f"  vantic {command} ", text)
        for words in [["-h"], ["help"]]:
            self.assertIn("vantic types", self.text(*words))
        self.assertEqual(self.text("-h"), text)
        self.assertEqual(self.text("help"), text)

    def test_of_a_command_is_the_same_in_every_form(self):
        for command in COMMANDS:
            with self.subTest(command):
                text = self.text("help", command)
                self.assertTrue(text.startswith(f"vantic {command}"), text)
                self.assertEqual(self.text(command, "--help"), text)
                self.assertEqual(self.text(command, "-h"), text)

    def test_of_a_command_needs_none_of_its_arguments(self):
        self.assertIn("--lines", self.text("decode", "--lines", "Show", "--help"))
        self.assertIn("vantic explain", self.text("explain", "Show", "-h"))

    def test_of_an_operation_lists_its_forms_and_options(self):
        text = self.text("help", "Show")
        for part in ["vantic load Show --showSlugOrId SLUG [--selectedSeries N]", "vantic load Show --usingHref HREF",
                     "  --selectedSeries N", "  --base-url URL", "  --raw"]:
            self.assertIn(part, text)
        self.assertEqual(self.text("load", "Show", "--help"), text)
        self.assertEqual(self.text("load", "Show", "--embedSeries", "-h"), text)

    def test_of_an_operation_is_for_the_given_command(self):
        self.assertIn("vantic request Show", self.text("request", "Show", "--help"))
        self.assertNotIn("--raw", self.text("request", "Show", "--help"))
        self.assertIn("--token", self.text("request", "viewingHistory", "--help"))
        self.assertNotIn("--token", self.text("user", "viewingHistory", "--help"))
        self.assertIn("--uid", self.text("help", "viewingHistory"))

    def test_names_the_values_of_an_enumeration(self):
        self.assertIn("act, sa, nsw, vic, wa, nt, qld or tas", self.text("help", "Livestreams"))
        self.assertIn("true or false", self.text("help", "listVideosForShow"))

    def test_explains_every_operation_and_option(self):
        overview = self.text("help")
        start = overview.index("\nOperations:")
        operations = {line.split()[0] for line in overview[start:].splitlines()
                      if line.startswith("  ") and line[2] != " "}
        self.assertGreater(len(operations), 35)
        for operation in operations:
            for line in self.text("help", operation).splitlines():
                if line.startswith("  --"):
                    self.assertRegex(line, r"^  --[\w-]+( \S+|( '.*'))?  +\S", operation)

    def test_is_a_value_after_an_option_that_needs_one(self):
        outcome = vantic("request", "Search", "--base-url", "http://h", "--keyword", "-h")
        self.assertIn("keyword=-h", outcome.json["url"])
        outcome = vantic("request", "Search", "--base-url", "http://h", "--keyword=--help")
        self.assertIn("keyword=--help", outcome.json["url"])

    def test_about_an_unknown_name_is_wrong_usage(self):
        self.assert_usage_error(vantic("help", "Shwo"), "did you mean Show?")
        self.assert_usage_error(vantic("help", "laod"), "did you mean load?")
        self.assert_usage_error(vantic("load", "Sing", "--help"), "Sing")
        self.assert_usage_error(vantic("help", "load", "Show"), "Show")


class Version(TestCase):
    def test_is_one_line(self):
        outcome = vantic("--version")
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        self.assertRegex(outcome.out, r"^vantic \d+\.\d+\.\d+\n$")
        self.assert_usage_error(vantic("--version", "x"), "x")


class BaseURLVariable(TestCase):
    def test_replaces_the_option(self):
        outcome = vantic("request", "Time", VANTIC_BASE_URL="http://variable/a")
        self.assertEqual((outcome.code, outcome.json["url"]), (0, "http://variable/a/v2/time"))
        outcome = vantic("request", "viewingHistory", "--limit", "1", "--uid", "u", "--token", "t", VANTIC_BASE_URL="http://v")
        self.assertTrue(outcome.json["url"].startswith("http://v/"))

    def test_is_overridden_by_the_option(self):
        outcome = vantic("request", "Time", "--base-url", "http://option", VANTIC_BASE_URL="http://variable")
        self.assertEqual(outcome.json["url"], "http://option/v2/time")
        self.assert_usage_error(vantic("request", "Time", "--base-url", "", VANTIC_BASE_URL="http://v"), "--base-url")

    def test_counts_as_unset_if_empty(self):
        self.assert_usage_error(vantic("request", "Time", VANTIC_BASE_URL=""), "--base-url is missing")

    def test_that_is_not_a_url_is_wrong_usage(self):
        self.assert_usage_error(vantic("request", "Time", VANTIC_BASE_URL="http://["), "VANTIC_BASE_URL is no URL")


if __name__ == "__main__":
    unittest.main()
