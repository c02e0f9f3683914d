#pragma once

#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/PlanOf.h>

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantic {

/// A type that documents decode into, known by its name at run time.
struct Type {
    /// Owns a value of some type.
    using Value = std::unique_ptr<void, void (*)(void*)>;

    std::string name;
    const VanticRestKit::TypePlan& (*plan)();
    /// A fresh value.
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

/// A type and the list of it.
struct TypeEntry {
    Type one;
    Type list;
};

/// One line of the registry.
template <class T>
TypeEntry entry(const std::string& name) {
    return {type<T>(name), type<std::vector<T>>("[" + name + "]")};
}

/// All types with a name, in alphabetical order.
std::span<const TypeEntry> allTypes();

/// The names of all types, in alphabetical order. They live as long as the program.
std::vector<std::string_view> typeNames();

/// The type of that name, or the list of it for a name in brackets. Throws `UsageError` if there is none.
const Type& typeNamed(const std::string& name);

}  // namespace vantic
