import contextlib
import socket
import threading
import unittest

from program import SECONDS, SampleService, TestCase, vantic, vantic_without


class ClosedOutput(TestCase):
    """A closed output is reported, even if the program opens its own sockets."""

    def assert_lost(self, outcome):
        self.assert_failed(outcome, "standard output")

    def test_fails_a_load(self):
        with SampleService() as service:
            for what in ["Time", "Home"]:
                words = ["load", what, "--base-url", service.url]
                self.assertEqual(vantic(*words).code, 0)
                self.assert_lost(vantic_without([1], *words))
                self.assert_lost(vantic_without([0, 1], *words))

    def test_fails_a_user_operation_that_prints_a_value(self):
        with SampleService() as service:
            words = ["user", "listWatchlistShowIds", "--uid", "ann", "--base-url", service.url]
            self.assertEqual(vantic(*words).out, "[]\n")
            self.assert_lost(vantic_without([1], *words))
            self.assert_lost(vantic_without([0, 1], *words))

    def test_does_not_fail_an_operation_that_prints_nothing(self):
        with SampleService() as service:
            outcome = vantic_without([1], "user", "deleteHistory", "--uid", "ann", "--base-url", service.url)
            self.assertEqual((outcome.code, outcome.err), (0, ""))

    def test_fails_commands_that_send_nothing(self):
        self.assert_lost(vantic_without([1], "types"))
        self.assert_lost(vantic_without([1], "decode", "Time", self.file_of(b"1")))


class ClosedErrorOutput(TestCase):
    def test_does_not_receive_the_line_of_a_failing_load_elsewhere(self):
        for closed in [[2], [1, 2], [0, 1, 2]]:
            with self.subTest(closed), FailingService() as service:
                outcome = vantic_without(closed, "load", "Time", "--base-url", service.url)
                self.assertEqual((outcome.code, outcome.out, outcome.err), (1, "", ""))
                self.assert_one_request(service)

    def test_does_not_receive_the_line_of_a_failing_user_operation_elsewhere(self):
        with FailingService() as service:
            outcome = vantic_without([2], "user", "listWatchlistShowIds", "--uid", "ann", "--base-url", service.url)
            self.assertEqual((outcome.code, outcome.out, outcome.err), (1, "", ""))
            self.assert_one_request(service)

    def assert_one_request(self, service):
        """Expects one GET request without a body, and no other bytes, on one connection."""
        received = service.received()
        self.assertTrue(received.startswith(b"GET /v2/"), received)
        self.assertEqual(received.find(b"\r\n\r\n"), len(received) - 4, received)
        service.listening.setblocking(False)
        self.assertRaises(BlockingIOError, service.listening.accept)


class ClosedInput(TestCase):
    def test_contains_no_document_and_does_not_affect_files(self):
        self.assertEqual(vantic_without([0], "decode", "Time").code, 1)
        self.assertEqual(vantic_without([0], "decode", "Time", self.file_of(b"1")).out, "1\n")


class FailingService:
    """Answers one request with 500 and records everything received on its connection, for a `with` block."""

    def __enter__(self):
        self.listening = socket.create_server(("127.0.0.1", 0))
        self.listening.settimeout(SECONDS)
        self.url = "http://127.0.0.1:%d" % self.listening.getsockname()[1]
        self.bytes = b""
        self.serving = threading.Thread(target=self.serve)
        self.serving.start()
        return self

    def __exit__(self, *_):
        self.serving.join(2 * SECONDS)
        self.listening.close()

    def serve(self):
        connection, _ = self.listening.accept()
        connection.settimeout(SECONDS)
        with connection, contextlib.suppress(ConnectionResetError):
            answered = False
            while some := connection.recv(65536):
                self.bytes += some
                if not answered and b"\r\n\r\n" in self.bytes:
                    connection.sendall(b"HTTP/1.1 500 Broken\r\nContent-Length: 0\r\n\r\n")
                    answered = True

    def received(self):
        """All bytes received until the program ended and closed the connection."""
        self.serving.join(SECONDS)
        return self.bytes


if __name__ == "__main__":
    unittest.main()
