#pragma once

/// \file
/// `CaseServer`: answers the requests of the public cases for caches, as `tests/data/http` describes them.

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

/// A clock that moves when it is told to, for the server and for the cache.
class MovedClock {
public:
    std::chrono::milliseconds now() const { return std::chrono::milliseconds(now_.load()); }
    void move(std::chrono::milliseconds by) { now_ += by.count(); }

private:
    // A moment of 2026 with a fraction of a second, as clocks have it.
    std::atomic<std::int64_t> now_ = 1'780'000'000'250;
};

/// The date of `seconds` from `now`, as HTTP writes it; in the older form if `isOldForm`.
std::string dateText(std::chrono::milliseconds now, double seconds, bool isOldForm = false);

/// `name` in lower case.
std::string lowerCase(std::string name);

class CaseServer {
public:
    explicit CaseServer(MovedClock& clock);

    /// Answers by the requests of `testCase` from now on; forgets the one before.
    void use(const nlohmann::json& testCase);

    std::string url(const std::string& path) const { return server_.url(path); }
    /// The first request with this number that has come for the case.
    std::optional<RawRequest> request(std::size_t number) const;
    /// The server's time at its answer to the request before `number`, or now.
    std::chrono::milliseconds timeBefore(std::size_t number) const;

    /// The body that belongs to the case unless an entry says otherwise.
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
