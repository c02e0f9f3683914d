import re
import shutil
import subprocess
import unittest

from program import SECONDS, TestCase, vantic

COMMANDS = ["types", "decode", "explain", "request", "load", "user", "help", "manual"]


class Manual(TestCase):
    def page(self, *words):
        outcome = vantic("manual", *words)
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        return outcome.out

    def shown(self, *words):
        """The page as displayed to a reader. Warnings fail the test."""
        if not shutil.which("groff"):
            self.skipTest("groff is not installed")
        finished = subprocess.run(["groff", "-man", "-Tascii", "-P-c", "-ww"], input=self.page(*words), text=True,
                                  capture_output=True, timeout=SECONDS, check=True)
        self.assertEqual(finished.stderr, "")
        return re.sub(".\x08", "", finished.stdout)  # removes the overstrikes of bold letters

    def test_of_the_program_names_every_command(self):
        text = self.shown()
        for part in ["vantic - decodes documents", "EXIT STATUS", "VANTIC_BASE_URL", "--base-url URL"]:
            self.assertIn(part, text)
        for command in COMMANDS:
            self.assertIn(f"vantic-{command}(1)", text)

    def test_of_a_command_contains_its_help(self):
        for command in COMMANDS:
            with self.subTest(command):
                text = self.shown(command)
                self.assertIn(f"vantic-{command} - ", text)
                for line in vantic("help", command).out.splitlines():
                    if line.startswith("  "):
                        self.assertIn(line.split()[0], text)

    def test_writes_dashes_that_can_be_copied(self):
        self.assertIn("\\-\\-base\\-url", self.page("load"))

    def test_of_an_unknown_command_is_wrong_usage(self):
        self.assert_usage_error(vantic("manual", "Show"), "Show")


if __name__ == "__main__":
    unittest.main()
