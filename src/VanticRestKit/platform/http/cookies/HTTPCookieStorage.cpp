#include <VanticRestKit/platform/http/cookies/HTTPCookieStorage.h>

#include <VanticRestKit/platform/http/cookies/detail/CookieJar.h>

#include <utility>

namespace VanticRestKit {

std::shared_ptr<HTTPCookieStorage> HTTPCookieStorage::make() {
    return detail::CookieJar::storage(detail::systemCookieClock);
}

std::shared_ptr<HTTPCookieStorage> HTTPCookieStorage::make(HTTPCookieFile file) {
    return detail::CookieJar::storage(detail::systemCookieClock, std::move(file));
}

HTTPCookieStorage::HTTPCookieStorage(std::shared_ptr<detail::CookieJar> jar) : jar_(std::move(jar)) {}

HTTPCookieStorage::~HTTPCookieStorage() = default;

std::vector<HTTPCookie> HTTPCookieStorage::cookies() const { return jar_->all(); }

std::vector<HTTPCookie> HTTPCookieStorage::cookies(const URL& forURL) const { return jar_->matching(forURL); }

bool HTTPCookieStorage::setCookie(HTTPCookie cookie) { return jar_->set(std::move(cookie)); }

void HTTPCookieStorage::deleteCookie(const HTTPCookie& cookie) { jar_->remove(cookie); }

void HTTPCookieStorage::removeAllCookies() { jar_->clear(); }

HTTPCookieAcceptPolicy HTTPCookieStorage::cookieAcceptPolicy() const { return jar_->policy(); }

void HTTPCookieStorage::setCookieAcceptPolicy(HTTPCookieAcceptPolicy policy) { jar_->setPolicy(policy); }

void HTTPCookieStorage::flush() { jar_->flush(); }

}  // namespace VanticRestKit
