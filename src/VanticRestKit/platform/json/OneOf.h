#pragma once

/// \file
/// The readers for a value that is one of several entities, tried in order.

#include <VanticRestKit/platform/json/FieldAccess.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/platform/json/PlanParts.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

namespace VanticRestKit::mapping {

template <class... Entities>
struct OneOfReader {};
template <class... Entities>
struct EachOneOfReader {};

/// Reader: an object that decodes as one of the entities, tried in this order. The field's type is made from any
/// of them and offers `as<Entity>()`.
template <class... Entities>
inline constexpr OneOfReader<Entities...> oneOf{};

/// Reader: a list whose elements are each read like `oneOf`; an element that decodes as none of the entities is left
/// out.
template <class... Entities>
inline constexpr EachOneOfReader<Entities...> eachOneOf{};

namespace detail {

/// Moves the candidate into a value. Takes over the pointer if the value type can, because entities are large.
template <class Value, class Entity>
Value movedInto(void* made) {
    std::unique_ptr<Entity> owner(static_cast<Entity*>(made));
    if constexpr (requires { Value::owning(std::move(owner)); }) {
        return Value::owning(std::move(owner));
    } else {
        return Value(std::move(*owner));
    }
}

template <class Field, class Entity>
void moveIntoField(void* made, void* field) {
    auto& place = *static_cast<Field*>(field);
    if constexpr (isOptional<Field>) {
        place.emplace(movedInto<typename Field::value_type, Entity>(made));
    } else {
        place.push_back(movedInto<typename Field::value_type, Entity>(made));
    }
}

template <class Field, class Entity>
inline constexpr Candidate candidate = {
    .type = &planLater<Entity>,
    // A full list doubles its capacity.
    .size = sizeof(Entity) + (isOptional<Field> ? 0 : 2 * sizeof(typename Field::value_type)),
    .make = []() -> void* { return new Entity(detail::fresh<Entity>()); },
    .drop = [](void* made) { delete static_cast<Entity*>(made); },
    .keep = &moveIntoField<Field, Entity>,
};

template <class Value, class... Entities>
std::size_t whichOf(const void* value) {
    const Value& one = *static_cast<const Value*>(value);
    std::size_t place = 0;
    (void)((one.template as<Entities>() != nullptr || (++place, false)) || ...);
    return place;
}

template <class Value, class... Entities>
const void* heldIn(const void* value) {
    const Value& one = *static_cast<const Value*>(value);
    const void* held = nullptr;
    (void)((held = one.template as<Entities>(), held != nullptr) || ...);
    return held;
}

template <class Field, class Value, class... Entities>
const TypePlan& planOfChoice() {
    static_assert(sizeof...(Entities) <= 8, "a choice has at most eight candidates");
    static constexpr Candidate candidates[] = {candidate<Field, Entities>...};
    static constexpr ChoicePlan choice = {
        .candidates = candidates, .which = &whichOf<Value, Entities...>, .held = &heldIn<Value, Entities...>};
    static const TypePlan& plan = makeChoicePlan(typeName<Value>(), choice);
    return plan;
}

template <class Value, class... Entities>
const TypePlan& planOfChoices() {
    using List = std::vector<Value>;
    static constexpr ListPlan list = {
        .element = &planOfChoice<List, Value, Entities...>,
        .tolerant = true,
        .append = nullptr,  // candidates append themselves
        .removeLast = nullptr,
        .count = &countOf<Value>,
        .at = &elementAt<Value>,
    };
    static const TypePlan& plan = makeListPlan("Any", list);
    return plan;
}

template <class Reader>
struct ChoiceOf;
template <class... Entities>
struct ChoiceOf<OneOfReader<Entities...>> {
    template <class T>
    static const TypePlan& plan() {
        return planOfChoice<std::optional<T>, T, Entities...>();
    }
};
template <class... Entities>
struct ChoiceOf<EachOneOfReader<Entities...>> {
    template <class T>
    static const TypePlan& plan() {
        return planOfChoices<typename T::value_type, Entities...>();
    }
};

}  // namespace detail

template <class T, auto Reader>
requires requires { detail::ChoiceOf<std::remove_cv_t<decltype(Reader)>>(); }
struct ReaderOf<T, Reader> {
    static const TypePlan& plan() {
        return detail::ChoiceOf<std::remove_cv_t<decltype(Reader)>>::template plan<T>();
    }
};

}  // namespace VanticRestKit::mapping
