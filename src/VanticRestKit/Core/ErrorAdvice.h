#pragma once

/// \file
/// `adviceOn`: what to do about any error.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/error/ErrorCategory.h>
#include <VanticRestKit/Visibility.h>

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit {

/// What to do about an error.
struct ErrorAdvice {
    /// What kind of failure it is.
    ErrorCategory category = ErrorCategory::unknown;

    /// Whether the same request may succeed later without any change.
    bool mayTryAgain = false;

    /// The minimum time to wait before a retry, in seconds, at least zero: the `Retry-After` of the answer. Empty if
    /// there is none or it cannot be parsed, or if `mayTryAgain` is false.
    std::optional<std::chrono::duration<double>> retryAfter{};

    /// A non-technical sentence for the viewer.
    std::string sentence{};
};

/// The application's own sentences instead of the English ones. A category without one keeps the English sentence.
using ErrorSentences = std::map<ErrorCategory, std::string>;

/// The options of `adviceOn`.
struct AdviceOptions {
    /// Sentences that replace the English ones.
    ErrorSentences sentences{};
    /// The current time, used for a `Retry-After` with a date. Empty: the system clock.
    std::optional<Date> now{};
};

/// What to do about `error`: a `LoaderError`, `NetworkError`, `TrelvoError`, `DecodingError`, `NSError`, any other
/// error of the library, or an error type of the application that meets `ErrorType`.
///
/// For an error that only wraps another one, the innermost error decides, so that all forms of a load give the same
/// advice for the same fault. `docs/errors.md` has the complete table. Any thread may call.
///
///     if (!result) show(adviceOn(result.error()).sentence);
VRK_EXPORT ErrorAdvice adviceOn(const Error& error, const AdviceOptions& options = {});

/// Only the category: `adviceOn(error).category`.
VRK_EXPORT ErrorCategory categoryOf(const Error& error);

/// The English sentence for viewers for `category`.
VRK_EXPORT std::string_view sentenceOf(ErrorCategory category) noexcept;

}  // namespace VanticRestKit
