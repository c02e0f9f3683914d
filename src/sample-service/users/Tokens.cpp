#include "users/Tokens.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace VanticRestKit::sample {

namespace {

constexpr std::pair<TokenSettings::Rotation, const char*> rotations[] = {
    {TokenSettings::Rotation::never, "never"},
    {TokenSettings::Rotation::late, "late"},
    {TokenSettings::Rotation::always, "always"},
};

bool readRotation(const JSON& json, TokenSettings::Rotation& rotation) {
    for (const auto& [value, name] : rotations) {
        if (json != name) continue;
        rotation = value;
        return true;
    }
    return false;
}

bool readRefused(const JSON& json, std::set<std::string>& refused) {
    if (!json.is_array()) return false;
    std::set<std::string> read;
    for (const auto& uid : json) {
        if (!uid.is_string()) return false;
        read.insert(uid.get<std::string>());
    }
    refused = std::move(read);
    return true;
}

}  // namespace

std::optional<std::string> readTokenSettings(const JSON& json, TokenSettings& settings) {
    if (!json.is_object()) return "the token settings must be an object";
    TokenSettings read = settings;
    for (const auto& [key, value] : json.items()) {
        if (key == "seconds") {
            if (!value.is_number()) return "seconds must be a number";
            read.seconds = value.get<double>();
        } else if (key == "rotation") {
            if (!readRotation(value, read.rotation)) return "rotation must be never, late or always";
        } else if (key == "refused") {
            if (!readRefused(value, read.refused)) return "refused must be a list of users";
        } else {
            return "tokens have no setting " + key;
        }
    }
    settings = std::move(read);
    return std::nullopt;
}

JSON written(const TokenSettings& settings) {
    JSON json{{"seconds", settings.seconds}, {"rotation", ""}, {"refused", settings.refused}};
    for (const auto& [value, name] : rotations) {
        if (value == settings.rotation) json["rotation"] = name;
    }
    return json;
}

JSON TokenSet::written() const {
    return {
        {"access_token", access}, {"refresh_token", refresh}, {"token_type", "Bearer"}, {"expiry", expiry}};
}

// Tokens are readable, for the log of requests.
const TokenSet& Tokens::issue(const std::string& uid, double seconds) {
    const std::string number = std::to_string(++issued_);
    const TokenSet set{"access-" + number, "refresh-" + number, secondsNow() + seconds};
    return byUser_.emplace(uid, set)->second;
}

const TokenSet* Tokens::byAccess(const std::string& uid, const std::string& token) const {
    const auto [first, last] = byUser_.equal_range(uid);
    for (auto set = first; set != last; ++set) {
        if (set->second.access == token) return &set->second;
    }
    return nullptr;
}

const TokenSet* Tokens::byRefresh(const std::string& uid, const std::string& token) const {
    const auto [first, last] = byUser_.equal_range(uid);
    for (auto set = first; set != last; ++set) {
        if (set->second.refresh == token) return &set->second;
    }
    return nullptr;
}

void Tokens::expireAll() {
    const double now = secondsNow();
    for (auto& [uid, set] : byUser_) set.expiry = std::min(set.expiry, now);
}

void Tokens::clear() { byUser_.clear(); }

double secondsNow() {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return std::chrono::duration<double>(now).count();
}

}  // namespace VanticRestKit::sample
