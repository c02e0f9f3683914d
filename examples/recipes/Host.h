#pragma once

// The context that all recipes share; its base URL is the command-line argument.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/NetworkServiceble.h>
#include <VanticRestKit/Core/NetworkSession.h>
#include <VanticRestKit/platform/http/URLSession.h>
#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace recipes {

class Host : public virtual VanticRestKit::Context {
public:
    explicit Host(VanticRestKit::URL baseURL) : baseURL_(std::move(baseURL)) {}
    VanticRestKit::URL baseURL() const override { return baseURL_; }

    /// Uses a session whose loads take at most five minutes. By default a server that sends a byte now and then could
    /// keep a load going for days.
    std::shared_ptr<VanticRestKit::Serviceable> service(ServiceArguments arguments) const override {
        return VanticRestKit::NetworkServiceble::make(
            {.with = std::move(arguments.withURLRequest), .and_ = session(), .logError = logError()});
    }

    /// The host for `program BASE-URL`; empty if the command line is invalid.
    static std::optional<Host> of(int argc, char** argv) {
        const auto baseURL = argc == 2 ? VanticRestKit::URL::make(argv[1]) : std::nullopt;
        if (!baseURL) return std::nullopt;
        return Host(*baseURL);
    }

private:
    static std::shared_ptr<VanticRestKit::NetworkSession> session() {
        static const auto shared = [] {
            auto configuration = VanticRestKit::URLSessionConfiguration::default_();
            configuration.timeoutIntervalForResource = std::chrono::minutes(5);
            return VanticRestKit::networkSession(VanticRestKit::URLSession::make(configuration));
        }();
        return shared;
    }

    VanticRestKit::URL baseURL_;
};

/// The same host with a signed-in user.
class UserHost final : public Host, public VanticRestKit::TrelvoContext {
public:
    UserHost(const Host& host, std::string uid) : Host(host), uid_(std::move(uid)) {}
    std::optional<std::string> uid() const override { return uid_; }
    VanticRestKit::SourceSystem source() const override { return VanticRestKit::SourceSystem::lumeno; }

private:
    std::string uid_;
};

}  // namespace recipes
