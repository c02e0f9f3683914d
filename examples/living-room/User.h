#pragma once

// The browsers that this host serves, and who is signed in at each.

#include "Context.h"
#include "RequestLog.h"

#include <list>

namespace living_room {

/// What the host keeps of one browser. Used on the host's loop only; the request log by any thread.
class User {
public:
    /// `session` is the value of the browser's cookie.
    User(const Service& service, std::string session);

    const std::string& session() const noexcept { return session_; }
    const Context& catalogue() const noexcept { return *context_; }
    const RecsContext& recommendations() const noexcept { return recommendations_; }
    const UserClient& client() const noexcept { return *client_; }
    /// The client of the account, whichever profile is in use: it knows the profiles.
    const UserClient& accountClient() const noexcept { return *accountClient_; }
    RequestLog& log() const noexcept { return *log_; }

    /// Empty if no one is signed in.
    std::optional<std::string> account() const { return accountContext_->uid(); }
    /// The profile in use, which has data of its own: the account itself, or one of its family.
    std::optional<std::string> profile() const { return context_->uid(); }

    void signIn(std::string account);
    void signOut();
    void useProfile(std::string uid) { context_->setUID(std::move(uid)); }

private:
    std::string session_;
    std::shared_ptr<RequestLog> log_ = std::make_shared<RequestLog>();
    std::shared_ptr<SignedInContext> context_;
    std::shared_ptr<SignedInContext> accountContext_;
    RecommendationsContext recommendations_;
    std::shared_ptr<UserClient> client_;
    std::shared_ptr<UserClient> accountClient_;
};

/// All browsers, by their cookies. The one that was idle longest is forgotten if there are too many.
class Users {
public:
    static constexpr std::size_t maxUsers = 500;

    explicit Users(const Service& service) : service_(service) {}

    /// The user with that cookie; a new one, with a new cookie, if there is none.
    std::shared_ptr<User> user(const std::string& session);

private:
    using Recent = std::list<std::shared_ptr<User>>;

    const Service& service_;
    /// The last one used first.
    Recent recent_{};
    std::map<std::string, Recent::iterator, std::less<>> bySession_{};
};

/// Whether a text can be the name of an account: letters, digits and a few signs, not too many.
bool isAccountName(const std::string& text);

}  // namespace living_room
