#pragma once

/// \file
/// `SampleService`: the sample service on a local port, inside the process of the test.

#include <VanticRestKit/platform/url/URL.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit::Testing {

/// A fault of the next answers of a path.
struct SampleFault {
    /// What goes wrong.
    enum class Kind {
        /// The answer is delayed by `seconds`.
        delay,
        /// The answer stops forever, after the first `after` bytes of the body if that is set.
        stall,
        /// The connection is reset at the same position.
        reset,
        /// 200 with a body that is not JSON: `text`, or an HTML page.
        malformed,
        /// Another status, with the body `text` if that is set.
        status,
        /// Unknown enumeration values: those at the JSON pointers `at`, or every `type` and `theme`.
        unknownEnum,
        /// Collections contain unknown entities and broken elements.
        oddities,
        /// Null instead of the values at the JSON pointers `at`, or of the whole document.
        null,
        /// 401, as for a token that has expired.
        expiredToken,
    };

    /// What goes wrong.
    Kind kind = Kind::status;
    /// The affected path, such as "v2/time"; "*" for every path.
    std::string path = "*";
    /// The affected method; empty for every method.
    std::string method{};
    /// The number of answers that are affected.
    int count = 1;
    /// For `delay`: the delay.
    std::chrono::duration<double> seconds{1};
    /// For `status`: the status.
    int status = 500;
    /// For `stall` and `reset`: the number of body bytes that are sent before.
    std::optional<std::size_t> after{};
    /// For `malformed` and `status`: the body.
    std::optional<std::string> text{};
    /// For `unknownEnum` and `null`: JSON pointers.
    std::vector<std::string> at{};
};

/// The sample service: an HTTP server on 127.0.0.1 with its own threads, for tests that use the network.
/// `SampleAnswers` provides the same answers without a socket. Each object has its own users, faults and log; all
/// objects of a process share one clock. Any thread.
///
/// The first object makes the process ignore SIGPIPE, because writing to a closed connection would raise it.
///
/// ```cpp
/// SampleService service;
/// service.add({.kind = SampleFault::Kind::status, .path = "v2/time", .status = 503});
/// HostContext context(service.baseURL());
/// ```
class SampleService {
public:
    /// Options for starting the service.
    struct Options {
        /// The port; 0 for any free one.
        std::uint16_t port = 0;
        /// Whether to use HTTPS, with a certificate created at start; clients have to trust `authority()`.
        bool tls = false;
        /// The lifetime of tokens.
        std::chrono::duration<double> tokensLast = std::chrono::hours(1);
    };

    /// Starts the service on a free port, over HTTP.
    SampleService();
    /// Starts the service with these options.
    explicit SampleService(const Options& options);
    /// Stops.
    ~SampleService();
    SampleService(const SampleService&) = delete;
    SampleService& operator=(const SampleService&) = delete;

    /// False if the port was not available, and after `stop`.
    bool isRunning() const;
    /// Stops the service after the answers that are being written; delayed ones are dropped. It cannot be started
    /// again.
    void stop();

    /// The base URL, such as "http://127.0.0.1:41417". If the service could not start, its port does not respond.
    URL baseURL() const;
    /// The port on which it listens.
    std::uint16_t port() const;
    /// With TLS: the certificate in PEM format, for the CA bundle of a session. Otherwise empty.
    std::string authority() const;

    /// Adds a fault after the pending ones. Returns false if `at` contains an invalid JSON pointer.
    bool add(const SampleFault& fault);
    /// Removes the pending faults.
    void clearFaults();

    /// The requests received, in order of arrival: "GET /v2/show/harbour-lights?embed=seriesList".
    std::vector<std::string> log() const;
    /// The requests received, as a JSON document with the query, headers and body of each.
    std::string logDocument() const;
    /// Empties the log of requests.
    void clearLog();

    /// Makes all access tokens expire.
    void expireTokens();
    /// Deletes all users and their tokens.
    void clearUsers();

private:
    struct State;

    std::unique_ptr<State> state_;
};

}  // namespace VanticRestKit::Testing
