#pragma once

// What the panel shows about a browser's requests.

#include "Http.h"

#include <mutex>

namespace living_room {

/// Keeps the latest requests of one browser, and what decoding their answers left out. Any thread.
class RequestLog final : public RequestObserver {
public:
    RequestLog();

    void requestEnded(const RequestMetrics& metrics) override;
    void decodingFailed(const DecodingFailure& failure) override;
    void documentExplained(const ExplainedDocument& document) override;

    /// The two lists, latest first: `requests`, each with method, target, outcome (the status, or "no answer"),
    /// milliseconds and source, and `swallowed`, a sentence each.
    Value lists() const;
    /// Forgets both, as for a new screen.
    void clear();

private:
    void addSwallowed(const std::string& line);

    mutable std::mutex mutex_{};
    Value requests_ = Value::array(), swallowed_ = Value::array();
};

}  // namespace living_room
