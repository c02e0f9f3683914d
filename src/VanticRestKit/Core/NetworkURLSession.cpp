#include <VanticRestKit/Core/NetworkURLSession.h>
#include <VanticRestKit/platform/http/URLSession.h>

namespace VanticRestKit {

namespace {

NetworkURLSession makeInstance() {
    URLSessionConfiguration configuration = URLSessionConfiguration::default_();
    configuration.requestCachePolicy = URLRequestCachePolicy::useProtocolCachePolicy;
    configuration.timeoutIntervalForRequest = URLRequest::Seconds(30.0);
    return {.urlSesion = URLSession::make(configuration),
            .sessionURLConfig = configuration,
            .sessionQueue = {.name = "dev.vantic.NetworkSesionQueue"}};
}

}  // namespace

const NetworkURLSession& NetworkURLSession::sharedInstance() {
    static const NetworkURLSession& instance = *new NetworkURLSession(makeInstance());
    return instance;
}

}  // namespace VanticRestKit
