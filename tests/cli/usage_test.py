import subprocess
import unittest

from program import SECONDS, TestCase, VANTIC, vantic

BASE = ["--base-url", "http://h"]


class WrongUsage(TestCase):
    def test_no_command_or_an_unknown_one(self):
        self.assert_usage_error(vantic())
        self.assert_usage_error(vantic("sing"), "sing")
        self.assert_usage_error(vantic(""))
        self.assert_usage_error(vantic("Decode", "Time"), "Decode")

    def test_arguments_that_a_command_does_not_take(self):
        for words in [["types", "Link"], ["types", "--all"], ["decode", "Time", "a", "b"], ["explain", "Time", "a", "b"],
                      ["explain", "--lines", "Time"], ["decode", "-l", "Time"], ["decode", "--indent", "Time"],
                      ["request", "Time", "Time", *BASE], ["request", "Time", *BASE, "--keyword", "a"],
                      ["load", "Avatars", *BASE, "x"]]:
            with self.subTest(words):
                self.assert_usage_error(vantic(*words))

    def test_an_unknown_type(self):
        for name in ["Nothing", "link", "", "[Nothing]", "[Link", "Link]", "[[Link]]", "[]"]:
            with self.subTest(name):
                self.assert_usage_error(vantic("decode", name, stdin="{}"), name)
                self.assert_usage_error(vantic("explain", name, stdin="{}"), name)

    def test_no_type(self):
        self.assert_usage_error(vantic("decode"))
        self.assert_usage_error(vantic("decode", "--lines"))
        self.assert_usage_error(vantic("explain"))

    def test_no_operation_or_an_unknown_one(self):
        for command in ["request", "load"]:
            self.assert_usage_error(vantic(command))
            self.assert_usage_error(vantic(command, *BASE))
            self.assert_usage_error(vantic(command, "Sing", *BASE), "Sing")
            self.assert_usage_error(vantic(command, "time", *BASE), "time")

    def test_a_missing_option(self):
        for command in ["request", "load"]:
            self.assert_usage_error(vantic(command, "Time"), "--base-url")
            self.assert_usage_error(vantic(command, "Resource", *BASE), "--withHref")
            self.assert_usage_error(vantic(command, "Video", *BASE), "--houseNumber or --usingHref")
            self.assert_usage_error(vantic(command, "Show", *BASE, "--channel", "c"), "--showSlugOrId")
            self.assert_usage_error(vantic(command, "Messages", *BASE, "--loggedIn"), "--appId")
        self.assert_usage_error(vantic("load", "Resource", "--withHref", "x", *BASE), "--as")

    def test_an_unknown_type_to_load(self):
        self.assert_usage_error(vantic("load", "Resource", "--withHref", "x", "--as", "Nothing", *BASE), "Nothing")

    def test_a_missing_value(self):
        self.assert_usage_error(vantic("request", "Video", *BASE, "--houseNumber"), "--houseNumber")
        self.assert_usage_error(vantic("request", "Video", "--houseNumber", *BASE), "--houseNumber")
        self.assert_usage_error(vantic("request", "Time", "--base-url"), "--base-url")

    def test_a_doubled_option(self):
        self.assert_usage_error(vantic("request", "Time", *BASE, *BASE), "--base-url")
        self.assert_usage_error(vantic("request", "Time", *BASE, "--timeout", "1", "--timeout=1"), "--timeout")
        self.assert_usage_error(vantic("request", "Video", *BASE, "--houseNumber=", "--houseNumber="), "--houseNumber")
        self.assert_usage_error(vantic("request", "Time", *BASE, "--verbose", "--verbose"), "--verbose")
        self.assert_usage_error(vantic("decode", "--lines", "Time", "--lines"), "--lines")

    def test_options_that_exclude_each_other(self):
        self.assert_usage_error(vantic("request", "Video", *BASE, "--houseNumber", "a", "--usingHref", "b"), "Video")
        self.assert_usage_error(vantic("request", "Show", *BASE, "--usingHref", "a", "--embedSeries"), "Show")

    def test_an_invalid_base_url(self):
        for text in ["", "http://[", "http://a b/", "http://h:x/"]:
            with self.subTest(text):
                self.assert_usage_error(vantic("request", "Time", "--base-url", text), "--base-url")

    def test_invalid_numbers_and_booleans(self):
        for text in ["", "soon", "1s", "0x10", "nan", "inf", "1e999", " 1", "1,5"]:
            with self.subTest(text):
                self.assert_usage_error(vantic("request", "Time", *BASE, "--timeout", text), "--timeout")
        self.assert_usage_error(vantic("request", "Time", *BASE, "--verbose=yes"), "--verbose")

        for text in ["", "-1", "1.5", "x", "18446744073709551616"]:
            with self.subTest(text):
                self.assert_usage_error(
                    vantic("request", "Show", *BASE, "--showSlugOrId", "x", "--selectedSeries", text), "--selectedSeries"
                )

    def test_unknown_enumeration_values(self):
        for words in [["Navigation", "--type", "Channels"], ["Navigation", "--type", ""], ["Livestreams", "--region", "NSW"],
                      ["Messages", "--appId", "kidslumeno"]]:
            with self.subTest(words):
                self.assert_usage_error(vantic("request", *words, *BASE), words[1])

    def test_invalid_contents(self):
        for text in ["", "lumeno", "lumeno:/program/1", "lumeno://program", "other://program/1", "lumeno://other/1"]:
            with self.subTest(text):
                self.assert_usage_error(
                    vantic("request", "RecsModule", *BASE, "--withModuleId", "m", "--limit", "1", "--httpMethod", "POST",
                           "--apiKey", "k", "--include", text),
                    "--include",
                )

    def test_invalid_headers(self):
        for text in ["", "Name", ": value"]:
            with self.subTest(text):
                self.assert_usage_error(vantic("request", "Time", *BASE, "--header", text), "--header")

    def test_is_reported_in_one_line_for_any_input(self):
        self.assert_usage_error(vantic("si\nng\r\n"))


class Program(TestCase):
    def test_lists_its_commands_and_operations(self):
        outcome = vantic("--help")
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        for name in ["types", "decode", "explain", "request", "load", "Video --houseNumber", "Videos", "--base-url"]:
            self.assertIn(name, outcome.out)

    def test_fails_if_its_output_cannot_be_written(self):
        with open("/dev/full", "wb") as full:
            finished = subprocess.run([VANTIC, "types"], stdout=full, stderr=subprocess.PIPE, timeout=SECONDS)
        self.assertEqual(finished.returncode, 1)
        self.assert_one_line(finished.stderr.decode())


if __name__ == "__main__":
    unittest.main()
