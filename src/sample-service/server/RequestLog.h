#pragma once

#include <deque>
#include <mutex>

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// The newest 20,000 of the received requests. Any thread.
class RequestLog {
public:
    void add(const Request& request);
    void clear();

    /// The requests in order of arrival, each with method, path, target, query, headers and body.
    JSON written() const;

    /// The number received since the start or the last `clear()`, including those no longer kept.
    std::size_t total() const;

private:
    mutable std::mutex mutex_;
    std::deque<Request> requests_;
    std::size_t total_ = 0;
};

}  // namespace VanticRestKit::sample
