#pragma once

/// \file
/// `StatusTheme`: how a badge is to be coloured.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/error/ErrorCategory.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <string>
#include <utility>

namespace VanticRestKit {

/// How a badge is to be coloured.
enum class StatusTheme { default_, live };

/// The raw texts of `StatusTheme`.
template <>
struct RawTexts<StatusTheme> {
    /// The cases with their names and raw texts, in case order.
    static constexpr RawCase<StatusTheme> cases[] = {
        {StatusTheme::default_, "default", "default"},
        {StatusTheme::live, "live", "live"},
    };
};

/// A badge shown on an entity. Title and theme must be there as texts; a theme that is not known is the default
/// one.
struct Status {
    class DecodingError;

    /// The title. Key `title`; must be there and be a string.
    std::string title{};
    /// How the screen is coloured. Key `theme`; must be there.
    StatusTheme theme{};

    friend bool operator==(const Status&, const Status&) = default;
};

/// What a badge could fail with. Nothing raises it: a theme that is not known is no failure.
class VRK_EXPORT Status::DecodingError {
public:
    /// A text that names no theme.
    static DecodingError invalidTheme(std::string found) { return DecodingError(std::move(found)); }

    /// The text that names no theme.
    const std::string& found() const noexcept { return found_; }
    /// What went wrong, in a sentence.
    std::string localizedDescription() const { return "Invalid Status theme string value found: " + found_; }

    /// What identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// The domain of the error.
    std::string errorDomain() const { return "VanticRestKit.Status.DecodingError"; }
    /// The code of the error within its domain.
    std::int64_t errorCode() const { return 0; }
    /// The description that `Error` gives.
    std::string generalDescription() const { return localizedDescription(); }
    /// What `adviceOn` takes the error for.
    static ErrorCategory errorCategory() noexcept { return ErrorCategory::badAnswer; }

    /// Whether both are errors of this type.
    friend bool operator==(const DecodingError&, const DecodingError&) noexcept { return true; }

private:
    explicit DecodingError(std::string found) : found_(std::move(found)) {}

    std::string found_;
};

template <>
VRK_EXPORT const TypePlan& planOf<Status>();

}  // namespace VanticRestKit
