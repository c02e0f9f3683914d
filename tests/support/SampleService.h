#pragma once

/// \file
/// `SampleService`: the sample service as a separate process, controlled by a test.

#include <nlohmann/json.hpp>

#include <sys/types.h>
#include <cstdint>
#include <string>
#include <vector>

namespace VanticRestKit::test {

/// Runs the sample service on a free port of 127.0.0.1 until this object is destroyed.
class SampleService {
public:
    enum class Transport { http, https };

    explicit SampleService(Transport transport = Transport::http);
    /// With command-line options.
    explicit SampleService(std::vector<std::string> options);
    ~SampleService();
    SampleService(const SampleService&) = delete;
    SampleService& operator=(const SampleService&) = delete;

    /// Whether it answers. A test cannot continue otherwise.
    bool isRunning() const noexcept { return process_ > 0; }

    /// Such as "http://127.0.0.1:41234".
    const std::string& baseURL() const noexcept { return baseURL_; }
    std::uint16_t port() const noexcept { return port_; }

    /// With https: the file with the certificate that a client must trust.
    const std::string& authorityFile() const noexcept { return authorityFile_; }

    /// Scripts a fault for the next responses of a path, such as
    /// {"path":"v2/time","fault":"status","status":500,"count":2}.
    void addFault(const nlohmann::json& fault) const;

    /// The requests received, in order of arrival.
    nlohmann::json log() const;
    void clearLog() const;

    /// Sends a request to a control route. Returns null unless the status is 200.
    nlohmann::json control(const std::string& method, const std::string& path,
                           const std::string& body = {}) const;

    /// Sends a signal and waits for the end. Returns the exit code, or -1 if it ended in another way.
    int end(int signal);

    /// Waits at most half a minute for an end that was requested in another way.
    int waitForEnd();

private:
    void run(std::vector<std::string> arguments);
    std::string firstLine(int output) const;

    std::string folder_;
    std::string authorityFile_;
    std::string baseURL_;
    std::uint16_t port_ = 0;
    pid_t process_ = -1;
};

/// Runs the sample service with these arguments until it ends. Returns its exit code.
int runSampleService(const std::vector<std::string>& arguments);

}  // namespace VanticRestKit::test
