#pragma once

// What every recipe has: a context for the address that its command line names.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

#include <optional>
#include <string>
#include <utility>

namespace recipes {

class Host : public virtual VanticRestKit::Context {
public:
    explicit Host(VanticRestKit::URL baseURL) : baseURL_(std::move(baseURL)) {}
    VanticRestKit::URL baseURL() const override { return baseURL_; }

    /// The host of `program BASE-URL`; empty if the command line is another.
    static std::optional<Host> of(int argc, char** argv) {
        const auto baseURL = argc == 2 ? VanticRestKit::URL::make(argv[1]) : std::nullopt;
        if (!baseURL) return std::nullopt;
        return Host(*baseURL);
    }

private:
    VanticRestKit::URL baseURL_;
};

/// The same host with a user who is signed in.
class UserHost final : public Host, public VanticRestKit::TrelvoContext {
public:
    UserHost(const Host& host, std::string uid) : Host(host), uid_(std::move(uid)) {}
    std::optional<std::string> uid() const override { return uid_; }
    VanticRestKit::SourceSystem source() const override { return VanticRestKit::SourceSystem::lumeno; }

private:
    std::string uid_;
};

}  // namespace recipes
