#pragma once

/// \file
/// The words of a mapping table: how a JSON object becomes a value, one row per field, in decode order.
///
/// An entity's source holds one table, and nothing about a field stands anywhere else:
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
/// With that, `JSONDecoder().decode<Song>(data)` and `Resource<Song>` work; so does `std::vector<Song>`.

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

/// Rows of a table: one, or an object with the rows inside it.
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

// The entity is a template argument of both for the same reason as in `offsetOf`.
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

// Without a lambda: GCC and Clang lay out its captures differently, yet a host built by one and the static library
// built by the other would share its code.
template <std::size_t... Ns>
constexpr auto joined(const Rows<Ns>&... rows) {
    Rows<(Ns + ... + 0)> all{};
    [[maybe_unused]] Row* end = all.data();
    ((end = copied(rows, end)), ...);
    return all;
}

// Not constexpr: a table whose rows call one of these is refused, and the compiler names it.
void twoRowsOfOneObjectHaveTheSameKey();
void anObjectHasMoreRowsThanATableCanHold();

/// Sees to it that the rows of each object are few enough and have keys that differ.
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

/// Absent, null or a wrong type fails the entity.
template <auto Member, auto Reader = nullptr>
constexpr Rows<1> required(std::string_view key) {
    return {detail::valueRow<Member, Reader>(Presence::required, key)};
}

/// Absent or null leaves the field empty; a wrong type fails the entity.
template <auto Member, auto Reader = nullptr>
constexpr Rows<1> optional(std::string_view key) {
    static_assert(isOptional<MemberType<Member>>, "an optional row fills a std::optional; see defaulted");
    return {detail::valueRow<Member, Reader>(Presence::optional, key)};
}

/// Absent or null leaves the default; a wrong type fails the entity.
template <auto Member, auto Reader = nullptr>
constexpr Rows<1> defaulted(std::string_view key) {
    return {detail::valueRow<Member, Reader>(Presence::defaulted, key)};
}

/// Whatever is wrong is swallowed, and the field keeps what a new entity has, such as empty, false, [] or 0.
template <auto Member, auto Reader = nullptr>
constexpr Rows<1> lenient(std::string_view key) {
    return {detail::valueRow<Member, Reader>(Presence::lenient, key)};
}

/// Whatever is wrong is swallowed, and the field gets `Default`.
template <auto Member, auto Default, auto Reader = nullptr>
constexpr Rows<1> lenientOr(std::string_view key) {
    Row row = detail::valueRow<Member, Reader>(Presence::lenient, key);
    row.setDefault = &detail::setTo<EntityOf<Member>, MemberType<Member>, Default>;
    return {row};
}

/// A nested object whose rows fill the same entity. That it cannot be opened fails the entity.
template <std::size_t... Ns>
constexpr auto requiredObject(std::string_view key, const Rows<Ns>&... rows) {
    return detail::objectRow(Presence::required, key, rows...);
}

/// A nested object whose rows fill the same entity. That it cannot be opened leaves their defaults; a required
/// row inside an object that opens still fails the entity.
template <std::size_t... Ns>
constexpr auto lenientObject(std::string_view key, const Rows<Ns>&... rows) {
    return detail::objectRow(Presence::lenient, key, rows...);
}

/// Reads `key` leniently into the field; then `Derive(entity)` runs for every decoded entity, after all rows.
template <auto Member, auto Derive>
constexpr Rows<1> derived(std::string_view key) {
    Row row = detail::valueRow<Member, nullptr>(Presence::lenient, key);
    row.derive = &detail::deriveIn<EntityOf<Member>, Derive>;
    return {row};
}

/// A field without a key: `Derive(entity)` sets it, after all rows.
template <auto Member, auto Derive>
constexpr Rows<1> derived() {
    Row row = detail::valueRow<Member, nullptr>(Presence::lenient, {});
    row.role = RowRole::computed;
    row.derive = &detail::deriveIn<EntityOf<Member>, Derive>;
    return {row};
}

/// A stored field without a key that is set where the entity is made otherwise: for looking at values only.
template <auto Member, auto Reader = nullptr>
constexpr Rows<1> computed() {
    Row row = detail::valueRow<Member, Reader>(Presence::lenient, {});
    row.role = RowRole::computed;
    return {row};
}

/// The key "_entity", where it is a text, must name the entity, whatever its case; else `E::DecodingError` is
/// raised with the text as it came.
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

/// A key that is declared and read by nobody.
constexpr Rows<1> unread(std::string_view key) {
    Row row;
    row.role = RowRole::unread;
    row.presence = Presence::lenient;
    row.key = key;
    return {row};
}

/// The rows of an entity, checked by the compiler; `planOf` makes its plan of them.
template <class E, std::size_t N>
class Table {
public:
    consteval explicit Table(const Rows<N>& rows) : rows_(rows) { detail::checkRows(rows_.data(), N); }

    /// Makes the plan anew each time: for the static reference of `planOf` only.
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

/// The table of a type that any JSON object decodes into.
template <class E>
const TypePlan& object() {
    return makeObjectPlan(typeName<E>(), {}, new E(detail::fresh<E>()));
}

/// Reader: a text that must be the raw text of a case.
template <RawEnumeration E>
bool fromRaw(std::string_view text, E& value) {
    const std::optional<E> found = fromRawValue<E>(text);
    if (found) value = *found;
    return found.has_value();
}

/// Reader: a text that may be the raw text of a case; any other text gives `Fallback`.
template <auto Fallback>
bool fromRawOr(std::string_view text, decltype(Fallback)& value) {
    value = fromRawValue<decltype(Fallback)>(text).value_or(Fallback);
    return true;
}

/// Reader: a text of the form "yyyy-MM-dd HH:mm:ss", in the device's time zone.
VRK_EXPORT bool deviceDate(std::string_view text, Date& value);

/// Reader: an unsigned whole number, kept as its decimal text, or a text.
inline constexpr DecimalOrText decimalOrText{};

/// Reader: a list that keeps the elements that decode and drops the others.
inline constexpr KeepDecodable keepDecodable{};

}  // namespace VanticRestKit::mapping
