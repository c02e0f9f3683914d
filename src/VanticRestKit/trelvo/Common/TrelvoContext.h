#pragma once

/// \file
/// `TrelvoContext`: the host's configuration of the user data service.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/trelvo/Common/RouteValues.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// A context with the signed-in user. The host implements it and inherits virtually.
///
/// A request with a token sets `Content-Type` to "application/x-www-form-urlencoded" and `Authorization` to the token,
/// and replaces headers with exactly these names. If the same object is also a `KAVROSegmentsContext`, whose default
/// header is `content-type`, both are sent as one header, with the two content types joined by a comma. A host that
/// needs a single content type uses separate contexts for the two services.
class VRK_EXPORT TrelvoContext : public virtual Context {
public:
    ~TrelvoContext() override;

    /// The id of the signed-in user; empty if no user is signed in. An empty string counts as signed in.
    virtual std::optional<std::string> uid() const = 0;
    /// The system that requests user data.
    virtual SourceSystem source() const = 0;

protected:
    TrelvoContext() = default;
    TrelvoContext(const TrelvoContext&) = default;
    TrelvoContext& operator=(const TrelvoContext&) = default;
};

}  // namespace VanticRestKit
