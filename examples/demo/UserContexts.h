#pragma once

#include "HostContext.h"

#include <VanticRestKit/recs/RecsContext.h>
#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

#include <optional>
#include <string>
#include <utility>

namespace demo {

/// The host's context for the data of the signed-in user.
class UserContext final : public HostContext, public VanticRestKit::TrelvoContext {
public:
    UserContext(const HostContext& host, std::optional<std::string> uid)
        : HostContext(host), uid_(std::move(uid)) {}

    std::optional<std::string> uid() const override { return uid_; }
    VanticRestKit::SourceSystem source() const override { return VanticRestKit::SourceSystem::lumeno; }

private:
    std::optional<std::string> uid_;
};

/// The host's context for recommendations. It is separate from that for user data because every request of this one
/// contains the API key.
class RecommendationsContext final : public HostContext, public VanticRestKit::RecsContext {
public:
    explicit RecommendationsContext(const HostContext& host) : HostContext(host) {}

    std::string apiKey() const override { return "demo"; }
};

}  // namespace demo
