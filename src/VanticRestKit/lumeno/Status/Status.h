#pragma once

/// \file
/// `Status` and `StatusTheme`: a badge and its colour theme.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/error/ErrorCategory.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <string>
#include <utility>

namespace VanticRestKit {

/// The colour theme of a badge.
enum class StatusTheme { default_, live };

/// The raw strings of `StatusTheme`.
template <>
struct RawTexts<StatusTheme> {
    /// The cases with their names and raw strings, in declaration order.
    static constexpr RawCase<StatusTheme> cases[] = {
        {StatusTheme::default_, "default", "default"},
        {StatusTheme::live, "live", "live"},
    };
};

/// A badge displayed on an entity. The title and the theme are required strings; an unknown theme is replaced by the
/// default.
struct Status {
    class DecodingError;

    /// The title. Key `title`; a required string.
    std::string title{};
    /// The colour theme. Key `theme`; required.
    StatusTheme theme{};

    friend bool operator==(const Status&, const Status&) = default;
};

/// The error for an unknown theme. Decoding never produces it, because an unknown theme is replaced by the default.
class VRK_EXPORT Status::DecodingError {
public:
    /// `found` is not the name of a theme.
    static DecodingError invalidTheme(std::string found) { return DecodingError(std::move(found)); }

    /// The unknown name.
    const std::string& found() const noexcept { return found_; }
    /// A sentence that describes the error.
    std::string localizedDescription() const { return "Invalid Status theme string value found: " + found_; }

    /// Identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// The domain of the error.
    std::string errorDomain() const { return "VanticRestKit.Status.DecodingError"; }
    /// The code of the error within its domain.
    std::int64_t errorCode() const { return 0; }
    /// The description that `Error` returns.
    std::string generalDescription() const { return localizedDescription(); }
    /// The category that `adviceOn` returns.
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
