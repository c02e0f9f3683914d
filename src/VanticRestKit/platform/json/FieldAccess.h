#pragma once

/// \file
/// How a mapping table accesses the fields of an entity: names, offsets and type-erased operations.

#include <VanticRestKit/platform/json/Fresh.h>

#include <cstddef>
#include <optional>
#include <string_view>
#include <type_traits>
#include <vector>

namespace VanticRestKit::mapping {

namespace detail {

template <class M>
struct MemberParts;
template <class E, class F>
struct MemberParts<F E::*> {
    using Entity = E;
    using Field = F;
};

template <class F>
struct OptionalParts {
    static constexpr bool isOptional = false;
    using Value = F;
};
template <class T>
struct OptionalParts<std::optional<T>> {
    static constexpr bool isOptional = true;
    using Value = T;
};

// The compiler's signature text of an instantiation contains the name of its template argument.
template <auto M>
constexpr std::string_view signatureOfMember() {
    return __PRETTY_FUNCTION__;
}
template <class T>
constexpr std::string_view signatureOfType() {
    return __PRETTY_FUNCTION__;
}

constexpr std::string_view named(std::string_view signature, std::string_view before) {
    std::string_view name = signature.substr(signature.find(before) + before.size());
    return name.substr(0, name.find_first_of(";]"));
}

}  // namespace detail

template <auto Member>
using EntityOf = typename detail::MemberParts<decltype(Member)>::Entity;
template <auto Member>
using MemberType = typename detail::MemberParts<decltype(Member)>::Field;
template <class Field>
using ValueIn = typename detail::OptionalParts<Field>::Value;
template <class Field>
inline constexpr bool isOptional = detail::OptionalParts<Field>::isOptional;
template <class Field>
inline constexpr bool isList = false;
template <class T>
inline constexpr bool isList<std::vector<T>> = true;

/// The declared name of a field, without the trailing underscore that avoids a keyword.
template <auto Member>
constexpr std::string_view memberName() {
    std::string_view name = detail::named(detail::signatureOfMember<Member>(), "M = ");
    name = name.substr(name.rfind(':') + 1);
    while (name.ends_with('_') || name.ends_with(')')) name.remove_suffix(1);
    return name;
}

/// The name of a type, without the library's namespace.
template <class T>
constexpr std::string_view typeName() {
    std::string_view name = detail::named(detail::signatureOfType<T>(), "T = ");
    constexpr std::string_view library = "VanticRestKit::";
    return name.starts_with(library) ? name.substr(library.size()) : name;
}

/// The offset of a field in its entity. The entity `E` is a template argument because GCC treats functions that differ
/// only in a member of a type in an unnamed namespace as the same function across all sources, and types of the same
/// name there need not have the same fields.
template <class E, auto Member>
std::size_t offsetOf() {
    // The offset does not depend on the object, so unconstructed storage is enough to measure it.
    alignas(E) static std::byte storage[sizeof(E)];
    const auto* const entity = reinterpret_cast<const E*>(storage);
    return static_cast<std::size_t>(reinterpret_cast<const std::byte*>(&(entity->*Member)) - storage);
}

/// Operations on a field of a given C++ type. `void*` arguments point to the field.
struct FieldOps {
    bool isOptional;
    /// Puts a new value into the field and returns its address.
    void* (*open)(void* field);
    /// Makes the field empty, or gives it its type's initial value if it cannot be empty.
    void (*reset)(void* field);
    /// Copies another field of the same type.
    void (*copy)(void* field, const void* from);
    /// The value, or null if the field is empty.
    const void* (*peek)(const void* field);
};

template <class Field>
inline constexpr FieldOps fieldOps = {
    .isOptional = isOptional<Field>,
    .open = [](void* field) -> void* {
        if constexpr (!isOptional<Field>) {
            if constexpr (isList<Field>) static_cast<Field*>(field)->clear();
            return field;
        } else if constexpr (std::is_default_constructible_v<ValueIn<Field>>) {
            return &static_cast<Field*>(field)->emplace();
        } else if constexpr (isMadeByDecoding<ValueIn<Field>>) {
            return &static_cast<Field*>(field)->emplace(detail::fresh<ValueIn<Field>>());
        } else {
            return nullptr;  // the row's reader makes the value and moves it in
        }
    },
    .reset = [](void* field) { *static_cast<Field*>(field) = detail::fresh<Field>(); },
    .copy =
        [](void* field, const void* from) {
            if constexpr (isList<Field>) {
                // Assignment would keep the old capacity.
                Field(*static_cast<const Field*>(from)).swap(*static_cast<Field*>(field));
            } else {
                *static_cast<Field*>(field) = *static_cast<const Field*>(from);
            }
        },
    .peek = [](const void* field) -> const void* {
        if constexpr (isOptional<Field>) {
            const Field& holder = *static_cast<const Field*>(field);
            return holder ? &*holder : nullptr;
        } else {
            return field;
        }
    },
};

}  // namespace VanticRestKit::mapping
