#pragma once

/// \file
/// `TrelvoContextAuthDecorator`: adds a token to the requests of a context.

#include <VanticRestKit/trelvo/Common/TrelvoContext.h>
#include <VanticRestKit/Visibility.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit {

/// Decorates a context with a token. Used within one call, because it only refers to the decorated context.
///
/// With a token, it sets the headers `Authorization` and, for any body, `Content-Type` to that of a form. Everything
/// else is forwarded to the decorated context except `logError`, which is empty here. The service that the decorated
/// context creates still uses that context's own `logError`.
class VRK_EXPORT TrelvoContextAuthDecorator final : public virtual TrelvoContext {
public:
    /// `decoratedContext` must outlive this object. Without a token, the headers are unchanged.
    TrelvoContextAuthDecorator(const TrelvoContext& decoratedContext, std::optional<std::string> bearerToken)
        : decoratedContext_(decoratedContext), bearerToken_(std::move(bearerToken)) {}

    /// The decorated context.
    const TrelvoContext& decoratedContext() const noexcept { return decoratedContext_; }
    /// The token; empty if no header is set. An empty string counts as a token.
    const std::optional<std::string>& bearerToken() const noexcept { return bearerToken_; }

    std::optional<std::string> uid() const override;
    SourceSystem source() const override;
    URL baseURL() const override;
    std::map<std::string, std::string> HTTPHeaderFields() const override;
    double requestTimeout() const override;
    std::shared_ptr<Serviceable> service(ServiceArguments arguments) const override;
    std::optional<URLRequest> generateURLRequest(URLRequestArguments arguments) const override;
    const ObservableContext* asObservable() const noexcept override {
        return decoratedContext_.asObservable();
    }

private:
    const TrelvoContext& decoratedContext_;
    std::optional<std::string> bearerToken_;
};

}  // namespace VanticRestKit
