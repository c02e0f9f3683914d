#pragma once

/// \file
/// `TrelvoContextAuthDecorator`: a context with a token for the wire.

#include <VanticRestKit/trelvo/Common/TrelvoContext.h>
#include <VanticRestKit/Visibility.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace VanticRestKit {

/// A context that is another one with a token. Lives within one call: it refers to the context that it decorates.
///
/// With a token it sets the headers `Authorization` and `Content-Type`, the latter for a form, whatever the body.
/// All else is the decorated context's, but for `logError`, which it leaves at nobody; the service that the
/// decorated context makes reports to that context's own.
class VRK_EXPORT TrelvoContextAuthDecorator final : public virtual TrelvoContext {
public:
    /// Decorates a context, which must live as long. Without a token the headers are those of the context.
    TrelvoContextAuthDecorator(const TrelvoContext& decoratedContext, std::optional<std::string> bearerToken)
        : decoratedContext_(decoratedContext), bearerToken_(std::move(bearerToken)) {}

    /// The context that is decorated.
    const TrelvoContext& decoratedContext() const noexcept { return decoratedContext_; }
    /// Empty where no header is to be set. A text without characters is a token.
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
