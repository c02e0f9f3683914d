#pragma once

#include <chrono>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "server/Faults.h"
#include "server/Router.h"

namespace VanticRestKit::sample {

/// How a request ended.
struct AnswerRecord {
    std::string method;
    std::string target;
    int status = 0;           // 0: the connection was closed without an answer
    double milliseconds = 0;  // from its arrival to its answer
    bool clientLeft = false;  // before the answer
};

/// One fault for all answers until another is chosen, and a record of how each request ended: for programs that
/// demonstrate faults. `Faults` is for tests, which request a fault for some answers of a path. Any thread.
class Scenario {
public:
    /// Chooses a fault by name. Returns false and changes nothing if there is none with this name. `none` ends the
    /// fault.
    bool choose(const std::string& name, std::chrono::duration<double> delay);
    std::string name() const;

    /// The fault of a request's answer, if any.
    std::optional<Fault> faultOf(const Request& request) const;

    void add(AnswerRecord record);
    void clearRecords();
    /// The newest 20,000 in the order in which they ended, one JSON object per line.
    std::string writtenRecords() const;

private:
    mutable std::mutex mutex_;
    std::string name_ = "none";
    std::chrono::duration<double> delay_{};
    std::deque<AnswerRecord> records_;
};

/// The names that `Scenario::choose` accepts.
std::vector<std::string> scenarioNames();

/// The routes under "control/" that choose a scenario and return its records.
std::vector<Route> scenarioRoutes(Scenario& scenario);

}  // namespace VanticRestKit::sample
