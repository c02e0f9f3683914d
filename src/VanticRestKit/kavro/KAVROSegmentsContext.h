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
class VRK_EXPORT KAVROSegmentsContext : public virtual Context {
public:
    ~KAVROSegmentsContext() override;

    virtual std::string apiKey() const = 0;
    virtual std::string accessToken() const = 0;

    /// By default `content-type`, `x-api-key` and `Authorization`.
    std::map<std::string, std::string> HTTPHeaderFields() const override;

protected:
    KAVROSegmentsContext() = default;
    KAVROSegmentsContext(const KAVROSegmentsContext&) = default;
    KAVROSegmentsContext& operator=(const KAVROSegmentsContext&) = default;
};

}  // namespace VanticRestKit
