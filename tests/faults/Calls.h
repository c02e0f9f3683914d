#pragma once

/// \file
/// The names of the calls that can fail, and the errors that each can fail with.

#include "Shim.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace VanticRestKit::test {

struct CallTraits {
    Call call;
    std::string_view name;
    /// Errors of the manual page of the call that can occur at any time.
    std::span<const int> errors;
    /// Whether the call allocates memory. If it fails, the process may end with a message that memory ran out.
    bool allocatesMemory = false;
};

/// In the order of `Call`.
std::span<const CallTraits> callTraits();

const CallTraits& traitsOf(Call call);

/// Name, number and error, as in "malloc:17:12".
std::string textOf(const Fault& fault);
std::optional<Fault> faultOf(std::string_view text);

}  // namespace VanticRestKit::test
