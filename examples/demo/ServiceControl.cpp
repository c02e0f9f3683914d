#include "ServiceControl.h"

#include <VanticRestKit/Core/NetworkURLSession.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/http/cache/URLCache.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <future>
#include <memory>
#include <optional>
#include <utility>

namespace demo {

using namespace VanticRestKit;

ServiceControl::ServiceControl(URL baseURL) : baseURL_(std::move(baseURL)) {}

bool ServiceControl::addFault(const std::string& path, const std::string& details) const {
    // Otherwise a response that is still fresh in the cache would hide the fault.
    URLCache::shared()->removeAllCachedResponses();
    return post("_control/faults", R"({"path":")" + path + R"(",)" + details + "}");
}

bool ServiceControl::stop() const { return post("_control/stop", "{}"); }

bool ServiceControl::post(const std::string& path, const std::string& body) const {
    URLRequest request(baseURL_.appendingPathComponent(path));
    request.setHTTPMethod("POST");
    request.setHTTPBody(Data(body));
    request.setValue("application/json", "Content-Type");

    const auto done = std::make_shared<std::promise<bool>>();
    NetworkURLSession::sharedInstance()
        .urlSesion
        ->dataTask(
            request,
            [done](std::optional<Data>, std::shared_ptr<const URLResponse> response, std::optional<Error>) {
                const auto* answer = response ? response->asHTTP() : nullptr;
                done->set_value(answer != nullptr && answer->statusCode() == 200);
            })
        ->resume();
    return done->get_future().get();
}

}  // namespace demo
