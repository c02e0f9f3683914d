#pragma once

/// \file
/// `RecsContext`: the host's configuration of the recommendation service.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// A context that also has the key to the recommendation service. The host implements it, inheriting virtually.
class VRK_EXPORT RecsContext : public virtual Context {
public:
    ~RecsContext() override;

    /// The key of the application. Not stored by the library.
    virtual std::string apiKey() const = 0;

    /// The request for a path below `baseURL`, with the item `apikey` behind all others. Only the headers that it
    /// is handed go out: the context's own are not merged in here.
    std::optional<URLRequest> generateURLRequest(URLRequestArguments arguments) const override;

protected:
    RecsContext() = default;
    RecsContext(const RecsContext&) = default;
    RecsContext& operator=(const RecsContext&) = default;
};

}  // namespace VanticRestKit
