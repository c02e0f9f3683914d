#include "Context.h"

namespace living_room {

using namespace std::chrono_literals;

namespace {

std::shared_ptr<URLSession> makeSession() {
    auto configuration = URLSessionConfiguration::default_();
    configuration.urlCache = URLCache::make(64 * 1024 * 1024);
    configuration.timeoutIntervalForResource = 1min;
    // One session serves many browsers: what the service tells one of them by a cookie is not the others' business.
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

std::optional<std::string> Service::pathOf(const std::optional<std::string>& address) const {
    std::string base = baseURL_.absoluteString();
    if (!base.ends_with('/')) base += '/';
    if (!address || !address->starts_with(base)) return std::nullopt;
    return address->substr(base.size());
}

CatalogueContext::CatalogueContext(const Service& service, std::shared_ptr<RequestObserver> observer)
    : baseURL_(service.baseURL()), network_(service.network()), observer_(std::move(observer)) {}

std::shared_ptr<Serviceable> CatalogueContext::service(ServiceArguments arguments) const {
    return NetworkServiceble::make(
        {.with = std::move(arguments.withURLRequest), .and_ = network_, .logError = logError()});
}

}  // namespace living_room
