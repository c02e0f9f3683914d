#pragma once

/// \file
/// Which error has which category, as far as domain and code say so.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/error/ErrorCategory.h>

#include <optional>

namespace VanticRestKit::detail {

/// What is known of an error.
struct ErrorRule {
    ErrorCategory category = ErrorCategory::unknown;
    bool mayTryAgain = false;
};

/// What is known of `error` itself, without a look at the error that it may hold; empty if nothing is.
std::optional<ErrorRule> errorRuleOf(const Error& error);

}  // namespace VanticRestKit::detail
