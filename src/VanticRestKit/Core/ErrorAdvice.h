#pragma once

/// \file
/// `adviceOn`: what to do about an error, whichever it is.

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

    /// Whether the same request may succeed later, without a change by the application or its user.
    bool mayTryAgain = false;

    /// How long to wait at least before trying again, in seconds and not below zero: the `Retry-After` of the answer.
    /// Empty if the service named no time, or named one in a way that cannot be read, or if `mayTryAgain` is false.
    std::optional<std::chrono::duration<double>> retryAfter{};

    /// What to show a viewer, without technical words.
    std::string sentence{};
};

/// The sentences that an application shows in place of the English ones. A category that is not there keeps its own.
using ErrorSentences = std::map<ErrorCategory, std::string>;

/// What `adviceOn` takes beside the error.
struct AdviceOptions {
    /// Sentences that replace the English ones.
    ErrorSentences sentences{};
    /// The instant from which a `Retry-After` with a date counts. Empty: the clock of the system.
    std::optional<Date> now{};
};

/// What to do about `error`: a `LoaderError`, `NetworkError`, `TrelvoError`, `DecodingError`, `NSError`, any other
/// error of the library, or an error of the application's own that offers what `ErrorType` describes.
///
/// An error that only holds another one is looked through, however deep, so that the forms of a load give one advice
/// for one fault, whether they wrap it or not. `docs/errors.md` has the table of all of them. Any thread may call.
///
///     if (!result) show(adviceOn(result.error()).sentence);
VRK_EXPORT ErrorAdvice adviceOn(const Error& error, const AdviceOptions& options = {});

/// The category alone: `adviceOn(error).category`.
VRK_EXPORT ErrorCategory categoryOf(const Error& error);

/// The English sentence for viewers that goes with `category`.
VRK_EXPORT std::string_view sentenceOf(ErrorCategory category) noexcept;

}  // namespace VanticRestKit
