"""Runs the command line tool and the sample service for tests."""

import json
import os
import subprocess
import tempfile
import unittest
import urllib.request

VANTIC = os.environ["VRK_VANTIC"]
SECONDS = 60
# A developer may have set this variable.
ENVIRONMENT = {name: value for name, value in os.environ.items() if name != "VANTIC_BASE_URL"}


class Outcome:
    def __init__(self, finished):
        self.code = finished.returncode
        self.bytes = finished.stdout
        self.out = finished.stdout.decode("utf-8")
        self.err = finished.stderr.decode("utf-8")

    @property
    def json(self):
        return json.loads(self.out)


def vantic(*words, stdin=b"", **environment):
    """Runs the program to its end. Words and input can be text or bytes."""
    return Outcome(subprocess.run(
        [VANTIC, *words],
        input=stdin.encode() if isinstance(stdin, str) else stdin,
        capture_output=True,
        timeout=SECONDS,
        env={**ENVIRONMENT, **environment},
    ))


def vantic_without(descriptors, *words):
    """Runs the program to its end with these descriptors (of 0, 1 and 2) closed."""
    closing = " ".join(f"{descriptor}>&-" for descriptor in descriptors)
    return Outcome(subprocess.run(
        ["/bin/sh", "-c", f'exec "$@" {closing}', "sh", VANTIC, *words],
        input=b"",
        capture_output=True,
        timeout=SECONDS,
    ))


class TestCase(unittest.TestCase):
    maxDiff = None

    def assert_usage_error(self, outcome, text=""):
        """Expects exit code 2, no output, and one line of error output with `text`."""
        self.assertEqual((outcome.code, outcome.out), (2, ""))
        self.assert_one_line(outcome.err)
        self.assertIn(text, outcome.err)

    def assert_failed(self, outcome, text=""):
        """Expects exit code 1, no output, and one line of error output with `text`."""
        self.assertEqual((outcome.code, outcome.out), (1, ""))
        self.assert_one_line(outcome.err)
        self.assertIn(text, outcome.err)

    def assert_one_line(self, text):
        self.assertEqual(text.count("\n"), 1, text)
        self.assertTrue(text.endswith("\n") and len(text) > 1, text)

    def file_of(self, content):
        """The name of a file with this content, which is removed after the test."""
        file = tempfile.NamedTemporaryFile()
        self.addCleanup(file.close)
        file.write(content)
        file.flush()
        return file.name


class SampleService:
    """The sample service on a free port, for a `with` block."""

    def __init__(self, *options):
        self.options = options

    def __enter__(self):
        self.process = subprocess.Popen(
            [os.environ["VRK_SAMPLE_SERVICE"], "--port", "0", "--end-with-parent", *self.options],
            stdout=subprocess.PIPE,
        )
        self.url = self.process.stdout.readline().decode().strip()
        return self

    def __exit__(self, *_):
        self.stop()

    def stop(self):
        self.process.terminate()
        self.process.wait(SECONDS)
        self.process.stdout.close()

    def control(self, method, path, body=None):
        request = urllib.request.Request(
            f"{self.url}/_control/{path}", method=method, data=None if body is None else json.dumps(body).encode()
        )
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        with opener.open(request, timeout=SECONDS) as answer:
            return json.load(answer)

    def fault(self, path, fault, **more):
        """Scripts a fault for the next request of this path."""
        self.control("POST", "faults", {"path": path, "fault": fault, **more})
