#pragma once

#include <chrono>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "server/Exchange.h"

namespace VanticRestKit::sample {

enum class FaultKind {
    delay,            // the answer comes `seconds` later
    stall,            // the answer stops forever before its first byte, or after `after` bytes of its body
    reset,            // the connection is reset there
    malformed,        // 200 with a body that is not JSON
    status,           // another status
    unknownEnum,      // enumeration values of the answer become unknown ones
    oddities,         // the collections of the answer contain unknown entities and broken elements
    unknownEntities,  // only the unknown entities
    brokenElements,   // only the broken elements
    null,             // a value of the answer, or the whole answer, becomes null
    expiredToken,     // 401, as for an expired token
};

/// A fault of the next answers of a path.
struct Fault {
    FaultKind kind = FaultKind::status;
    std::string path;    // as Request::path, or "*" for every path
    std::string method;  // empty: every method
    int count = 1;
    std::chrono::duration<double> seconds{1.0};
    int status = 500;
    std::optional<std::size_t> after;
    std::optional<std::string> text;
    std::vector<std::string> at;  // JSON pointers into the answer
};

/// Parses a fault from the body of a control request. Returns an error message if it is invalid.
std::optional<std::string> readFault(const JSON& json, Fault& fault);
JSON written(const Fault& fault);

/// Pending faults, in the order in which they were requested. Any thread.
class Faults {
public:
    void add(Fault fault);
    void clear();

    /// The pending fault of this request, if there is one; counts it down.
    std::optional<Fault> take(const Request& request);
    JSON written() const;

private:
    mutable std::mutex mutex_;
    std::deque<Fault> waiting_;
};

/// Applies a fault of the contents to an answer; other faults leave it unchanged.
void apply(const Fault& fault, Reply& reply);

}  // namespace VanticRestKit::sample
