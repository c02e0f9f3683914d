import json
import unittest
import urllib.request

from program import SampleService, TestCase, vantic


class Raw(TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = SampleService().__enter__()
        cls.addClassCleanup(cls.service.stop)

    def load(self, *words):
        return vantic("load", *words, "--base-url", self.service.url)

    def test_prints_the_body_unchanged(self):
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        with opener.open(self.service.url + "/v2/video/HL0101", timeout=60) as answer:
            body = answer.read()
        outcome = self.load("Video", "--houseNumber", "HL0101", "--raw")
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        self.assertEqual(outcome.bytes, body)

    def test_prints_a_body_that_does_not_decode(self):
        self.service.fault("/v2/video/HL0101", "malformed")
        outcome = self.load("Video", "--houseNumber", "HL0101", "--raw")
        self.assertEqual((outcome.code, outcome.err), (0, ""))
        with self.assertRaises(ValueError):
            json.loads(outcome.out)

    def test_needs_no_type_for_a_resource(self):
        self.assertIn("HL0101", self.load("Resource", "--withHref", "video/HL0101", "--raw").out)

    def test_fails_like_a_load(self):
        self.assert_failed(self.load("Video", "--houseNumber", "NONE", "--raw"), "error 404")

    def test_needs_a_valid_url(self):
        self.assert_usage_error(vantic("request", "Time", "--raw", "--base-url", self.service.url), "--raw")


class Quiet(Raw):
    def test_prints_no_value_and_no_body(self):
        for more in [[], ["--raw"]]:
            outcome = self.load("Video", "--houseNumber", "HL0101", "--quiet", *more)
            self.assertEqual((outcome.code, outcome.out, outcome.err), (0, "", ""))

    def test_keeps_errors(self):
        self.assert_failed(self.load("Video", "--houseNumber", "NONE", "--quiet"), "error 404")

    def test_prints_no_value_of_a_user_operation(self):
        words = ["viewingHistory", "--limit", "1", "--uid", "somebody", "--base-url", self.service.url]
        loud, quiet = vantic("user", *words), vantic("user", *words, "--quiet")
        self.assertEqual((loud.code, quiet.code, quiet.out), (0, 0, ""))
        self.assertTrue(loud.out)


if __name__ == "__main__":
    unittest.main()
