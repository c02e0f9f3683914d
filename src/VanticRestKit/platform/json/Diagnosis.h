#pragma once

/// \file
/// What decoding a document came to, with every fault on the way: for tools that explain a document.

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

/// Something in a document that is not as the mapping table wants it.
struct Fault {
    /// Down to the value at fault.
    CodingPath path;
    /// The word of the row that settled what became of it.
    Presence presence;
    /// The type that the table names, such as "String" or "[Link]"; "readable keys" of an object that has a key
    /// which is no text; the name of the entity where the object claims to be another one; "JSON" of a document.
    std::string expected;
    /// The JSON type that came: "string", "number", "boolean", "null", "object", "array", or "nothing" where the
    /// key is missing; the name that the object claims; "a broken document".
    std::string found;
    /// What the field holds now: "empty", "[]", the name of a case or the value as JSON text; "dropped" for an
    /// element that is left out, "no check" for an "_entity" that is no text; or "failure" where the fault fails
    /// the document.
    std::string became;
};

/// What decoding a document came to.
struct Diagnosis {
    /// Every fault that was swallowed, in decode order, and the one that failed the document last.
    std::vector<Fault> faults;
    /// Why the document did not become a value; empty where it did.
    std::optional<Error> error;
    /// Where: the coding path of a decoding error, or the path of the entity that is of another kind.
    CodingPath path;
};

/// Decodes into `value`, a fresh value of the plan's type, slowly and in decode order, with the default memory budget.
VRK_EXPORT Diagnosis diagnose(const Data& document, const TypePlan& plan, void* value);

/// Decodes a T and tells of every fault.
template <class T>
Diagnosis diagnose(const Data& document) {
    T value = mapping::detail::fresh<T>();
    return diagnose(document, planOf<T>(), &value);
}

/// "required", "optional", "lenient" or "default".
VRK_EXPORT const char* nameOf(Presence presence) noexcept;

}  // namespace VanticRestKit
