#pragma once

/// \file
/// What the calls that can fail are named, and what each can fail with.

#include "Shim.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace VanticRestKit::test {

struct CallTraits {
    Call call;
    std::string_view name;
    /// Those that the manual of the call names, as far as they can come at any time.
    std::span<const int> errors;
    /// Whether it gets memory: the process may end for want of it, with a message.
    bool isOfMemory = false;
};

/// In the order of `Call`.
std::span<const CallTraits> callTraits();

const CallTraits& traitsOf(Call call);

/// As in "malloc:17:12": name, number and error.
std::string textOf(const Fault& fault);
std::optional<Fault> faultOf(std::string_view text);

}  // namespace VanticRestKit::test
