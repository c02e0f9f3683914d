#include "server/Scenario.h"

#include <strings.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace VanticRestKit::sample {

namespace {

constexpr std::size_t maxRecords = 20'000;
constexpr double defaultDelay = 2;
constexpr double maxDelay = 600;

// The requests that a fault affects.
enum class Reach {
    everything,  // including pictures and streams
    documents,   // answers in JSON
    userRoutes,  // routes that require a user's token
};

struct Row {
    const char* name;
    FaultKind kind;
    Reach reach;
};

constexpr std::array<Row, 8> rows{{
    {"offline", FaultKind::reset, Reach::everything},
    {"slow", FaultKind::delay, Reach::everything},
    {"500", FaultKind::status, Reach::documents},
    {"not-json", FaultKind::malformed, Reach::documents},
    {"row-without-title", FaultKind::null, Reach::documents},
    {"unknown-entities", FaultKind::unknownEntities, Reach::documents},
    {"broken-elements", FaultKind::brokenElements, Reach::documents},
    {"expired-token", FaultKind::expiredToken, Reach::userRoutes},
}};

const Row* rowOf(const std::string& name) {
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.name == name; });
    return found == rows.end() ? nullptr : &*found;
}

bool hasToken(const Request& request) {
    return std::any_of(request.headers.begin(), request.headers.end(), [](const auto& header) {
        return strcasecmp(header.first.c_str(), "Authorization") == 0;
    });
}

bool reaches(Reach reach, const Request& request) {
    const std::string first = request.segments.empty() ? std::string() : request.segments.front();
    switch (reach) {
        case Reach::everything: return true;
        case Reach::documents: return first != "pictures" && first != "hls" && first != "captions";
        // New tokens are still issued, but rejected when they are used.
        case Reach::userRoutes: return hasToken(request) && request.path() != "v2/token";
    }
    return false;
}

JSON written(const AnswerRecord& record) {
    return JSON{{"method", record.method},
                {"target", record.target},
                {"status", record.status},
                {"milliseconds", record.milliseconds},
                {"clientLeft", record.clientLeft}};
}

}  // namespace

bool Scenario::choose(const std::string& name, std::chrono::duration<double> delay) {
    if (name != "none" && rowOf(name) == nullptr) return false;
    const std::lock_guard lock(mutex_);
    name_ = name;
    delay_ = delay;
    return true;
}

std::string Scenario::name() const {
    const std::lock_guard lock(mutex_);
    return name_;
}

std::optional<Fault> Scenario::faultOf(const Request& request) const {
    const std::lock_guard lock(mutex_);
    const Row* row = rowOf(name_);
    if (row == nullptr || !reaches(row->reach, request)) return std::nullopt;
    Fault fault;
    fault.kind = row->kind;
    fault.seconds = delay_;
    // Selects a row in the middle of the screen, so that there are rows before and after it.
    if (row->kind == FaultKind::null) fault.at = {"/_embedded/collections/1/title"};
    return fault;
}

void Scenario::add(AnswerRecord record) {
    const std::lock_guard lock(mutex_);
    records_.push_back(std::move(record));
    if (records_.size() > maxRecords) records_.pop_front();
}

void Scenario::clearRecords() {
    const std::lock_guard lock(mutex_);
    records_.clear();
}

std::string Scenario::writtenRecords() const {
    const std::lock_guard lock(mutex_);
    std::string lines;
    for (const auto& record : records_) {
        lines += written(record).dump(-1, ' ', false, JSON::error_handler_t::replace) + '\n';
    }
    return lines;
}

std::vector<std::string> scenarioNames() {
    std::vector<std::string> names{"none"};
    for (const Row& row : rows) names.emplace_back(row.name);
    return names;
}

std::vector<Route> scenarioRoutes(Scenario& scenario) {
    const auto fault = [&scenario](const Request&, const Captures&) {
        return answered({{"name", scenario.name()}, {"names", scenarioNames()}});
    };
    const auto choose = [&scenario](const Request& request, const Captures&) {
        const std::string seconds = request.queryValue("seconds");
        const double delay = seconds.empty() ? defaultDelay : std::strtod(seconds.c_str(), nullptr);
        const bool isDelay = delay >= 0 && delay <= maxDelay;
        const std::string name = request.queryValue("name");
        if (!isDelay || !scenario.choose(name, std::chrono::duration<double>(delay))) {
            return failure(400, "there is no such fault");
        }
        return answered({{"name", name}});
    };
    const auto log = [&scenario](const Request&, const Captures&) {
        Reply reply;
        reply.text = scenario.writtenRecords();
        reply.contentType = "application/x-ndjson";
        return reply;
    };
    const auto clear = [&scenario](const Request&, const Captures&) {
        return scenario.clearRecords(), answered({{"done", true}});
    };
    return {{"GET", "control/fault", fault},
            {"POST", "control/fault", choose},
            {"GET", "control/log", log},
            {"DELETE", "control/log", clear}};
}

}  // namespace VanticRestKit::sample
