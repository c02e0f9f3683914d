#pragma once

// The browsers that this host serves, and who is signed in at each.

#include "Context.h"
#include "RequestLog.h"

namespace living_room {

/// What the host keeps for one browser. Used on the host's loop only; the request log by any thread.
struct User {
    explicit User(const Service& service);

    /// The account. Empty if no one is signed in.
    std::optional<std::string> account() const { return accountContext->uid(); }
    /// The profile in use: the account itself, or one of its family. Each has a list and a history of its own.
    std::optional<std::string> profile() const { return context->uid(); }

    void signIn(const std::string& account);
    void signOut();

    /// The value of the browser's cookie: 128 random bits, so that it cannot be guessed.
    const std::string session;
    const std::shared_ptr<RequestLog> log;
    /// The context and the client of the profile in use, and those of the account, which knows all profiles.
    const std::shared_ptr<BrowserContext> context, accountContext;
    const std::shared_ptr<UserClient> client, accountClient;
    const RecommendationsContext recommendations;
};

/// All browsers, by their cookies. If there are too many, the one that has been idle longest is forgotten.
class Users {
public:
    explicit Users(const Service& service) : service_(service) {}

    /// The user with that cookie; a new one, with a new cookie, if there is none.
    std::shared_ptr<User> user(const std::string& session);

private:
    static constexpr std::size_t maxUsers = 500;

    const Service& service_;
    /// The most recently used one first.
    std::vector<std::shared_ptr<User>> users_{};
};

}  // namespace living_room
