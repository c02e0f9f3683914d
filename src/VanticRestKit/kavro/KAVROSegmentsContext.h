#pragma once

/// \file
/// `KAVROSegmentsContext`: the host's configuration of the audience segments.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Visibility.h>

#include <map>
#include <string>

namespace VanticRestKit {

/// A context that also has the key and the token of the segments service. The host implements it, inheriting
/// virtually; the library stores neither.
///
/// Header names compare exactly. If one host object is also a `TrelvoContext`, requests of the user data service carry
/// these headers too, and its `Content-Type` does not replace the `content-type` of this context: they are sent as one
/// header with the two content types joined by a comma. A host that wants a single type gives the two services contexts
/// of their own.
class VRK_EXPORT KAVROSegmentsContext : public virtual Context {
public:
    ~KAVROSegmentsContext() override;

    /// The key of the application. Not stored by the library.
    virtual std::string apiKey() const = 0;
    /// The user's token. Not stored by the library.
    virtual std::string accessToken() const = 0;

    /// By default `content-type`, `x-api-key` and `Authorization`.
    std::map<std::string, std::string> HTTPHeaderFields() const override;

protected:
    KAVROSegmentsContext() = default;
    KAVROSegmentsContext(const KAVROSegmentsContext&) = default;
    KAVROSegmentsContext& operator=(const KAVROSegmentsContext&) = default;
};

}  // namespace VanticRestKit
