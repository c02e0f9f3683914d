#pragma once

#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

#include <optional>
#include <string>
#include <utility>

#include "operations/Host.h"

namespace vantic {

/// The context of the command line for the user data service.
class UserHost final : public Host, public VanticRestKit::TrelvoContext {
public:
    /// `uid` is empty if no user is signed in.
    UserHost(CommonOptions common, std::optional<std::string> uid, Serve serve)
        : Host(std::move(common), std::move(serve)), uid_(std::move(uid)) {}

    std::optional<std::string> uid() const override { return uid_; }
    VanticRestKit::SourceSystem source() const override { return VanticRestKit::SourceSystem::lumeno; }

private:
    std::optional<std::string> uid_;
};

}  // namespace vantic
