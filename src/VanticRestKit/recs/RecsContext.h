#pragma once

/// \file
/// `RecsContext`: the host's configuration of the recommendation service.

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>

namespace VanticRestKit {

/// A context with the API key of the recommendation service. The host implements it and inherits virtually.
class VRK_EXPORT RecsContext : public virtual Context {
public:
    ~RecsContext() override;

    /// The API key of the application. Not stored by the library.
    virtual std::string apiKey() const = 0;

    /// The request for a path below `baseURL`, with `apikey` as the last query item. Only `additionalHTTPHeaders` are
    /// sent; the headers of the context are not added.
    std::optional<URLRequest> generateURLRequest(URLRequestArguments arguments) const override;

protected:
    RecsContext() = default;
    RecsContext(const RecsContext&) = default;
    RecsContext& operator=(const RecsContext&) = default;
};

}  // namespace VanticRestKit
