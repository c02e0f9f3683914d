// A request log: one line for each request, for each body that cannot be decoded, and for tolerated faults.
//   recipe_request_log BASE-URL

#include "Host.h"

#include <VanticRestKit/Core/ObservableContext.h>
#include <VanticRestKit/Core/RequestObserver.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Image/Image.h>

#include <chrono>
#include <cstdio>
#include <memory>

using namespace VanticRestKit;
using namespace std::chrono_literals;

class RequestLog final : public RequestObserver {
public:
    RequestLog() : RequestObserver({.explainedShare = 0.01}) {}

private:
    void requestEnded(const RequestMetrics& request) override {
        std::printf(
            "%s %s %lld %lld us, %lld bytes, %s\n", request.method.c_str(), request.url.c_str(),
            static_cast<long long>(request.error ? request.error->code() : request.status.value_or(0)),
            static_cast<long long>(request.total.count()), static_cast<long long>(request.bodyBytesReceived),
            nameOf(request.source));
    }
    void decodingFailed(const DecodingFailure& failure) override {
        std::printf("%s cannot be decoded as %s: %s\n", failure.url.c_str(), failure.typeName.c_str(),
                    failure.error.localizedDescription().c_str());
    }
    void documentExplained(const ExplainedDocument& document) override {
        std::printf("%s: %zu faults tolerated\n", document.url.c_str(), document.faults.size());
    }
};

class LoggingHost final : public recipes::Host, public ObservableContext {
public:
    explicit LoggingHost(const recipes::Host& host) : Host(host) {}
    std::shared_ptr<RequestObserver> observer() const override { return log_; }

private:
    std::shared_ptr<RequestLog> log_ = std::make_shared<RequestLog>();
};

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    if (!host) return 2;
    const LoggingHost logging(*host);
    const auto time = Endpoint::Time(logging)->wait({.deadline = 5s});
    const auto avatars = Endpoint::Avatars(logging)->wait({.deadline = 5s});
    return time && avatars ? 0 : 1;
}
