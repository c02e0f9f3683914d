#pragma once

// What the panel shows of a browser's requests.

#include "Http.h"

#include <deque>
#include <mutex>

namespace living_room {

/// Keeps the last requests of one browser and what decoding swallowed of their answers. Any thread.
class RequestLog final : public RequestObserver {
public:
    RequestLog();

    void requestEnded(const RequestMetrics& metrics) override;
    void decodingFailed(const DecodingFailure& failure) override;
    void documentExplained(const ExplainedDocument& document) override;

    /// The newest first, each with method, target, outcome (the status, or "no answer"), milliseconds and source.
    Value::List requests() const;
    /// A sentence each.
    Value::List swallowed() const;
    /// Forgets both, as for a new screen.
    void clear();

private:
    void addSwallowed(std::string line);

    mutable std::mutex mutex_{};
    std::deque<Value::Object> requests_{};
    std::deque<std::string> swallowed_{};
};

}  // namespace living_room
