#include "User.h"

#include <algorithm>
#include <random>

namespace living_room {

namespace {

/// A value that cannot be guessed: 128 bits of the system's randomness.
std::string newSession() {
    constexpr char digits[] = "0123456789abcdef";
    std::random_device random;
    std::string session;
    for (int i = 0; i < 32; ++i) session += digits[random() % 16];
    return session;
}

}  // namespace

User::User(const Service& service, std::string session)
    : session_(std::move(session)),
      context_(std::make_shared<SignedInContext>(service, log_)),
      accountContext_(std::make_shared<SignedInContext>(service, log_)),
      recommendations_(service, log_),
      client_(UserClient::make(context_)),
      accountClient_(UserClient::make(accountContext_)) {}

void User::signIn(std::string account) {
    context_->setUID(account);
    accountContext_->setUID(std::move(account));
}

void User::signOut() {
    context_->setUID(std::nullopt);
    accountContext_->setUID(std::nullopt);
    client_->signOut();
    accountClient_->signOut();
}

std::shared_ptr<User> Users::user(const std::string& session) {
    if (const auto found = bySession_.find(session); found != bySession_.end()) {
        recent_.splice(recent_.begin(), recent_, found->second);
        return recent_.front();
    }
    if (recent_.size() == maxUsers) {
        bySession_.erase(recent_.back()->session());
        recent_.pop_back();
    }
    recent_.push_front(std::make_shared<User>(service_, newSession()));
    bySession_.emplace(recent_.front()->session(), recent_.begin());
    return recent_.front();
}

bool isAccountName(const std::string& text) {
    const auto isPlain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '.';
    };
    return !text.empty() && text.size() <= 40 && std::all_of(text.begin(), text.end(), isPlain);
}

}  // namespace living_room
