#pragma once

/// \file
/// `SampleService`: the sample service on a port of this machine, inside the process of the test.

#include <VanticRestKit/platform/url/URL.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit::Testing {

/// What is to happen to the next answers of a path.
struct SampleFault {
    /// What goes wrong.
    enum class Kind {
        /// The answer comes later, after `seconds`.
        delay,
        /// Nothing comes for good, after the first `after` bytes of the body if that is set.
        stall,
        /// The connection is reset, at the same place.
        reset,
        /// 200 with a body that is no JSON: `text`, or a page in HTML.
        malformed,
        /// Another status, with the body `text` if that is set.
        status,
        /// Enumerations become unknown: the values `at` these places, or every `type` and `theme`.
        unknownEnum,
        /// Collections hold unknown entities and broken elements.
        oddities,
        /// The values `at` these places become null, or the whole answer.
        null,
        /// 401, as for a token that has expired.
        expiredToken,
    };

    /// What goes wrong.
    Kind kind = Kind::status;
    /// Such as "v2/time"; "*" is every path.
    std::string path = "*";
    /// Empty: every method.
    std::string method{};
    /// For how many answers.
    int count = 1;
    /// For `delay`: how long.
    std::chrono::duration<double> seconds{1};
    /// For `status`: which one.
    int status = 500;
    /// For `stall` and `reset`: after how many bytes of the body.
    std::optional<std::size_t> after{};
    /// For `malformed` and `status`: the body.
    std::optional<std::string> text{};
    /// JSON pointers.
    std::vector<std::string> at{};
};

/// The sample service: an HTTP server on 127.0.0.1 with threads of its own, for tests that are to go over the network.
/// `SampleAnswers` gives the same answers without a socket. Each object has users, faults and a log of its own; all of
/// one process share a clock. Any thread.
///
/// A server that writes to a closed connection gets a signal, so the first one has the process ignore SIGPIPE.
///
/// ```cpp
/// SampleService service;
/// service.add({.kind = SampleFault::Kind::status, .path = "v2/time", .status = 503});
/// HostContext context(service.baseURL());
/// ```
class SampleService {
public:
    /// How the service is started.
    struct Options {
        /// 0: any free one.
        std::uint16_t port = 0;
        /// HTTPS, with a certificate that is made at the start; `authority()` is what a client has to trust.
        bool tls = false;
        /// How long a user's token is good for.
        std::chrono::duration<double> tokensLast = std::chrono::hours(1);
    };

    /// Starts with a free port, over HTTP.
    SampleService();
    /// Starts as the options say.
    explicit SampleService(const Options& options);
    /// Stops.
    ~SampleService();
    SampleService(const SampleService&) = delete;
    SampleService& operator=(const SampleService&) = delete;

    /// False if the port could not be had, and after `stop`.
    bool isRunning() const;
    /// Ends after the answers that are being written; those that are held back are dropped. It does not start again.
    void stop();

    /// Such as "http://127.0.0.1:41417". Of a service that could not start: a port where nothing answers.
    URL baseURL() const;
    /// The port that it listens on.
    std::uint16_t port() const;
    /// With TLS: the certificate as PEM, for the CA bundle of a session. Else empty.
    std::string authority() const;

    /// Adds a fault after those that wait. Whether it is one: `at` takes only JSON pointers.
    bool add(const SampleFault& fault);
    /// Drops the faults that have not happened yet.
    void clearFaults();

    /// The requests received, in order of arrival: "GET /v2/show/harbour-lights?embed=seriesList".
    std::vector<std::string> log() const;
    /// The same as a JSON document, with query, headers and body of each.
    std::string logDocument() const;
    /// Empties the log of requests.
    void clearLog();

    /// Ends the time of all access tokens.
    void expireTokens();
    /// Forgets all users and their tokens.
    void clearUsers();

private:
    struct State;

    std::unique_ptr<State> state_;
};

}  // namespace VanticRestKit::Testing
