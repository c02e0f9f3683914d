#pragma once

/// \file
/// `TrelvoContext`: the host's configuration of the user data service.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/trelvo/Common/RouteValues.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// A context that also knows who is signed in. The host implements it, inheriting virtually.
class VRK_EXPORT TrelvoContext : public virtual Context {
public:
    ~TrelvoContext() override;

    /// The signed-in user; empty when nobody is. A text without characters is a user.
    virtual std::optional<std::string> uid() const = 0;
    /// Which system asks.
    virtual SourceSystem source() const = 0;

protected:
    TrelvoContext() = default;
    TrelvoContext(const TrelvoContext&) = default;
    TrelvoContext& operator=(const TrelvoContext&) = default;
};

}  // namespace VanticRestKit
