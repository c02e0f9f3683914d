#pragma once

/// \file
/// `planOf<T>()`: the plan for decoding a type. An entity specialises it with its mapping table.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/error/AnyValue.h>
#include <VanticRestKit/platform/json/FieldAccess.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/MemoryBudget.h>
#include <VanticRestKit/platform/json/PlanDeclaration.h>
#include <VanticRestKit/platform/json/PlanParts.h>
#include <VanticRestKit/platform/json/RawText.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace VanticRestKit {

namespace mapping::detail {

/// The plans of types that need no table.
template <class T>
struct BuiltIn;

}  // namespace mapping::detail

/// Strings, numbers, booleans, enumerations with raw texts, lists and (at the root) optionals need no table. A narrow
/// integer, such as an `int`, accepts the numbers that fit.
template <class T>
requires requires { mapping::detail::BuiltIn<T>::plan(); }
const TypePlan& planOf() { return mapping::detail::BuiltIn<T>::plan(); }

/// A type that can be decoded: its mapping table is declared before this point, or it needs none.
template <class T>
concept Decodable = !mapping::isOnlyShown<T> && requires {
    planOf<T>();
};

namespace mapping {

/// The reader for an unsigned integer or a string, stored as a string.
struct DecimalOrText {};
/// The reader for a list that drops the elements that do not decode.
struct KeepDecodable {};

/// The new capacity of a full list, estimated from the number of elements in the bytes read so far. Twice the count if
/// `bytesLeft` is 0.
VRK_EXPORT std::size_t grownCapacity(std::size_t count, std::size_t elementSize, std::size_t bytesRead,
                                     std::size_t bytesLeft) noexcept;

namespace detail {

/// An integer type that rows read by converting from 64 bits: `int`, `short`, `std::uint8_t`, `long long`.
template <class T>
concept NarrowInteger =
    VanticRestKit::detail::WholeNumber<T> && !std::is_same_v<T, std::int64_t> &&
    !std::is_same_v<T, std::uint64_t> && (std::is_signed_v<T> || sizeof(T) < sizeof(std::uint64_t));

template <class T>
constexpr std::string_view narrowIntegerName() {
    constexpr bool isSigned = std::is_signed_v<T>;
    if constexpr (sizeof(T) == 1) return isSigned ? "Int8" : "UInt8";
    if constexpr (sizeof(T) == 2) return isSigned ? "Int16" : "UInt16";
    if constexpr (sizeof(T) == 4) return isSigned ? "Int32" : "UInt32";
    return "Int";
}

/// The name of a type in error messages and diagnoses.
template <class T>
constexpr std::string_view displayName() {
    if constexpr (std::is_same_v<T, std::string>) return "String";
    if constexpr (std::is_same_v<T, bool>) return "Bool";
    if constexpr (std::is_same_v<T, std::int64_t>) return "Int";
    if constexpr (std::is_same_v<T, std::uint64_t>) return "UInt";
    if constexpr (NarrowInteger<T>) return narrowIntegerName<T>();
    if constexpr (std::is_same_v<T, double>) return "Double";
    if constexpr (std::is_same_v<T, Date>) return "Date";
    return typeName<T>();
}

template <class E>
std::string_view caseNameAt(const void* value) {
    return caseName(*static_cast<const E*>(value));
}

template <class T>
constexpr auto caseNameOf() -> std::string_view (*)(const void*) {
    if constexpr (RawEnumeration<T>) {
        return &caseNameAt<T>;
    } else {
        static_assert(std::is_same_v<T, Date>, "a converted value is an enumeration or a date");
        return nullptr;
    }
}

template <class T>
void* appendTo(void* list, std::size_t bytesRead, std::size_t bytesLeft, MemoryBudget& memory) {
    auto& items = *static_cast<std::vector<T>*>(list);
    if (items.size() == items.capacity()) {
        const std::size_t capacity = grownCapacity(items.size(), sizeof(T), bytesRead, bytesLeft);
        if (!memory.take(std::uint64_t{capacity - items.capacity()} * sizeof(T))) return nullptr;
        items.reserve(capacity);
    }
    if constexpr (std::is_default_constructible_v<T>) {
        return &items.emplace_back();
    } else {
        return &items.emplace_back(detail::fresh<T>());
    }
}

/// The name of a list's element type; "Link?" for an optional one.
template <class T>
std::string elementName() {
    if constexpr (isOptional<T>) {
        return elementName<ValueIn<T>>() + '?';
    } else {
        return std::string(displayName<T>());
    }
}

template <class T>
std::size_t countOf(const void* list) {
    return static_cast<const std::vector<T>*>(list)->size();
}

template <class T>
const void* elementAt(const void* list, std::size_t index) {
    return &(*static_cast<const std::vector<T>*>(list))[index];
}

/// `planOf` as a function whose address can be taken: GCC finds the address of an overloaded template ambiguous.
template <class T>
const TypePlan& planLater() {
    return planOf<T>();
}

template <class T, bool Tolerant>
inline constexpr ListPlan listPlan = {
    .element = &planLater<T>,
    .tolerant = Tolerant,
    .append = &appendTo<T>,
    .removeLast = [](void* list) { static_cast<std::vector<T>*>(list)->pop_back(); },
    .count = &countOf<T>,
    .at = &elementAt<T>,
};

template <class T, bool Tolerant>
const TypePlan& planOfList() {
    static const TypePlan& plan = makeListPlan(elementName<T>(), listPlan<T, Tolerant>);
    return plan;
}

template <>
struct BuiltIn<std::string> {
    static const TypePlan& plan() { return textPlan(); }
};
template <>
struct BuiltIn<bool> {
    static const TypePlan& plan() { return booleanPlan(); }
};
template <>
struct BuiltIn<std::int64_t> {
    static const TypePlan& plan() { return integerPlan(); }
};
template <>
struct BuiltIn<std::uint64_t> {
    static const TypePlan& plan() { return unsignedIntegerPlan(); }
};
template <>
struct BuiltIn<double> {
    static const TypePlan& plan() { return numberPlan(); }
};

template <NarrowInteger T>
struct BuiltIn<T> {
    static const TypePlan& plan() {
        static const TypePlan& plan = makeNarrowIntegerPlan(
            displayName<T>(),
            [](std::int64_t number, void* value) {
                if (!std::in_range<T>(number)) return false;
                *static_cast<T*>(value) = static_cast<T>(number);
                return true;
            },
            [](const void* value) { return static_cast<std::int64_t>(*static_cast<const T*>(value)); });
        return plan;
    }
};

template <>
struct BuiltIn<Dictionary> {
    static const TypePlan& plan() { return dictionaryPlan(); }
};

template <RawEnumeration E>
struct BuiltIn<E> {
    static const TypePlan& plan() {
        static const TypePlan& plan = makeConvertedTextPlan(
            typeName<E>(),
            [](std::string_view text, void* value) {
                const std::optional<E> found = fromRawValue<E>(text);
                if (found) *static_cast<E*>(value) = *found;
                return found.has_value();
            },
            &caseNameAt<E>);
        return plan;
    }
};

template <class T>
struct BuiltIn<std::vector<T>> {
    static const TypePlan& plan() { return planOfList<T, false>(); }
};

template <class T>
struct BuiltIn<std::optional<T>> {
    static const TypePlan& plan() {
        static const TypePlan& plan = makeNullablePlan(planOf<T>(), fieldOps<std::optional<T>>);
        return plan;
    }
};

}  // namespace detail

/// The plan of a value of type T that a row reads with `Reader`; the type's own plan if `Reader` is null.
template <class T, auto Reader>
struct ReaderOf {
    static const TypePlan& plan() {
        using R = std::remove_cv_t<decltype(Reader)>;
        if constexpr (std::is_same_v<R, std::nullptr_t>) {
            static_assert(
                !std::is_same_v<T, Date>,
                "a date needs a reader in its row: lenient<&Song::released, deviceDate>(\"released\")");
            static_assert(!std::is_arithmetic_v<T> || Decodable<T>,
                          "a number is std::int64_t, std::uint64_t, a narrower integer or double");
            static_assert(
                std::is_same_v<T, Date> || std::is_arithmetic_v<T> || Decodable<T> ||
                    VanticRestKit::mapping::isOnlyShown<T>,
                "a type without a mapping table: specialise planOf for it, declared before this row");
            return planOf<T>();
        } else if constexpr (std::is_same_v<R, DecimalOrText>) {
            static_assert(std::is_same_v<T, std::string>);
            return decimalOrTextPlan();
        } else if constexpr (std::is_same_v<R, KeepDecodable>) {
            return detail::planOfList<typename T::value_type, true>();
        } else if constexpr (std::is_invocable_r_v<bool, R, std::string_view, T&>) {
            static const TypePlan& plan = makeConvertedTextPlan(
                detail::displayName<T>(),
                [](std::string_view text, void* value) { return Reader(text, *static_cast<T*>(value)); },
                detail::caseNameOf<T>());
            return plan;
        } else {
            static_assert(std::is_invocable_r_v<bool, R, double, T&>,
                          "a reader takes a text or a number, and the value to set");
            static const TypePlan& plan = makeConvertedNumberPlan(
                detail::displayName<T>(),
                [](double number, void* value) { return Reader(number, *static_cast<T*>(value)); },
                detail::caseNameOf<T>());
            return plan;
        }
    }
};

}  // namespace mapping

}  // namespace VanticRestKit
