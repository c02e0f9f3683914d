#pragma once

// Mapping tables with which the other parsers fill the library's structs: one function for each field, looked up by the
// library's own perfect hash. `S` is a value of such a parser, with these members:
//     bool text(std::string_view&)      bool number(std::uint64_t&)      bool truth(bool&)
//     template <class F> bool members(F f)     // f(std::string_view key, S value)
//     template <class F> bool elements(F f)    // f(S value)
//     std::string_view entity()                // the value of "_entity"
// A field without a value is left unchanged, which is sufficient for documents without faults.

#include <VanticRestKit/platform/date/detail/DeviceDate.h>
#include <VanticRestKit/platform/json/detail/KeyTable.h>
#include <VanticRestKit/platform/json/FieldAccess.h>
#include <VanticRestKit/platform/json/Fresh.h>
#include <VanticRestKit/platform/json/RawText.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace VanticRestKit::bench {

/// The base of each `S`, so that argument-dependent lookup finds the functions below.
struct PeerValue {};

template <class E, class S>
struct PeerRow {
    std::string_view key;
    void (*read)(E& entity, S& value);
};

/// The rows of one JSON object, found by key.
template <class E, class S>
class PeerTable {
public:
    explicit PeerTable(std::vector<PeerRow<E, S>> rows) : rows_(std::move(rows)), keys_(keysOf(rows_)) {}

    void fill(E& entity, S& object) const {
        object.members([&](std::string_view key, S value) {
            const std::uint8_t place = keys_.find(key);
            if (place != mapping::KeyTable::none) rows_[place].read(entity, value);
        });
    }

private:
    static std::vector<std::string_view> keysOf(const std::vector<PeerRow<E, S>>& rows) {
        std::vector<std::string_view> keys;
        for (const auto& row : rows) keys.push_back(row.key);
        return keys;
    }

    std::vector<PeerRow<E, S>> rows_;
    mapping::KeyTable keys_;
};

/// `get()` returns the table of an entity; specialised in `PeerVideo.h`.
template <class E, class S>
struct PeerTableOf;

template <class S>
void readInto(std::string& field, S& value) {
    std::string_view text;
    if (value.text(text)) field = text;
}

template <class S>
void readInto(bool& field, S& value) {
    value.truth(field);
}

template <RawEnumeration E, class S>
void readInto(E& field, S& value) {
    std::string_view text;
    if (value.text(text)) field = fromRawValue<E>(text).value_or(field);
}

template <class E, class S>
requires std::is_class_v<E>
void readInto(E& entity, S& value) { PeerTableOf<E, S>::get().fill(entity, value); }

template <class S>
void readInto(std::optional<std::string>& field, S& value) {
    std::string_view text;
    if (value.text(text)) field.emplace(text);
}

template <class S>
void readInto(std::optional<std::uint64_t>& field, S& value) {
    std::uint64_t number = 0;
    if (value.number(number)) field = number;
}

template <class S>
void readInto(std::optional<Date>& field, S& value) {
    std::string_view text;
    if (value.text(text)) field = detail::deviceDate(text);
}

template <class T, class S>
void readInto(std::vector<T>& list, S& value) {
    value.elements([&](S element) {
        list.push_back(mapping::detail::fresh<T>());
        readInto(list.back(), element);
    });
}

template <class T, class S>
void readInto(std::optional<T>& field, S& value) {
    readInto(field.emplace(), value);
}

template <auto Member, class S>
constexpr PeerRow<mapping::EntityOf<Member>, S> row(std::string_view key) {
    return {key, [](mapping::EntityOf<Member>& entity, S& value) { readInto(entity.*Member, value); }};
}

}  // namespace VanticRestKit::bench
