#pragma once

/// \file
/// Maps domains and codes to categories.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/error/ErrorCategory.h>

#include <optional>

namespace VanticRestKit::detail {

/// What is known about an error.
struct ErrorRule {
    ErrorCategory category = ErrorCategory::unknown;
    bool mayTryAgain = false;
};

/// What is known about `error` itself, regardless of an underlying error; empty if nothing is.
std::optional<ErrorRule> errorRuleOf(const Error& error);

}  // namespace VanticRestKit::detail
