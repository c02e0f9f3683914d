#pragma once

/// \file
/// `CaseServer`: answers the requests of the public HTTP cache test cases as described in `tests/data/http`.

#include <support/FaultServer.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit::test {

/// A manually advanced clock for the server and the cache.
class MovedClock {
public:
    std::chrono::milliseconds now() const { return std::chrono::milliseconds(now_.load()); }
    void move(std::chrono::milliseconds by) { now_ += by.count(); }

private:
    // A time in 2026 with a fraction of a second.
    std::atomic<std::int64_t> now_ = 1'780'000'000'250;
};

/// The HTTP date of `now` plus `seconds`, in the obsolete format if `isOldForm`.
std::string dateText(std::chrono::milliseconds now, double seconds, bool isOldForm = false);

/// `name` in lower case.
std::string lowerCase(std::string name);

class CaseServer {
public:
    explicit CaseServer(MovedClock& clock);

    /// Starts to answer the requests of `testCase` and forgets the previous case.
    void use(const nlohmann::json& testCase);

    std::string url(const std::string& path) const { return server_.url(path); }
    /// The first request received with this number in the case.
    std::optional<RawRequest> request(std::size_t number) const;
    /// The server's time when it answered the request before `number`, or now.
    std::chrono::milliseconds timeBefore(std::size_t number) const;

    /// The default body of the case.
    static std::string usualBody(const nlohmann::json& testCase);

private:
    struct Seen {
        std::size_t number;
        RawRequest request;
    };

    void serve(FaultConnection& connection);
    std::string statusOf(std::size_t number, const RawRequest& request, bool& hasBody) const;
    std::string fieldsOf(const nlohmann::json& entry, const RawRequest& request) const;
    std::string bodyOf(const nlohmann::json& entry) const;
    std::string absolute(const RawRequest& request, const std::string& name) const;

    MovedClock& clock_;
    mutable std::mutex mutex_;
    nlohmann::json case_;
    std::vector<Seen> seen_;
    std::map<std::size_t, std::chrono::milliseconds> answered_;
    FaultServer server_;
};

}  // namespace VanticRestKit::test
