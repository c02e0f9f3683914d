#pragma once

/// \file
/// `KAVROSegmentsContext`: the host's configuration of the audience segments.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Visibility.h>

#include <map>
#include <string>

namespace VanticRestKit {

/// A context with the API key and access token of the segments service. The host implements it and inherits virtually.
/// The library stores neither value.
///
/// Header names are compared exactly. If the same object is also a `TrelvoContext`, requests to the user data service
/// have these headers too. Their `Content-Type` does not replace the `content-type` of this context: both are sent as
/// one header, with the two content types joined by a comma. A host that needs a single content type uses separate
/// contexts for the two services.
class VRK_EXPORT KAVROSegmentsContext : public virtual Context {
public:
    ~KAVROSegmentsContext() override;

    /// The API key of the application. Not stored by the library.
    virtual std::string apiKey() const = 0;
    /// The access token of the user. Not stored by the library.
    virtual std::string accessToken() const = 0;

    /// The headers `content-type`, `x-api-key` and `Authorization` by default.
    std::map<std::string, std::string> HTTPHeaderFields() const override;

protected:
    KAVROSegmentsContext() = default;
    KAVROSegmentsContext(const KAVROSegmentsContext&) = default;
    KAVROSegmentsContext& operator=(const KAVROSegmentsContext&) = default;
};

}  // namespace VanticRestKit
