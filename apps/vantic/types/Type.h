#pragma once

#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/PlanOf.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantic {

/// A type that documents can be decoded into, selected by name at run time.
struct Type {
    /// Owns a value of some type.
    using Value = std::unique_ptr<void, void (*)(void*)>;

    std::string name;
    const VanticRestKit::TypePlan& (*plan)();
    /// Creates a value.
    Value (*make)();
};

template <class T>
Type type(std::string name) {
    return {std::move(name), []() -> const VanticRestKit::TypePlan& { return VanticRestKit::planOf<T>(); },
            [] {
                return Type::Value(new T(VanticRestKit::mapping::detail::fresh<T>()),
                                   [](void* value) { delete static_cast<T*>(value); });
            }};
}

/// A type and the list of this type.
struct TypeEntry {
    Type one;
    Type list;
};

/// Creates an entry of the registry.
template <class T>
TypeEntry entry(const std::string& name) {
    return {type<T>(name), type<std::vector<T>>("[" + name + "]")};
}

/// All types with a name, in alphabetical order.
std::span<const TypeEntry> allTypes();

/// The names of all types, in alphabetical order; valid as long as the program runs.
std::vector<std::string_view> typeNames();

/// The type with this name, or the list of it if the name is in brackets. Throws `UsageError` if there is none.
const Type& typeNamed(const std::string& name);

}  // namespace vantic
