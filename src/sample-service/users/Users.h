#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "server/Exchange.h"
#include "users/Tokens.h"
#include "users/User.h"

namespace VanticRestKit::sample {

/// What a request about a user says of itself.
struct Asked {
    std::string uid;
    std::string source;
    std::optional<std::string> bearer;
};

/// The value of the first query item of that name; empty where there is none, or it has no value.
std::optional<std::string> queryValue(const Request& request, const std::string& name);

/// The value of the first header of that name, in any case.
std::optional<std::string> headerValue(const Request& request, const std::string& name);

/// What stands behind "Bearer " in the request's `Authorization`.
std::optional<std::string> bearerToken(const Request& request);

/// The users and their tokens, in memory alone. Any thread.
class Users {
public:
    /// `tokenSeconds`: how long a token is good for at first.
    explicit Users(double tokenSeconds) { settings_.seconds = tokenSeconds; }

    /// A step on the data of a user; its answer has the records under `data`, or is a failure. `all` are the
    /// users, for whom an entry is made when something is first kept for them.
    using All = std::map<std::string, User>;
    using Step = std::function<Reply(All& all, const Asked& asked)>;

    /// New tokens for a user: for anybody who is not refused and shows no token, or shows a refresh token of
    /// theirs.
    Reply giveTokens(const Request& request);

    /// Answers with what `step` gives for a request that shows a good access token, and with new tokens where
    /// the settings ask for it. 400 for a request without a user, 401 for one without a good token.
    Reply answer(const Request& request, const Step& step);

    /// A step on what is known of one user, whoever asks.
    void look(const std::string& uid, const std::function<void(const User&)>& step) const;

    /// A text that no record has yet.
    std::string newId() { return "oid-" + std::to_string(++lastId_); }

    // For looking at and steering the service from outside.
    JSON writtenUsers() const;
    JSON writtenSettings() const;
    std::optional<std::string> set(const JSON& settings);
    void expireTokens();
    void clear();

private:
    bool rotates(const TokenSet& tokens) const;

    mutable std::mutex mutex_;
    All users_;
    Tokens tokens_;
    TokenSettings settings_;
    std::atomic<unsigned> lastId_{0};
};

/// An answer with records, as those of a user come: what they are in `meta`, themselves in `data`.
Reply records(const std::string& what, JSON data);

}  // namespace VanticRestKit::sample
