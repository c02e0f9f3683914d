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
    stall,            // the answer stops before its first byte, or behind `after` bytes of its body, for good
    reset,            // the connection is reset there
    malformed,        // 200 with a body that is no JSON
    status,           // another status
    unknownEnum,      // texts of the answer that stand for an enumeration become ones that nobody knows
    oddities,         // the collections of the answer hold entities that nobody knows and broken elements
    unknownEntities,  // only the entities that no client knows
    brokenElements,   // only the broken elements
    null,             // a value of the answer, or all of it, becomes null
    expiredToken,     // 401, as for a token whose time is over
};

/// What is to happen to the next answers of a path.
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

/// Reads a fault from the control route's body; an error's text where it is none.
std::optional<std::string> readFault(const JSON& json, Fault& fault);
JSON written(const Fault& fault);

/// The faults that are still to happen, in the order in which they were asked for. Any thread.
class Faults {
public:
    void add(Fault fault);
    void clear();

    /// The fault of this request, if one waits for it; counts it down.
    std::optional<Fault> take(const Request& request);
    JSON written() const;

private:
    mutable std::mutex mutex_;
    std::deque<Fault> waiting_;
};

/// Changes an answer by a fault that is only about its contents; leaves it alone for the others.
void apply(const Fault& fault, Reply& reply);

}  // namespace VanticRestKit::sample
