import os
import tempfile
import unittest

from program import SampleService, TestCase, vantic

HAS_DISK = os.environ.get("VRK_HAS_DISK_CACHE", "ON") == "ON"


class Cache(TestCase):
    @classmethod
    def setUpClass(cls):
        cls.service = SampleService().__enter__()
        cls.addClassCleanup(cls.service.stop)

    def setUp(self):
        self.service.control("DELETE", "log")

    def load(self, *words):
        outcome = vantic("load", "Home", "--base-url", self.service.url, *words)
        self.assertEqual(outcome.code, 0, outcome.err)
        return outcome

    @unittest.skipUnless(HAS_DISK, "built without SQLite")
    def test_answers_later_runs_and_revalidates_on_request(self):
        with tempfile.TemporaryDirectory() as folder:
            place = os.path.join(folder, "cache")
            first = self.load("--cache", place, "--trace")
            second = self.load("--cache", place, "--trace")
            third = self.load("--cache", place, "--trace", "--revalidate")
        self.assertIn(": 200 from network, ", first.err)
        self.assertIn("VanticRestKit; fwd=uri-miss; fwd-status=200; stored", first.err)
        self.assertIn(": 200 from cache, ", second.err)
        self.assertIn(": 200 from revalidated, ", third.err)
        self.assertIn("VanticRestKit; fwd=request; fwd-status=304; stored", third.err)
        self.assertEqual(first.out, second.out)
        self.assertEqual(first.out, third.out)

    def test_shows_cache_and_cookie_headers_in_the_trace_of_the_home_screen(self):
        traced = self.load("--trace").err
        for field in ["Cache-Control: private, max-age=60", "ETag: ", "Vary: ", "Set-Cookie: visitor="]:
            self.assertIn("\ntrace: " + field, traced)

    @unittest.skipIf(HAS_DISK, "built with SQLite")
    def test_loads_and_reports_a_build_without_the_disk_cache(self):
        with tempfile.TemporaryDirectory() as folder:
            loaded = self.load("--cache", os.path.join(folder, "cache"), "--trace")
            self.assertEqual(os.listdir(folder), [])
        self.assertIn(": 200 from network, ", loaded.err)
        self.assertIn("cache: This build of VanticRestKit cannot keep a cache on disk.", loaded.err)

    @unittest.skipUnless(HAS_DISK, "built without SQLite")
    def test_stores_other_responses_of_the_catalogue(self):
        with tempfile.TemporaryDirectory() as folder:
            words = ["load", "Show", "--showSlugOrId", "harbour-lights", "--base-url", self.service.url,
                     "--cache", os.path.join(folder, "cache"), "--trace"]
            sources = [vantic(*words).err, vantic(*words).err, vantic(*words, "--revalidate").err]
        for source, trace in zip(["network", "cache", "revalidated"], sources):
            self.assertIn(": 200 from " + source + ", ", trace)

    def test_traces_headers_without_a_cache_folder(self):
        traced = self.load("--trace")
        self.assertIn("\ntrace: Content-Type: application/json\n", traced.err)
        self.assertEqual(self.load().err, "")


if __name__ == "__main__":
    unittest.main()
