#pragma once

/// \file
/// A context whose requests go to a `FakeSession`.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/NetworkServiceble.h>

#include <Core/FakeSession.h>

namespace VanticRestKit::test {

inline URL url(const char* text) {
    const std::optional<URL> made = URL::make(text);
    EXPECT_TRUE(made.has_value()) << text;
    return *made;
}

/// Overrides only what a host must override.
class MinimalContext : public virtual Context {
public:
    URL baseURL() const override { return url("https://api.example.test"); }
};

/// Sends its requests to `session`.
class FakeContext : public virtual Context {
public:
    URL baseURL() const override { return base; }
    std::map<std::string, std::string> HTTPHeaderFields() const override { return headers; }
    double requestTimeout() const override {
        ++timeoutReads;
        return timeout;
    }
    LogError logError() const override { return log; }
    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
        ++services;
        return NetworkServiceble::make(
            {.with = std::move(arguments.withURLRequest), .and_ = session, .logError = logError()});
    }

    URL base = url("https://api.example.test");
    std::map<std::string, std::string> headers{};
    double timeout = 30.0;
    LogError log{};
    std::shared_ptr<FakeSession> session = std::make_shared<FakeSession>();
    mutable int services = 0;
    mutable int timeoutReads = 0;
};

}  // namespace VanticRestKit::test
