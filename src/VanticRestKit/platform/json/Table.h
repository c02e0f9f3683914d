#pragma once

/// \file
/// The rows of a mapping table: how a JSON object becomes a value, one row per field, in decode order.
///
/// An entity's source defines one table, the only place that describes how its fields are decoded:
/// \code
/// struct Song { std::string title{}; std::optional<std::uint64_t> seconds{}; std::vector<std::string> tags{}; };
///
/// template <>
/// const VanticRestKit::TypePlan& VanticRestKit::planOf<Song>() {
///     using namespace mapping;
///     static const TypePlan& plan = object<Song>(
///         required<&Song::title>("title"),
///         optional<&Song::seconds>("seconds"),
///         requiredObject("_embedded",
///             lenient<&Song::tags>("tags")));
///     return plan;
/// }
/// \endcode
/// `JSONDecoder().decode<Song>(data)` and `Resource<Song>` then work, and so does `std::vector<Song>`.

#include <VanticRestKit/platform/date/Date.h>
#include <VanticRestKit/platform/json/FieldAccess.h>
#include <VanticRestKit/platform/json/OneOf.h>
#include <VanticRestKit/platform/json/PlanOf.h>
#include <VanticRestKit/platform/json/Row.h>

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace VanticRestKit::mapping {

/// Rows of a table: a single row, or an object row followed by the rows inside it.
template <std::size_t N>
using Rows = std::array<Row, N>;

namespace detail {

template <auto Member, auto Reader>
constexpr Row valueRow(Presence presence, std::string_view key) {
    using Field = MemberType<Member>;
    static_assert(!isOptional<ValueIn<Field>>,
                  "a field has one std::optional: null and absent are both empty");
    Row row;
    row.role = RowRole::value;
    row.presence = presence;
    row.key = key;
    row.member = memberName<Member>();
    row.offset = &offsetOf<EntityOf<Member>, Member>;
    row.ops = &fieldOps<Field>;
    row.type = ReaderOf<ValueIn<Field>, Reader>::plan;
    return row;
}

// The entity is a template argument of these two for the same reason as in `offsetOf`.
template <class E, class Field, auto Default>
void setTo(void* field) {
    *static_cast<Field*>(field) = Default;
}

template <class E, auto Derive>
void deriveIn(void* entity) {
    Derive(*static_cast<E*>(entity));
}

template <std::size_t N>
constexpr Row* copied(const Rows<N>& rows, Row* to) {
    for (const Row& row : rows) *to++ = row;
    return to;
}

// No lambda here: GCC and Clang lay out captures differently, and a host built with one and a static library built with
// the other would share the code.
template <std::size_t... Ns>
constexpr auto joined(const Rows<Ns>&... rows) {
    Rows<(Ns + ... + 0)> all{};
    [[maybe_unused]] Row* end = all.data();
    ((end = copied(rows, end)), ...);
    return all;
}

// Deliberately not constexpr: calling one of these makes a bad table a compile error that shows the function's name.
void twoRowsOfOneObjectHaveTheSameKey();
void anObjectHasMoreRowsThanATableCanHold();

/// Checks that each object has at most `maxRows` rows, all with different keys.
consteval void checkRows(const Row* rows, std::size_t count) {
    std::size_t keys = 0;
    for (std::size_t at = 0; at < count; at += 1 + rows[at].inner) {
        if (rows[at].role == RowRole::computed) continue;
        if (rows[at].role == RowRole::object) checkRows(rows + at + 1, rows[at].inner);
        if (++keys > maxRows) anObjectHasMoreRowsThanATableCanHold();
        for (std::size_t other = 0; other < at; other += 1 + rows[other].inner) {
            const bool hasKey = rows[other].role != RowRole::computed;
            if (hasKey && rows[other].key == rows[at].key) twoRowsOfOneObjectHaveTheSameKey();
        }
    }
}

template <std::size_t... Ns>
constexpr auto objectRow(Presence presence, std::string_view key, const Rows<Ns>&... rows) {
    Row row;
    row.role = RowRole::object;
    row.presence = presence;
    row.key = key;
    row.inner = (Ns + ... + 0);
    return joined(Rows<1>{row}, rows...);
}

}  // namespace detail

/// Absent, null or a wrong type makes the entity fail.
template <auto Member, auto Reader = nullptr>
constexpr Rows<1> required(std::string_view key) {
    return {detail::valueRow<Member, Reader>(Presence::required, key)};
}

/// Absent or null leaves the field empty; a wrong type makes the entity fail.
template <auto Member, auto Reader = nullptr>
constexpr Rows<1> optional(std::string_view key) {
    static_assert(isOptional<MemberType<Member>>, "an optional row fills a std::optional; see defaulted");
    return {detail::valueRow<Member, Reader>(Presence::optional, key)};
}

/// Absent or null leaves the default; a wrong type makes the entity fail.
template <auto Member, auto Reader = nullptr>
constexpr Rows<1> defaulted(std::string_view key) {
    return {detail::valueRow<Member, Reader>(Presence::defaulted, key)};
}

/// Every fault is ignored; the field then has the value of a new entity, such as empty, false, [] or 0.
template <auto Member, auto Reader = nullptr>
constexpr Rows<1> lenient(std::string_view key) {
    return {detail::valueRow<Member, Reader>(Presence::lenient, key)};
}

/// Every fault is ignored; the field is then set to `Default`.
template <auto Member, auto Default, auto Reader = nullptr>
constexpr Rows<1> lenientOr(std::string_view key) {
    Row row = detail::valueRow<Member, Reader>(Presence::lenient, key);
    row.setDefault = &detail::setTo<EntityOf<Member>, MemberType<Member>, Default>;
    return {row};
}

/// A nested object whose rows fill the same entity. If it is absent, null or not an object, the entity fails.
template <std::size_t... Ns>
constexpr auto requiredObject(std::string_view key, const Rows<Ns>&... rows) {
    return detail::objectRow(Presence::required, key, rows...);
}

/// A nested object whose rows fill the same entity. If it is absent, null or not an object, its fields keep their
/// defaults; if it is an object, its required rows still apply.
template <std::size_t... Ns>
constexpr auto lenientObject(std::string_view key, const Rows<Ns>&... rows) {
    return detail::objectRow(Presence::lenient, key, rows...);
}

/// Reads `key` leniently into the field; `Derive(entity)` then runs after all rows of the entity.
template <auto Member, auto Derive>
constexpr Rows<1> derived(std::string_view key) {
    Row row = detail::valueRow<Member, nullptr>(Presence::lenient, key);
    row.derive = &detail::deriveIn<EntityOf<Member>, Derive>;
    return {row};
}

/// A field without a key: `Derive(entity)` sets it after all rows.
template <auto Member, auto Derive>
constexpr Rows<1> derived() {
    Row row = detail::valueRow<Member, nullptr>(Presence::lenient, {});
    row.role = RowRole::computed;
    row.derive = &detail::deriveIn<EntityOf<Member>, Derive>;
    return {row};
}

/// A stored field without a key, set by code that constructs the entity. Used only to print values.
template <auto Member, auto Reader = nullptr>
constexpr Rows<1> computed() {
    Row row = detail::valueRow<Member, Reader>(Presence::lenient, {});
    row.role = RowRole::computed;
    return {row};
}

/// If the value of "_entity" is a string, it must be the name of the entity, ignoring case; otherwise decoding fails
/// with an `E::DecodingError` that holds the string as received.
template <class E>
constexpr Rows<1> entity(std::string_view name) {
    Row row;
    row.role = RowRole::entityCheck;
    row.presence = Presence::lenient;
    row.key = "_entity";
    row.entityName = name;
    row.mismatch = [](std::string found) -> Error {
        return E::DecodingError::entityMismatch(std::move(found));
    };
    return {row};
}

/// A key that is declared and ignored.
constexpr Rows<1> unread(std::string_view key) {
    Row row;
    row.role = RowRole::unread;
    row.presence = Presence::lenient;
    row.key = key;
    return {row};
}

/// The rows of an entity, checked at compile time; `planOf` makes its plan from them.
template <class E, std::size_t N>
class Table {
public:
    consteval explicit Table(const Rows<N>& rows) : rows_(rows) { detail::checkRows(rows_.data(), N); }

    /// Makes a new plan on each call: only for the static reference in `planOf`.
    operator const TypePlan&() const {
        return makeObjectPlan(typeName<E>(), rows_, new E(detail::fresh<E>()));
    }

private:
    Rows<N> rows_;
};

/// The table of an entity: its rows in decode order. Two rows of one object with the same key do not compile.
template <class E, std::size_t... Ns>
consteval auto object(const Rows<Ns>&... rows) {
    return Table<E, (Ns + ... + 0)>(detail::joined(rows...));
}

/// The table of a type without rows: any JSON object decodes as it.
template <class E>
const TypePlan& object() {
    return makeObjectPlan(typeName<E>(), {}, new E(detail::fresh<E>()));
}

/// Reader: a string that must be the raw text of a case.
template <RawEnumeration E>
bool fromRaw(std::string_view text, E& value) {
    const std::optional<E> found = fromRawValue<E>(text);
    if (found) value = *found;
    return found.has_value();
}

/// Reader: a string that may be the raw text of a case; any other string gives `Fallback`.
template <auto Fallback>
bool fromRawOr(std::string_view text, decltype(Fallback)& value) {
    value = fromRawValue<decltype(Fallback)>(text).value_or(Fallback);
    return true;
}

/// Reader: a string of the form "yyyy-MM-dd HH:mm:ss", in the device's time zone.
VRK_EXPORT bool deviceDate(std::string_view text, Date& value);

/// Reader: a string, or an unsigned integer that is stored as its decimal text.
inline constexpr DecimalOrText decimalOrText{};

/// Reader: a list that keeps the elements that decode and drops the others.
inline constexpr KeepDecodable keepDecodable{};

}  // namespace VanticRestKit::mapping
