#include "Round.h"

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/HrefURI.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/Core/Retrying.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Link/LinkEndpoints.h>
#include <VanticRestKit/lumeno/Video/Video.h>
#include <VanticRestKit/platform/http/cache/URLCache.h>
#include <VanticRestKit/platform/http/URLSession.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>

#include <support/PlainOrigin.h>

#include <array>
#include <chrono>
#include <future>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace VanticRestKit::test {

namespace {

using namespace std::chrono_literals;

class HostContext : public virtual Context {
public:
    HostContext(const std::string& base, const URLSessionConfiguration& configuration)
        : base_(*URL::make(base)), session_(networkSession(URLSession::make(configuration))) {}

    URL baseURL() const override { return base_; }
    std::map<std::string, std::string> HTTPHeaderFields() const override { return {{probeHeader, "tide"}}; }
    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
        const URLRequest request = arguments.withURLRequest;
        std::shared_ptr<Serviceable> once = NetworkServiceble::make(
            {.with = std::move(arguments.withURLRequest).value(), .and_ = session_, .logError = logError()});
        if (!policy) return once;
        return retrying({.service = std::move(once), .request = request, .policy = *policy});
    }

    std::optional<RetryPolicy> policy{};

private:
    URL base_;
    std::shared_ptr<NetworkSession> session_;
};

// The configuration of all scenarios. Each has a cache of its own, so that no load gets a response of another one.
URLSessionConfiguration configurationOf(const RoundSetting& setting) {
    URLSessionConfiguration configuration;
    configuration.caBundlePath = setting.folder + "/authority.pem";
    configuration.urlCache = URLCache::make();
    return configuration;
}

RoundOutcome judge(const std::optional<Resource<Video>>& resource, std::string_view cookie) {
    using Kind = RoundOutcome::Kind;
    if (!resource) return {Kind::wrong, "no request can be made"};
    const Result<Video, LoaderError> outcome = resource->wait();
    if (!outcome) return {Kind::error, outcome.error().localizedDescription()};
    const auto expected = JSONDecoder().decode<Video>(Data(videoDocument("tide", cookie)));
    if (!expected) return {Kind::wrong, "the document does not decode"};
    return *outcome == *expected ? RoundOutcome{} : RoundOutcome{Kind::wrong, "another value"};
}

std::string at(const char* scheme, const char* host, std::uint16_t port) {
    return std::string(scheme) + host + ':' + std::to_string(port);
}

// Looks up a name (one that needs no network), follows a redirect, stores a cookie, decompresses a body and decodes a
// document.
RoundOutcome loadPlain(const RoundSetting& setting) {
    const HostContext context(at("http://", "127.1", setting.addresses.plain), configurationOf(setting));
    return judge(Endpoint::Video({.houseNumber = std::to_string(setting.number)}, context), "crumb=42");
}

// The same with TLS, but without looking up a name.
RoundOutcome loadSecure(const RoundSetting& setting) {
    const HostContext context(at("https://", "127.0.0.1", setting.addresses.secure),
                              configurationOf(setting));
    return judge(Endpoint::Video({.houseNumber = std::to_string(setting.number)}, context), "crumb=42");
}

// The first load stores its response on disk, and the second one is answered from there.
RoundOutcome loadKept(const RoundSetting& setting) {
    for (int time = 0; time < 2; ++time) {
        URLSessionConfiguration configuration = configurationOf(setting);
        configuration.urlCache = URLCache::makeOnDisk(
            {.folder = setting.folder + "/cache", .diskCapacity = 1024 * 1024, .memoryCapacity = 0});
        const HostContext context(at("http://", "127.0.0.1", setting.addresses.plain), configuration);
        RoundOutcome outcome = judge(
            Endpoint::Resource<Video>({.withHref = "kept/" + std::to_string(setting.number)}, context), "");
        if (outcome.kind != RoundOutcome::Kind::value) return outcome;
        configuration.urlCache->flush();
    }
    return {};
}

// The first attempt fails, and the second one starts after a pause.
RoundOutcome loadAgain(const RoundSetting& setting) {
    HostContext context(at("http://", "127.0.0.1", setting.addresses.plain), configurationOf(setting));
    context.policy = RetryPolicy{.firstPause = 2ms};
    return judge(Endpoint::Resource<Video>({.withHref = "later/" + std::to_string(setting.number)}, context),
                 "");
}

// Two streams of one HTTP/2 connection, and a body of several frames.
RoundOutcome loadStreams(const RoundSetting& setting) {
    struct Answer {
        std::optional<Data> data;
        std::optional<Error> error;
    };
    const auto session = URLSession::make(configurationOf(setting));
    std::array<std::string, 2> targets;
    std::array<std::future<Answer>, 2> answers;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        constexpr std::size_t size = 50'000;
        targets[i] = targetFor(size, 2 * static_cast<std::size_t>(setting.number) + i);
        auto promise = std::make_shared<std::promise<Answer>>();
        answers[i] = promise->get_future();
        session
            ->dataTask(
                URLRequest(*URL::make(at("https://", "127.0.0.1", setting.addresses.http2) + targets[i])),
                [promise](std::optional<Data> data, const std::shared_ptr<const URLResponse>&,
                          std::optional<Error> error) {
                    promise->set_value({std::move(data), std::move(error)});
                })
            ->resume();
    }
    RoundOutcome outcome;
    for (std::size_t i = 0; i < targets.size(); ++i) {
        const Answer answer = answers[i].get();
        if (answer.error) {
            outcome = {RoundOutcome::Kind::error, answer.error->localizedDescription()};
        } else if (!answer.data || answer.data->view() != bodyFor(targets[i])) {
            return {RoundOutcome::Kind::wrong, "another body"};
        }
    }
    return outcome;
}

constexpr std::array<Scenario, 5> all{{
    {"plain", &loadPlain},
    {"secure", &loadSecure},
    {"kept", &loadKept},
    {"again", &loadAgain},
    {"streams", &loadStreams},
}};

}  // namespace

std::span<const Scenario> scenarios() { return all; }

}  // namespace VanticRestKit::test
