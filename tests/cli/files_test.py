import json
import unittest

from program import TestCase, vantic


class StandardInput(TestCase):
    def test_is_read_for_a_dash(self):
        self.assertEqual(vantic("decode", "Time", "-", stdin="1.5").out, "1.5\n")
        self.assertEqual(vantic("decode", "--lines", "Time", "-", stdin="1\n2").out, '{"ok":1}\n{"ok":2}\n')
        self.assertEqual(vantic("explain", "Time", "-", stdin="1").json, {"faults": []})


class AllFiles(TestCase):
    def test_are_decoded_to_one_line_each(self):
        first, second = self.file_of(b'{\n"href":"a"}'), self.file_of(b'{"href":"b","id":"2"}')
        outcome = vantic("decode", "--all", "Link", first, second)
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        answers = [json.loads(line) for line in outcome.out.splitlines()]
        self.assertEqual([answer["file"] for answer in answers], [first, second])
        self.assertEqual([answer["ok"]["href"] for answer in answers], ["a", "b"])

    def test_are_all_decoded_and_one_failure_fails_the_command(self):
        good, bad, broken = self.file_of(b'{"href":"a"}'), self.file_of(b"{}"), self.file_of(b'{"href"')
        outcome = vantic("decode", "--all", "Link", bad, broken, "/nowhere/at/all", good)
        self.assertEqual(outcome.code, 1)
        self.assert_one_line(outcome.err)
        self.assertIn("/nowhere/at/all", outcome.err)
        answers = [json.loads(line) for line in outcome.out.splitlines()]
        self.assertEqual([answer["file"] for answer in answers], [bad, broken, good])
        self.assertEqual(answers[0]["error"]["kind"], "keyNotFound")
        self.assertIn("line 1, column 8", answers[1]["error"]["message"])
        self.assertEqual(answers[2]["ok"]["href"], "a")

    def test_include_standard_input_as_a_dash(self):
        outcome = vantic("decode", "--all", "Time", "-", stdin="7")
        self.assertEqual((outcome.code, outcome.out), (0, '{"file":"-","ok":7}\n'))

    def test_need_at_least_one_file(self):
        self.assert_usage_error(vantic("decode", "--all", "Link"), "--all")
        self.assert_usage_error(vantic("decode", "--all", "--lines", "Link", "x"), "--lines")

    def test_are_required_for_several_names(self):
        self.assert_usage_error(vantic("decode", "Link", "a", "b"), "--all")


class Quiet(TestCase):
    def test_prints_no_value(self):
        outcome = vantic("decode", "--quiet", "Link", stdin='{"href":"a"}')
        self.assertEqual((outcome.code, outcome.out, outcome.err), (0, "", ""))

    def test_keeps_errors_and_the_exit_code(self):
        self.assert_failed(vantic("decode", "--quiet", "Link", stdin="{}"), "keyNotFound")

    def test_prints_only_the_failing_files(self):
        good, bad = self.file_of(b'{"href":"a"}'), self.file_of(b"{}")
        outcome = vantic("decode", "--all", "--quiet", "Link", good, bad)
        self.assertEqual(outcome.code, 1)
        self.assertEqual([json.loads(line)["file"] for line in outcome.out.splitlines()], [bad])

    def test_cannot_be_combined_with_lines(self):
        self.assert_usage_error(vantic("decode", "--quiet", "--lines", "Link"), "--quiet")


if __name__ == "__main__":
    unittest.main()
