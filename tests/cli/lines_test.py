import json
import subprocess
import time
import unittest

from program import SECONDS, TestCase, VANTIC, vantic


class DecodeLines(TestCase):
    def answers(self, name, documents):
        outcome = vantic("decode", name, "--lines", stdin=documents)
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        return [json.loads(line) for line in outcome.out.split("\n")[:-1]]

    def kinds(self, name, documents):
        return [answer["error"]["kind"] if "error" in answer else answer["ok"] for answer in self.answers(name, documents)]

    def test_answers_each_line_with_one_line(self):
        outcome = vantic("decode", "Link", "--lines", stdin='{"href":"a\\nb"}\n{}\n')
        self.assertEqual(outcome.code, 0)
        first, second, rest = outcome.out.split("\n")
        self.assertEqual(first, '{"ok":{"id":null,"title":null,"href":"a\\nb","tags":[]}}')
        self.assertTrue(second.startswith('{"error":{"kind":"keyNotFound","path":["href"],"message":"'))
        self.assertEqual(rest, "")

    def test_succeeds_even_if_every_document_fails(self):
        self.assertEqual(self.kinds("Time", "x\ny\n"), ["dataCorrupted", "dataCorrupted"])

    def test_treats_an_empty_line_as_an_empty_document(self):
        self.assertEqual(self.kinds("Time", "\n1\n\n"), ["dataCorrupted", 1, "dataCorrupted"])

    def test_accepts_a_last_line_without_a_line_feed(self):
        self.assertEqual(self.kinds("Time", "1\n2"), [1, 2])

    def test_prints_nothing_for_empty_input(self):
        self.assertEqual(self.answers("Time", ""), [])

    def test_removes_only_the_line_feed_from_a_line(self):
        # A carriage return is white space around a value, but invalid inside a string.
        self.assertEqual(self.kinds("Time", "1\r\n"), [1])
        self.assertEqual(self.kinds("Link", b'{"href":"a\r"}\n'), ["dataCorrupted"])
        self.assertEqual(self.kinds("Time", b"1\0\n"), ["dataCorrupted"])

    def test_accepts_lines_that_are_not_utf8(self):
        documents = b'{"href":"a","title":"\xff"}\n\xff\xfe\n{"href":"\xc3"}\n{"href":"\xc3\xa9"}\n'
        answers = self.answers("Link", documents)
        self.assertEqual(answers[0]["ok"]["title"], None)
        self.assertEqual(answers[1]["error"]["path"], [])
        self.assertEqual(answers[2]["error"]["path"], ["href"])
        self.assertEqual(answers[3]["ok"]["href"], "é")

    def test_accepts_lists_and_files(self):
        outcome = vantic("decode", "--lines", "[Time]", self.file_of(b"[1]\n[2,3]"))
        self.assertEqual(outcome.out, '{"ok":[1]}\n{"ok":[2,3]}\n')

    def test_accepts_lines_longer_than_one_block(self):
        long = json.dumps({"href": "x" * 700_000})
        answers = self.answers("Link", "\n".join([long, '{"href":"a"}', long]))
        self.assertEqual([len(answer["ok"]["href"]) for answer in answers], [700_000, 1, 700_000])

    def test_answers_a_line_before_the_next_one_arrives(self):
        with subprocess.Popen([VANTIC, "decode", "--lines", "Time"], stdin=subprocess.PIPE,
                              stdout=subprocess.PIPE) as process:
            for number in range(3):
                process.stdin.write(b"%d\n" % number)
                process.stdin.flush()
                self.assertEqual(process.stdout.readline(), b'{"ok":%d}\n' % number)
            process.stdin.close()
            self.assertEqual(process.wait(SECONDS), 0)

    def test_reads_a_hundred_thousand_documents_in_seconds(self):
        document = json.dumps({
            "_entity": "video", "id": "v1", "title": "A title of usual length", "pubDate": "2020-01-02 03:04:05",
            "duration": 120, "captions": True, "description": "d" * 300, "tags": ["a", "b"],
            "_links": {"self": {"href": "video/1"}, "show": {"id": 3, "href": "show/x"}},
        }).encode()
        file = self.file_of((document + b"\n") * 100_000)
        began = time.monotonic()
        outcome = vantic("decode", "--lines", "Video", file)
        seconds = time.monotonic() - began
        self.assertEqual(outcome.bytes.count(b"\n"), 100_000)
        self.assertTrue(outcome.bytes.endswith(b"}}\n"))
        # It takes two seconds. The margin is for busy machines and sanitizers.
        self.assertLess(seconds, 120)


if __name__ == "__main__":
    unittest.main()
