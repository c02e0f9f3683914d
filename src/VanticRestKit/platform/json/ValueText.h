#pragma once

/// \file
/// Prints any decodable value as JSON text with its declared field names: for tools and tests.

#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/Visibility.h>

#include <string>
#include <string_view>

namespace VanticRestKit {

/// Layout of the text.
enum class ValueLayout { compact, indented };

/// A value of the plan's type as JSON: every stored field in declared order under its declared name, which may differ
/// from its key in the service's JSON. An empty field is null; an enumeration is the name of its case; a date is
/// "YYYY-MM-DDTHH:MM:SSZ" with up to six fractional digits if it has a fraction, or the number of seconds since 1970 if
/// it is outside the years 1 to 9999; an element of a mixed list is an object whose only key is the name of the
/// element's type.
VRK_EXPORT std::string valueText(const TypePlan& plan, const void* value, ValueLayout layout);

/// The same for a value of a known type.
template <class T>
std::string valueText(const T& value, ValueLayout layout = ValueLayout::compact) {
    return valueText(planOf<T>(), &value, layout);
}

/// A JSON string with its quotes.
VRK_EXPORT std::string quotedText(std::string_view text);

/// The shortest JSON text that parses back to the same number, without a fraction if it is an integer.
VRK_EXPORT std::string numberText(double number);

}  // namespace VanticRestKit
