#include "operations/TracedSession.h"

#include <VanticRestKit/platform/http/HTTPURLResponse.h>
#include <VanticRestKit/platform/http/RequestMetrics.h>

#include <chrono>
#include <cstdio>
#include <string>
#include <utility>

#include "Output.h"

namespace vantic {

using namespace VanticRestKit;

namespace {

std::string milliseconds(RequestMetrics::Duration duration) {
    char text[32];
    std::snprintf(text, sizeof text, "%.3f ms", std::chrono::duration<double, std::milli>(duration).count());
    return text;
}

void reportRecord(const RequestMetrics& metrics) {
    std::string line = "trace: " + metrics.method + " " + metrics.url + ": ";
    line += metrics.status ? std::to_string(*metrics.status) : std::string("no answer");
    line += std::string(" from ") + nameOf(metrics.source);
    if (metrics.firstByte) line += ", first byte after " + milliseconds(*metrics.firstByte);
    line += ", " + milliseconds(metrics.total) + " in all, ";
    line += std::to_string(metrics.bodyBytesReceived) + " bytes received, ";
    line += std::to_string(metrics.bodyBytesDecoded) + " bytes of content";
    report(line);
}

void reportFields(const URLResponse* response) {
    const HTTPURLResponse* const head = response != nullptr ? response->asHTTP() : nullptr;
    if (head == nullptr) return;
    if (const auto status = head->cacheStatusValue()) report("trace: (Cache-Status: " + *status + ")");
    for (const auto& [name, value] : head->allHeaderFields()) report("trace: " + name + ": " + value);
}

class TracedSession final : public NetworkSession {
public:
    explicit TracedSession(std::shared_ptr<NetworkSession> session) : session_(std::move(session)) {}

    void loadData(LoadDataArguments arguments) override {
        session_->loadData({.fromURLRequest = std::move(arguments.fromURLRequest).value(),
                            .completionHandler =
                                [completion = std::move(arguments.completionHandler).value()](
                                    std::optional<Data> data, std::shared_ptr<const URLResponse> response,
                                    std::optional<Error> error) mutable {
                                    reportFields(response.get());
                                    completion(std::move(data), std::move(response), std::move(error));
                                },
                            .metrics =
                                [receiver = std::move(arguments.metrics)](const RequestMetrics& metrics) {
                                    reportRecord(metrics);
                                    if (receiver) receiver(metrics);
                                }});
    }

    DispatchQueue deliveryQueue() const override { return session_->deliveryQueue(); }

private:
    const std::shared_ptr<NetworkSession> session_;
};

}  // namespace

std::shared_ptr<NetworkSession> tracedSession(std::shared_ptr<NetworkSession> session) {
    return std::make_shared<TracedSession>(std::move(session));
}

}  // namespace vantic
