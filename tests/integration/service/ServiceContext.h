#pragma once

/// \file
/// A host's context for the sample service, and functions that wait for loads.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/platform/http/URLSession.h>

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <map>
#include <memory>
#include <string>
#include <utility>

namespace VanticRestKit::test {

class ServiceContext : public virtual Context {
public:
    /// `authorityFile`: for https, the file with the trusted certificate.
    explicit ServiceContext(const std::string& base, const std::string& authorityFile = {})
        : base_(*URL::make(base)) {
        URLSessionConfiguration configuration;
        if (!authorityFile.empty()) configuration.caBundlePath = authorityFile;
        session_ = networkSession(URLSession::make(configuration));
    }

    URL baseURL() const override { return base_; }
    std::map<std::string, std::string> HTTPHeaderFields() const override { return headers; }
    double requestTimeout() const override { return timeout; }
    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
        return NetworkServiceble::make(
            {.with = std::move(arguments.withURLRequest).value(), .and_ = session_, .logError = logError()});
    }

    std::map<std::string, std::string> headers{};
    double timeout = 30.0;

private:
    URL base_;
    std::shared_ptr<NetworkSession> session_;
};

/// The outcome of a load. Empty if there is no request or no outcome within a minute.
template <class T>
std::optional<Result<T, LoaderError>> outcomeOf(const std::optional<Resource<T>>& resource) {
    EXPECT_TRUE(resource.has_value()) << "no request can be made";
    if (!resource) return std::nullopt;
    const auto arrived = std::make_shared<std::promise<Result<T, LoaderError>>>();
    auto outcome = arrived->get_future();
    resource->load(
        {.with = [arrived](Result<T, LoaderError> result) { arrived->set_value(std::move(result)); }});
    if (outcome.wait_for(std::chrono::minutes(1)) == std::future_status::ready) return outcome.get();
    ADD_FAILURE() << "no outcome within a minute";
    return std::nullopt;
}

/// The value of a load. Fails the current test if the load fails.
template <class T>
std::optional<T> valueOf(const std::optional<Resource<T>>& resource) {
    auto outcome = outcomeOf(resource);
    if (!outcome) return std::nullopt;
    EXPECT_TRUE(outcome->has_value()) << outcome->error().localizedDescription();
    if (!*outcome) return std::nullopt;
    return *std::move(*outcome);
}

/// The code of the `NetworkError` of a load that is expected to fail. 0 if it does not.
template <class T>
std::int64_t codeOf(const std::optional<Resource<T>>& resource) {
    const auto outcome = outcomeOf(resource);
    if (!outcome || *outcome || !outcome->error().underlyingError()) return 0;
    const auto* error = outcome->error().underlyingError()->template as<NetworkError>();
    return error != nullptr ? error->errorCode() : 0;
}

}  // namespace VanticRestKit::test
