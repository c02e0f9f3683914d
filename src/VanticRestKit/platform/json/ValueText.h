#pragma once

/// \file
/// Any value that decodes, as JSON text under its declared names: for tools and tests that look at values.

#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <string_view>

namespace VanticRestKit {

/// How the text is laid out.
enum class ValueLayout { compact, indented };

/// The value, whose type has the given plan, as JSON: every stored field in declared order under its declared
/// name, which is not its key in the service's JSON. Empty is null; an enumeration is the name of its case; a
/// date is "YYYY-MM-DDTHH:MM:SSZ" with up to six digits of fraction where it has one, and outside the years 1 to
/// 9999 its number of seconds since 1970; an element of a mixed list is an object with the name of its type.
VRK_EXPORT std::string valueText(const TypePlan& plan, const void* value, ValueLayout layout);

/// The same for a value of a known type.
template <class T>
std::string valueText(const T& value, ValueLayout layout = ValueLayout::compact) {
    return valueText(planOf<T>(), &value, layout);
}

/// A text as a JSON string, with its quotes.
VRK_EXPORT std::string quotedText(std::string_view text);

/// A number as the shortest JSON text that reads back, without a fraction where it is whole.
VRK_EXPORT std::string numberText(double number);

}  // namespace VanticRestKit
