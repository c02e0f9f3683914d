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
///
/// A request with a token sets `Content-Type` to "application/x-www-form-urlencoded" and `Authorization` to the token,
/// in place of headers of exactly these names. If one host object is also a `KAVROSegmentsContext`, whose default header
/// is `content-type`, the request has both headers, and they are sent as one with the two content types joined by a
/// comma. A host that wants a single type gives the two services contexts of their own.
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
