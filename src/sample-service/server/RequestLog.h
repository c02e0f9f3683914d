#pragma once

#include <deque>
#include <mutex>

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// The requests received so far, the newest 20,000 of them. Any thread.
class RequestLog {
public:
    void add(const Request& request);
    void clear();

    /// A list in order of arrival: method, path, target, query, headers, body of each.
    JSON written() const;

    /// How many were received since the start or the last clearing, including those no longer kept.
    std::size_t total() const;

private:
    mutable std::mutex mutex_;
    std::deque<Request> requests_;
    std::size_t total_ = 0;
};

}  // namespace VanticRestKit::sample
