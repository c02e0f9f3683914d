#include "User.h"

#include <algorithm>
#include <random>

namespace living_room {
namespace {

std::string newSession() {
    constexpr char digits[] = "0123456789abcdef";
    std::random_device random;
    std::string session;
    for (int i = 0; i < 32; ++i) session += digits[random() % 16];
    return session;
}

}  // namespace

User::User(const Service& service)
    : session(newSession()),
      log(std::make_shared<RequestLog>()),
      context(std::make_shared<BrowserContext>(service, log)),
      accountContext(std::make_shared<BrowserContext>(service, log)),
      client(UserClient::make(context)),
      accountClient(UserClient::make(accountContext)),
      recommendations(service, log) {}

void User::signIn(const std::string& account) {
    context->setUID(account);
    accountContext->setUID(account);
}

void User::signOut() {
    context->setUID(std::nullopt);
    accountContext->setUID(std::nullopt);
    client->signOut();
    accountClient->signOut();
}

std::shared_ptr<User> Users::user(const std::string& session) {
    const auto hasSession = [&](const auto& user) { return user->session == session; };
    auto found = std::find_if(users_.begin(), users_.end(), hasSession);
    if (found == users_.end()) {
        if (users_.size() == maxUsers) users_.pop_back();
        found = users_.insert(users_.end(), std::make_shared<User>(service_));
    }
    std::rotate(users_.begin(), found, found + 1);
    return users_.front();
}

}  // namespace living_room
