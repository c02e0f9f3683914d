#pragma once

/// \file
/// The result of decoding a document, with every fault that was found: for tools that explain a document.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/DecodingError.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/platform/json/Presence.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// Something in a document that does not match the mapping table.
struct Fault {
    /// The path to the value at fault.
    CodingPath path;
    /// The presence of the row that decided what happened to the value.
    Presence presence;
    /// The type that the table names, such as "String" or "[Link]"; "readable keys" if an object has a key that is not
    /// valid text; the expected entity name if the object names a different one; "JSON" for a malformed document.
    std::string expected;
    /// The JSON type that was found: "string", "number", "boolean", "null", "object", "array", or "nothing" if the key
    /// is missing; the entity name that the object has; "a broken document".
    std::string found;
    /// What the field holds now: "empty", "[]", the name of a case or the value as JSON text; "dropped" for a list
    /// element that was left out, "no check" for an "_entity" that is not a string; or "failure" if the fault makes the
    /// document fail.
    std::string became;
};

/// The result of decoding a document.
struct Diagnosis {
    /// Every fault that was ignored, in decode order; then the one that made the document fail, if any.
    std::vector<Fault> faults;
    /// Why decoding failed; empty if it succeeded.
    std::optional<Error> error;
    /// Where it failed: the coding path of the decoding error, or the path of the object that names a different entity.
    CodingPath path;
};

/// Decodes into `value`, a newly made value of the plan's type, in decode order and with the default memory budget.
/// Slower than `JSONDecoder`.
VRK_EXPORT Diagnosis diagnose(const Data& document, const TypePlan& plan, void* value);

/// Decodes a T and reports every fault.
template <class T>
Diagnosis diagnose(const Data& document) {
    T value = mapping::detail::fresh<T>();
    return diagnose(document, planOf<T>(), &value);
}

/// "required", "optional", "lenient" or "default".
VRK_EXPORT const char* nameOf(Presence presence) noexcept;

}  // namespace VanticRestKit
