#include "server/Faults.h"

#include <algorithm>
#include <array>

#include "server/Oddities.h"

namespace VanticRestKit::sample {

namespace {

constexpr std::array<std::pair<const char*, FaultKind>, 11> kindNames{{
    {"delay", FaultKind::delay},
    {"stall", FaultKind::stall},
    {"reset", FaultKind::reset},
    {"malformed", FaultKind::malformed},
    {"status", FaultKind::status},
    {"unknownEnum", FaultKind::unknownEnum},
    {"oddities", FaultKind::oddities},
    {"unknownEntities", FaultKind::unknownEntities},
    {"brokenElements", FaultKind::brokenElements},
    {"null", FaultKind::null},
    {"expiredToken", FaultKind::expiredToken},
}};

constexpr const char* notJSON =
    "<!doctype html><title>Back soon</title><p>The service is being looked after.</p>";
constexpr const char* unknownText = "holographic";

// If no pointer is given, every string under these keys counts as an enumeration.
constexpr std::array<const char*, 2> enumerationKeys{"type", "theme"};

void makeUnknown(JSON& value) {
    if (value.is_object()) {
        for (auto& [key, member] : value.items()) {
            const bool known =
                std::find(enumerationKeys.begin(), enumerationKeys.end(), key) != enumerationKeys.end();
            if (known && member.is_string()) {
                member = unknownText;
            } else {
                makeUnknown(member);
            }
        }
    } else if (value.is_array()) {
        for (auto& element : value) makeUnknown(element);
    }
}

void replace(JSON& body, const std::vector<std::string>& at, const JSON& value) {
    for (const auto& place : at) {
        const JSON::json_pointer pointer(place);
        if (body.contains(pointer)) body[pointer] = value;
    }
}

}  // namespace

std::optional<std::string> readFault(const JSON& json, Fault& fault) {
    if (!json.is_object() || !json.contains("fault") || !json.contains("path")) {
        return "a fault is an object with \"path\" and \"fault\"";
    }
    try {
        const auto name = json.at("fault").get<std::string>();
        const auto found = std::find_if(kindNames.begin(), kindNames.end(),
                                        [&](const auto& entry) { return entry.first == name; });
        if (found == kindNames.end()) return "no fault is called \"" + name + "\"";
        fault.kind = found->second;
        Request path;
        const auto text = json.at("path").get<std::string>();
        readTarget(text.starts_with('/') ? text : "/" + text, path);
        fault.path = path.path();
        fault.method = json.value("method", std::string());
        fault.count = json.value("count", 1);
        fault.seconds = std::chrono::duration<double>(json.value("seconds", 1.0));
        fault.status = json.value("status", 500);
        if (json.contains("after")) fault.after = json.at("after").get<std::size_t>();
        if (json.contains("text")) fault.text = json.at("text").get<std::string>();
        if (json.contains("at")) {
            const auto& at = json.at("at");
            fault.at = at.is_array() ? at.get<std::vector<std::string>>()
                                     : std::vector<std::string>{at.get<std::string>()};
            for (const auto& place : fault.at) static_cast<void>(JSON::json_pointer(place));
        }
    } catch (const nlohmann::json::exception& error) {
        return std::string(error.what());
    }
    return std::nullopt;
}

JSON written(const Fault& fault) {
    const auto found = std::find_if(kindNames.begin(), kindNames.end(),
                                    [&](const auto& entry) { return entry.second == fault.kind; });
    return JSON{{"path", fault.path}, {"fault", found->first}, {"count", fault.count}};
}

void Faults::add(Fault fault) {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(std::move(fault));
}

void Faults::clear() {
    const std::lock_guard lock(mutex_);
    waiting_.clear();
}

std::optional<Fault> Faults::take(const Request& request) {
    const std::lock_guard lock(mutex_);
    const auto path = request.path();
    const auto found = std::find_if(waiting_.begin(), waiting_.end(), [&](const Fault& fault) {
        return (fault.path == "*" || fault.path == path) &&
               (fault.method.empty() || fault.method == request.method);
    });
    if (found == waiting_.end()) return std::nullopt;
    Fault fault = *found;
    if (--found->count <= 0) waiting_.erase(found);
    return fault;
}

JSON Faults::written() const {
    const std::lock_guard lock(mutex_);
    JSON result = JSON::array();
    for (const auto& fault : waiting_) result.push_back(sample::written(fault));
    return result;
}

void apply(const Fault& fault, Reply& reply) {
    switch (fault.kind) {
        case FaultKind::malformed:
            reply.status = 200;
            reply.contentType = "text/html; charset=utf-8";
            reply.text = fault.text.value_or(notJSON);
            break;
        case FaultKind::status:
            reply = failure(fault.status, "Scripted fault");
            reply.text = fault.text;
            break;
        case FaultKind::expiredToken: reply = failure(401, "The token has expired"); break;
        case FaultKind::unknownEnum:
            if (!reply.body) break;
            if (fault.at.empty()) {
                makeUnknown(*reply.body);
            } else {
                replace(*reply.body, fault.at, unknownText);
            }
            break;
        case FaultKind::oddities:
            if (reply.body) addOddities(*reply.body);
            break;
        case FaultKind::unknownEntities:
            if (reply.body) addUnknownEntities(*reply.body);
            break;
        case FaultKind::brokenElements:
            if (reply.body) addBrokenElements(*reply.body);
            break;
        case FaultKind::null:
            if (!reply.body) break;
            if (fault.at.empty()) {
                reply.body = nullptr;
            } else {
                replace(*reply.body, fault.at, nullptr);
            }
            break;
        case FaultKind::delay:
        case FaultKind::stall:
        case FaultKind::reset: break;
    }
}

}  // namespace VanticRestKit::sample
