#pragma once

/// \file
/// A host's context of the user data service that counts the requests it builds.

#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

#include <trelvo/ScriptedSession.h>

namespace VanticRestKit::test {

/// Sends its requests to `session`. For one thread at a time.
class UserContext : public virtual TrelvoContext {
public:
    std::optional<std::string> uid() const override { return user; }
    SourceSystem source() const override { return SourceSystem::lumeno; }
    URL baseURL() const override { return *URL::make(base); }
    std::map<std::string, std::string> HTTPHeaderFields() const override { return headers; }
    double requestTimeout() const override { return timeout; }
    LogError logError() const override { return log; }
    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override {
        return NetworkServiceble::make(
            {.with = std::move(arguments.withURLRequest), .and_ = session, .logError = logError()});
    }
    std::optional<URLRequest> generateURLRequest(URLRequestArguments arguments) const override {
        const bool isToken = arguments.usingPath.value() == "v2/token";
        ++(isToken ? tokenRequests : dataRequests);
        if (isToken ? !buildsTokenRequest : !buildsDataRequest) return std::nullopt;
        return TrelvoContext::generateURLRequest(std::move(arguments));
    }

    std::optional<std::string> user = "u1";
    std::string base = "https://user.example.test";
    std::map<std::string, std::string> headers{};
    double timeout = 30.0;
    LogError log{};
    std::shared_ptr<NetworkSession> session{};
    bool buildsTokenRequest = true;
    bool buildsDataRequest = true;
    /// The number of requests built. They are built before an operation returns.
    mutable int tokenRequests = 0;
    mutable int dataRequests = 0;
};

}  // namespace VanticRestKit::test
