#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::sample {

/// A field of a form-encoded body, decoded; empty if there is none of that name.
std::optional<std::string> formField(std::string_view body, std::string_view name);

}  // namespace VanticRestKit::sample
