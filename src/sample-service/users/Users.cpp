#include "users/Users.h"

#include <algorithm>
#include <cctype>
#include <string_view>

namespace VanticRestKit::sample {

namespace {

bool equalIgnoringCase(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char one, unsigned char other) {
        return std::tolower(one) == std::tolower(other);
    });
}

Reply refused(const std::string& why) { return failure(401, why); }

std::optional<Asked> asked(const Request& request) {
    const auto uid = queryValue(request, "UID");
    if (!uid) return std::nullopt;
    return Asked{*uid, queryValue(request, "source").value_or(""), bearerToken(request)};
}

}  // namespace

std::optional<std::string> queryValue(const Request& request, const std::string& name) {
    for (const auto& item : request.query) {
        if (item.name == name) return item.value;
    }
    return std::nullopt;
}

std::optional<std::string> headerValue(const Request& request, const std::string& name) {
    for (const auto& [header, value] : request.headers) {
        if (equalIgnoringCase(header, name)) return value;
    }
    return std::nullopt;
}

std::optional<std::string> bearerToken(const Request& request) {
    const auto value = headerValue(request, "Authorization");
    constexpr std::string_view scheme = "Bearer ";
    if (!value || !value->starts_with(scheme)) return std::nullopt;
    return value->substr(scheme.size());
}

Reply Users::giveTokens(const Request& request) {
    const auto who = asked(request);
    if (!who) return failure(400, "The token request has no user");
    const std::lock_guard lock(mutex_);
    if (settings_.refused.count(who->uid) > 0) return refused("This account has to consent again");
    if (who->bearer && tokens_.byRefresh(who->uid, *who->bearer) == nullptr) {
        return refused("This is not a refresh token of the user");
    }
    Reply reply;
    reply.body = JSON{{"meta", {{"count", 1}, {"data", "token"}, {"status_code", 200}}},
                      {"auth", tokens_.issue(who->uid, settings_.seconds).written()}};
    return reply;
}

Reply Users::answer(const Request& request, const Step& step) {
    const auto who = asked(request);
    if (!who) return failure(400, "The request has no user");
    const std::lock_guard lock(mutex_);
    const TokenSet* tokens = who->bearer ? tokens_.byAccess(who->uid, *who->bearer) : nullptr;
    if (tokens == nullptr) return refused("This is not an access token of the user");
    if (tokens->expiry <= secondsNow()) return refused("The token has expired");
    Reply reply = step(users_, *who);
    if (reply.status < 400 && reply.body && rotates(*tokens)) {
        (*reply.body)["auth"] = tokens_.issue(who->uid, settings_.seconds).written();
    }
    return reply;
}

bool Users::rotates(const TokenSet& tokens) const {
    switch (settings_.rotation) {
        case TokenSettings::Rotation::never: return false;
        case TokenSettings::Rotation::always: return true;
        case TokenSettings::Rotation::late: break;
    }
    return tokens.expiry - secondsNow() < settings_.seconds / 2;
}

void Users::look(const std::string& uid, const std::function<void(const User&)>& step) const {
    const std::lock_guard lock(mutex_);
    const auto found = users_.find(uid);
    if (found != users_.end()) step(found->second);
}

JSON Users::writtenUsers() const {
    const std::lock_guard lock(mutex_);
    JSON json = JSON::object();
    for (const auto& [uid, user] : users_) json[uid] = sample::written(user);
    return json;
}

JSON Users::writtenSettings() const {
    const std::lock_guard lock(mutex_);
    return sample::written(settings_);
}

std::optional<std::string> Users::set(const JSON& settings) {
    const std::lock_guard lock(mutex_);
    return readTokenSettings(settings, settings_);
}

void Users::expireTokens() {
    const std::lock_guard lock(mutex_);
    tokens_.expireAll();
}

void Users::clear() {
    const std::lock_guard lock(mutex_);
    users_.clear();
    tokens_.clear();
}

Reply records(const std::string& what, JSON data) {
    Reply reply;
    JSON meta{{"count", data.size()}, {"data", what}, {"status_code", 200}};
    reply.body = JSON{{"meta", std::move(meta)}, {"data", std::move(data)}};
    return reply;
}

}  // namespace VanticRestKit::sample
