import contextlib
import socket
import threading
import unittest

from program import SECONDS, SampleService, TestCase, vantic, vantic_without


class ClosedOutput(TestCase):
    """What cannot be printed is told as lost, also where the program opens sockets of its own."""

    def assert_lost(self, outcome):
        self.assert_failed(outcome, "standard output")

    def test_fails_a_load(self):
        with SampleService() as service:
            for what in ["Time", "Home"]:
                words = ["load", what, "--base-url", service.url]
                self.assertEqual(vantic(*words).code, 0)
                self.assert_lost(vantic_without([1], *words))
                self.assert_lost(vantic_without([0, 1], *words))

    def test_fails_an_operation_for_a_user_that_shows_a_value(self):
        with SampleService() as service:
            words = ["user", "listWatchlistShowIds", "--uid", "ann", "--base-url", service.url]
            self.assertEqual(vantic(*words).out, "[]\n")
            self.assert_lost(vantic_without([1], *words))
            self.assert_lost(vantic_without([0, 1], *words))

    def test_is_no_failure_of_an_operation_that_shows_nothing(self):
        with SampleService() as service:
            outcome = vantic_without([1], "user", "deleteHistory", "--uid", "ann", "--base-url", service.url)
            self.assertEqual((outcome.code, outcome.err), (0, ""))

    def test_fails_commands_that_send_nothing(self):
        self.assert_lost(vantic_without([1], "types"))
        self.assert_lost(vantic_without([1], "decode", "Time", self.file_of(b"1")))


class ClosedErrorOutput(TestCase):
    def test_of_a_failing_load_sends_its_line_nowhere(self):
        for closed in [[2], [1, 2], [0, 1, 2]]:
            with self.subTest(closed), FailingService() as service:
                outcome = vantic_without(closed, "load", "Time", "--base-url", service.url)
                self.assertEqual((outcome.code, outcome.out, outcome.err), (1, "", ""))
                self.assert_one_request(service)

    def test_of_a_failing_operation_for_a_user_sends_its_line_nowhere(self):
        with FailingService() as service:
            outcome = vantic_without([2], "user", "listWatchlistShowIds", "--uid", "ann", "--base-url", service.url)
            self.assertEqual((outcome.code, outcome.out, outcome.err), (1, "", ""))
            self.assert_one_request(service)

    def assert_one_request(self, service):
        """A GET request, without a body, with no further bytes and on one connection."""
        received = service.received()
        self.assertTrue(received.startswith(b"GET /v2/"), received)
        self.assertEqual(received.find(b"\r\n\r\n"), len(received) - 4, received)
        service.listening.setblocking(False)
        self.assertRaises(BlockingIOError, service.listening.accept)


class ClosedInput(TestCase):
    def test_holds_no_document_and_is_not_in_the_way_of_a_file(self):
        self.assertEqual(vantic_without([0], "decode", "Time").code, 1)
        self.assertEqual(vantic_without([0], "decode", "Time", self.file_of(b"1")).out, "1\n")


class FailingService:
    """Answers one request with 500 and keeps all that comes on its connection, for a `with` block."""

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
        """All bytes that came until the program, which has ended, let go of the connection."""
        self.serving.join(SECONDS)
        return self.bytes


if __name__ == "__main__":
    unittest.main()
