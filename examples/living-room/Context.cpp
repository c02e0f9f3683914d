#include "Context.h"

namespace living_room {

using namespace std::chrono_literals;

namespace {
std::shared_ptr<URLSession> makeSession() {
    auto configuration = URLSessionConfiguration::default_();
    configuration.urlCache = URLCache::make(64 * 1024 * 1024);
    configuration.timeoutIntervalForResource = 1min;
    // All browsers share this session, so a cookie that the service sets for one would be sent for the others.
    configuration.httpShouldSetCookies = false;
    configuration.httpCookieAcceptPolicy = HTTPCookieAcceptPolicy::never;
    return URLSession::make(configuration);
}

}  // namespace

Service::Service(URL baseURL, DispatchQueue loop)
    : baseURL_(std::move(baseURL)),
      loop_(std::move(loop)),
      session_(makeSession()),
      network_(networkSession(session_)) {}

Service::~Service() { session_->invalidateAndCancel(); }

LoadOptions Service::options(std::stop_token gone) const {
    return {.on = loop_, .deadline = 10s, .stop = std::move(gone)};
}

std::shared_ptr<Serviceable> BrowserContext::service(ServiceArguments arguments) const {
    return NetworkServiceble::make(
        {.with = std::move(arguments.withURLRequest), .and_ = network_, .logError = logError()});
}

}  // namespace living_room
