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

/// The user and token of a request.
struct Asked {
    std::string uid;
    std::string source;
    std::optional<std::string> bearer;
};

/// The value of the first query item of that name; empty if there is none or it has no value.
std::optional<std::string> queryValue(const Request& request, const std::string& name);

/// The value of the first header of that name, case-insensitively.
std::optional<std::string> headerValue(const Request& request, const std::string& name);

/// The token after "Bearer " in the request's `Authorization`.
std::optional<std::string> bearerToken(const Request& request);

/// The users and their tokens, only in memory. Any thread.
class Users {
public:
    /// `tokenSeconds`: the initial lifetime of tokens.
    explicit Users(double tokenSeconds) { settings_.seconds = tokenSeconds; }

    /// Handles a request on the data of a user and returns the records under `data`, or a failure. `all` contains the
    /// users; an entry is created when data is first stored for a user.
    using All = std::map<std::string, User>;
    using Step = std::function<Reply(All& all, const Asked& asked)>;

    /// New tokens for a user who is not refused: without a token, or with one of the user's refresh tokens.
    Reply giveTokens(const Request& request);

    /// Answers a request with a valid access token with the result of `step`, and with new tokens if the settings
    /// require them. 400 for a request without a user, 401 for one without a valid token.
    Reply answer(const Request& request, const Step& step);

    /// Handles a request on a user's data without checking a token.
    void look(const std::string& uid, const std::function<void(const User&)>& step) const;

    /// A unique id for a new record.
    std::string newId() { return "oid-" + std::to_string(++lastId_); }

    // All users, for control requests.
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

/// An answer with records in the format of the user data service, with their description in `meta` and the records in
/// `data`.
Reply records(const std::string& what, JSON data);

}  // namespace VanticRestKit::sample
