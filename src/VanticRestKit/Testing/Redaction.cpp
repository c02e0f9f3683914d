#include <VanticRestKit/Testing/Redaction.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>

namespace VanticRestKit::Testing {

namespace {

using JSON = nlohmann::ordered_json;

constexpr std::array<std::string_view, 4> headers{"authorization", "proxy-authorization", "cookie",
                                                  "set-cookie"};
constexpr std::array<std::string_view, 8> parts{"token",   "secret", "password",  "api-key",
                                                "api_key", "apikey", "signature", "session"};
constexpr double endOfTokens = 4'102'444'800;  // 2100-01-01

std::string lowerCase(std::string_view text) {
    std::string result(text);
    for (char& letter : result) {
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    }
    return result;
}

/// Returns whether anything was redacted.
bool redact(JSON& json, const Redaction& redaction) {
    if (!json.is_structured()) return false;
    bool hasToken = false;
    bool isChanged = false;
    for (auto& [key, value] : json.items()) {
        if (json.is_object() && value.is_string() && redaction.hides(key)) {
            value = Redaction::redacted;
            hasToken = true;
        } else {
            isChanged = redact(value, redaction) || isChanged;
        }
    }
    if (hasToken && json.contains("expiry") && json["expiry"].is_number()) json["expiry"] = endOfTokens;
    return isChanged || hasToken;
}

}  // namespace

Redaction::Redaction(std::vector<std::string> furtherNames) : furtherNames_(std::move(furtherNames)) {
    for (std::string& name : furtherNames_) name = lowerCase(name);
}

bool Redaction::hides(std::string_view name) const {
    const std::string lower = lowerCase(name);
    // Its value is "Bearer", which a client may check.
    if (lower == "token_type") return false;
    const auto isPart = [&](std::string_view part) { return lower.find(part) != std::string::npos; };
    return std::find(headers.begin(), headers.end(), lower) != headers.end() ||
           std::any_of(parts.begin(), parts.end(), isPart) ||
           std::find(furtherNames_.begin(), furtherNames_.end(), lower) != furtherNames_.end();
}

std::string Redaction::query(std::string_view text) const {
    std::string result;
    while (true) {
        const auto end = std::min(text.find('&'), text.size());
        const std::string_view item = text.substr(0, end);
        const auto equals = item.find('=');
        if (equals != std::string_view::npos && hides(item.substr(0, equals))) {
            result.append(item.substr(0, equals + 1)).append(redacted);
        } else {
            result.append(item);
        }
        if (end == text.size()) return result;
        result += '&';
        text.remove_prefix(end + 1);
    }
}

std::string Redaction::body(std::string_view text, std::string_view contentType) const {
    JSON json = JSON::parse(text, nullptr, false);
    if (!json.is_discarded()) {
        if (!redact(json, *this)) return std::string(text);
        return json.dump(-1, ' ', false, JSON::error_handler_t::replace);
    }
    if (lowerCase(contentType).find("x-www-form-urlencoded") != std::string::npos) return query(text);
    return std::string(text);
}

std::string Redaction::header(std::string_view name, std::string_view value) const {
    return hides(name) ? redacted : std::string(value);
}

}  // namespace VanticRestKit::Testing
