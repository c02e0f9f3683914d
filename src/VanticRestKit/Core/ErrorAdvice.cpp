#include <VanticRestKit/Core/ErrorAdvice.h>

#include <VanticRestKit/Core/detail/ErrorRules.h>
#include <VanticRestKit/Core/detail/RetryAfter.h>
#include <VanticRestKit/Core/NetworkError.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>

namespace VanticRestKit {

namespace {

struct Judged {
    detail::ErrorRule rule{};
    /// The error that the advice is based on.
    Error error;
};

Judged judge(const Error& error) {
    std::optional<Error> current = error;
    while (current) {
        if (const auto rule = detail::errorRuleOf(*current)) return {.rule = *rule, .error = *current};
        current = current->underlyingError();
    }
    return {.error = error};
}

std::optional<std::chrono::duration<double>> retryAfterOf(const Error& error, std::optional<Date> now) {
    const auto* network = error.as<NetworkError>();
    const auto response = network != nullptr ? network->response() : nullptr;
    const auto header = response ? response->value("Retry-After") : std::nullopt;
    if (!header) return std::nullopt;
    return detail::waitOf(*header, now ? *now : Date(std::chrono::system_clock::now()));
}

}  // namespace

ErrorAdvice adviceOn(const Error& error, const AdviceOptions& options) {
    const Judged judged = judge(error);
    ErrorAdvice advice{.category = judged.rule.category, .mayTryAgain = judged.rule.mayTryAgain};
    if (advice.mayTryAgain) advice.retryAfter = retryAfterOf(judged.error, options.now);
    const auto own = options.sentences.find(advice.category);
    advice.sentence = own != options.sentences.end() ? own->second : std::string(sentenceOf(advice.category));
    return advice;
}

ErrorCategory categoryOf(const Error& error) { return judge(error).rule.category; }

std::string_view sentenceOf(ErrorCategory category) noexcept {
    switch (category) {
        case ErrorCategory::offline: return "There is no connection. Check your network and try again.";
        case ErrorCategory::timedOut: return "The service took too long to answer. Please try again.";
        case ErrorCategory::cancelled: return "This was cancelled.";
        case ErrorCategory::insecure:
            return "No secure connection could be made. Check your network and the date of your device.";
        case ErrorCategory::unauthorized: return "Please sign in and try again.";
        case ErrorCategory::forbidden: return "This is not available to you.";
        case ErrorCategory::notFound: return "This is not available any more.";
        case ErrorCategory::tooManyRequests:
            return "The service is busy. Please wait a moment and try again.";
        case ErrorCategory::serverFailed: return "The service has a problem. Please try again later.";
        case ErrorCategory::badAnswer:
            return "The service sent something that cannot be shown. Updating the app may help.";
        case ErrorCategory::wrongUse: return "The app made a mistake. Updating it may help.";
        case ErrorCategory::unknown: break;
    }
    return "Something went wrong.";
}

}  // namespace VanticRestKit
