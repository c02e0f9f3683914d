#include <VanticRestKit/Testing/Builder.h>

#include <nlohmann/json.hpp>

#include <cstdio>
#include <cstdlib>

namespace VanticRestKit::Testing::detail {

namespace {

using JSON = nlohmann::ordered_json;

[[noreturn]] void fail(const std::string& what) {
    std::fprintf(stderr, "VanticRestKit::Testing: %s\n", what.c_str());
    std::abort();
}

JSON parsed(const std::string& text, const std::string& whose) {
    JSON json = JSON::parse(text, nullptr, false);
    if (json.is_discarded()) fail(whose + " is not JSON: " + text);
    return json;
}

/// The components of a JSON pointer. A string that is not a pointer is a single key.
std::vector<std::string> steps(const std::string& place) {
    if (!place.starts_with('/')) return {place};
    std::vector<std::string> found;
    for (std::size_t i = 0; i < place.size(); ++i) {
        if (place[i] == '/') {
            found.emplace_back();
        } else if (place[i] == '~' && i + 1 < place.size()) {
            found.back() += place[++i] == '1' ? '/' : '~';
        } else {
            found.back() += place[i];
        }
    }
    return found;
}

/// The index that a step names; the size of the list for "-". Empty if the step is not a number.
std::optional<std::size_t> indexOf(const JSON& list, const std::string& step) {
    if (step == "-") return list.size();
    if (step.empty() || step.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
    return std::strtoull(step.c_str(), nullptr, 10);
}

/// The value at a step below `json`. If it does not exist, it is created if `makes`, otherwise null.
JSON* below(JSON& json, const std::string& step, bool makes) {
    if (json.is_array()) {
        const auto index = indexOf(json, step);
        if (!index || *index > json.size() || (*index == json.size() && !makes)) return nullptr;
        if (*index == json.size()) json.push_back(nullptr);
        return &json[*index];
    }
    if (json.is_null() && makes) json = JSON::object();
    if (!json.is_object() || (!makes && !json.contains(step))) return nullptr;
    return &json[step];
}

JSON* at(JSON& json, const std::vector<std::string>& steps, bool makes) {
    JSON* place = &json;
    for (const std::string& step : steps) {
        if (place != nullptr) place = below(*place, step, makes);
    }
    return place;
}

void removeAt(JSON& json, std::vector<std::string> steps) {
    const std::string last = steps.back();
    steps.pop_back();
    JSON* const holder = at(json, steps, false);
    if (holder == nullptr || below(*holder, last, false) == nullptr) return;
    if (holder->is_array()) {
        holder->erase(*indexOf(*holder, last));
    } else {
        holder->erase(last);
    }
}

std::string written(const JSON& json) { return json.dump(-1, ' ', false, JSON::error_handler_t::replace); }

}  // namespace

void DocumentChanges::set(std::string place, JSONText value) {
    changes_.emplace_back(std::move(place), std::move(value));
}

void DocumentChanges::remove(std::string place) { changes_.emplace_back(std::move(place), std::nullopt); }

std::string DocumentChanges::applied(std::string document) const {
    if (changes_.empty()) return document;
    JSON json = parsed(document, "the document");
    for (const auto& [place, value] : changes_) {
        if (!value) {
            removeAt(json, steps(place));
            continue;
        }
        JSON* const target = at(json, steps(place), true);
        if (target == nullptr) fail("the document has no value at " + place);
        *target = parsed(value->text(), "the value for " + place);
    }
    return written(json);
}

void failToDecode(const std::string& document, const Error& error) {
    fail("this document cannot be decoded: " + error.localizedDescription() + "\n" + document);
}

std::string partOf(const std::string& document, const std::string& place) {
    JSON json = parsed(document, "the document");
    const JSON* const part = at(json, steps(place), false);
    if (part == nullptr) fail("the document has no value at " + place + "\n" + document);
    return written(*part);
}

}  // namespace VanticRestKit::Testing::detail
