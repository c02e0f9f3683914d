#pragma once

// What the panel shows of a browser's requests.

#include <VanticRestKit/Core/RequestObserver.h>

#include <deque>
#include <mutex>
#include <string>
#include <vector>

namespace living_room {

/// One request as a line of the panel.
struct LoggedRequest {
    std::string method{};
    /// Path and query.
    std::string target{};
    /// The status, or "no answer".
    std::string outcome{};
    std::int64_t milliseconds = 0;
    /// "network", "cache", "revalidated" or "stale".
    std::string source{};
};

/// Keeps the last requests of one browser and what decoding swallowed of their answers. Any thread.
class RequestLog final : public VanticRestKit::RequestObserver {
public:
    RequestLog();

    void requestEnded(const VanticRestKit::RequestMetrics& metrics) override;
    void decodingFailed(const VanticRestKit::DecodingFailure& failure) override;
    void documentExplained(const VanticRestKit::ExplainedDocument& document) override;

    /// The newest first.
    std::vector<LoggedRequest> requests() const;
    std::vector<std::string> swallowed() const;
    /// Forgets both, as for a new screen.
    void clear();

private:
    void addSwallowed(std::string line);

    mutable std::mutex mutex_{};
    std::deque<LoggedRequest> requests_{};
    std::deque<std::string> swallowed_{};
};

}  // namespace living_room
