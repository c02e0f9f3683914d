import os
import pathlib
import shutil
import subprocess
import unittest

from program import SECONDS, TestCase, VANTIC, vantic

SCRIPTS = pathlib.Path(os.environ["VRK_COMPLETION"])


def candidates(*words):
    """The candidates for the last word."""
    return [line.split("\t")[0] for line in vantic("complete", "--", *words).out.splitlines()]


class Candidates(TestCase):
    def test_are_commands_for_the_first_word(self):
        self.assertEqual(candidates("lo"), ["load"])
        self.assertEqual(set(candidates("")), {"types", "decode", "explain", "request", "load", "user", "help", "manual",
                                               "--help", "--version"})

    def test_are_operations_after_their_commands(self):
        self.assertEqual(candidates("load", "Vid"), ["Video", "Videos"])
        self.assertEqual(candidates("user", "delete"), ["deleteSubprofile", "deleteHistory", "deleteShow"])
        self.assertIn("viewingHistory", candidates("request", ""))
        self.assertNotIn("viewingHistory", candidates("load", ""))
        self.assertEqual(candidates("help", "lo"), ["load"])
        self.assertEqual(candidates("help", "Vid"), ["Video", "Videos"])
        self.assertEqual(candidates("manual", "l"), ["load"])

    def test_are_types_and_then_files_for_documents(self):
        self.assertEqual(candidates("decode", "Shows"), ["ShowsGrouped", "ShowsIndex"])
        self.assertEqual(candidates("decode", "--lines", "[Shows"), ["[ShowsGrouped]", "[ShowsIndex]"])
        self.assertEqual(candidates("decode", "Show", ""), [":files"])
        self.assertEqual(candidates("explain", "Show", "x"), [":files"])

    def test_are_options_that_are_not_given_yet(self):
        self.assertEqual(candidates("load", "Livestreams", "--re"), ["--region", "--revalidate"])
        self.assertEqual(candidates("load", "Livestreams", "--region", "nsw", "--re"), ["--revalidate"])
        self.assertEqual(candidates("request", "Videos", "--houseNumbers", "a", "--house"), ["--houseNumbers"])
        self.assertIn("--base-url", candidates("load", "Time", ""))
        self.assertEqual(candidates("decode", "--l"), ["--lines"])
        self.assertIn("--token", candidates("request", "deleteShow", "--t"))
        self.assertNotIn("--token", candidates("user", "deleteShow", "--t"))

    def test_are_the_values_of_an_option(self):
        self.assertEqual(candidates("load", "Navigation", "--type", ""), ["channels", "categories"])
        self.assertEqual(candidates("load", "Resource", "--as", "Shows"), ["ShowsGrouped", "ShowsIndex"])
        self.assertEqual(candidates("load", "Time", "--ca", ""), [":files"])
        self.assertEqual(candidates("load", "Time", "--timeout", ""), [])

    def test_come_with_an_explanation(self):
        self.assertIn("load\tsends the request and prints the value\n", vantic("complete", "--", "lo").out)

    def test_are_none_after_something_unknown(self):
        self.assertEqual(candidates("sing", ""), [])
        self.assertEqual(vantic("complete").out, "")
        self.assertEqual(vantic("complete", "--").out, "")


class Shells(TestCase):
    """The completion scripts, in the installed shells."""

    def run_in(self, shell, *words):
        if not shutil.which(shell):
            self.skipTest(f"{shell} is not installed")
        path = f"{pathlib.Path(VANTIC).parent}:{os.environ['PATH']}"
        finished = subprocess.run([shell, *words], capture_output=True, timeout=SECONDS, text=True, stdin=subprocess.DEVNULL,
                                  env={**os.environ, "PATH": path}, check=False)
        self.assertEqual((finished.returncode, finished.stderr), (0, ""))
        return finished.stdout.splitlines()

    def in_bash(self, *words):
        typed = " ".join(f"'{word}'" for word in words)
        return self.run_in("bash", "--norc", "-c", f"compopt() {{ echo \"compopt $*\"; }}; . {SCRIPTS}/vantic.bash; "
                           f"COMP_WORDS=({typed}); COMP_CWORD={len(words) - 1}; _vantic; "
                           'for word in "${COMPREPLY[@]}"; do echo "$word"; done')

    def test_bash_offers_the_candidates(self):
        self.assertEqual(self.in_bash("vantic", "load", "Vid"), ["Video", "Videos"])
        self.assertEqual(self.in_bash("vantic", "load", "Messages", "--appId", "lumeno"), ["lumeno", "lumeno\\ int"])

    def test_bash_completes_files(self):
        self.assertEqual(self.in_bash("vantic", "decode", "Show", ""), ["compopt -o default"])

    def test_fish_offers_the_candidates(self):
        lines = self.run_in("fish", "--no-config", "-c", f"source {SCRIPTS}/vantic.fish; complete -C 'vantic load Vid'")
        self.assertEqual([line.split("\t")[0] for line in lines], ["Video", "Videos"])

    def test_zsh_offers_the_candidates(self):
        lines = self.run_in("zsh", "-f", "-c", "_call_program() { shift; eval $* }; _files() { echo files }; "
                            "_describe() { print -rl -- $described }; words=(vantic load Vid); CURRENT=3; "
                            f"complete() {{ . {SCRIPTS}/_vantic }}; complete; words=(vantic decode Show ''); CURRENT=4; complete")
        self.assertEqual(lines, ["Video:a video by its house number", "Videos:several videos by their house numbers", "files"])


if __name__ == "__main__":
    unittest.main()
