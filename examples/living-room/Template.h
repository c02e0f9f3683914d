#pragma once

// Templates of HTML: what is filled in is text and is always escaped; markup is only what stands in a template.

#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace living_room {

/// What a template is filled with: a text, a truth value, a list, or named values.
class Value {
public:
    using List = std::vector<Value>;
    using Object = std::vector<std::pair<std::string, Value>>;

    Value(std::string text = {}) : held_(std::move(text)) {}
    Value(const char* text) : held_(std::string(text)) {}
    Value(std::string_view text) : held_(std::string(text)) {}
    Value(const std::optional<std::string>& text) : held_(text.value_or("")) {}
    Value(std::same_as<bool> auto truth) : held_(truth) {}
    template <std::integral Number>
    requires(!std::same_as<Number, bool>) Value(Number number) : held_(std::to_string(number)) {}
    Value(List list) : held_(std::move(list)) {}
    Value(Object object) : held_(std::move(object)) {}

    /// Whether there is nothing to show: an empty text or list, or false.
    bool empty() const;
    /// As it is shown; empty for lists and objects.
    std::string text() const;
    const List* list() const noexcept { return std::get_if<List>(&held_); }
    /// The value of that name in an object; null if there is none.
    const Value* named(std::string_view name) const;
    void set(std::string name, Value value);

private:
    std::variant<std::string, bool, List, Object> held_;
};

/// The template of that name, filled with `value`. In templates stand
///   {{name}}                  the text of a value, escaped for elements and for attributes in double quotes
///   {{#name}}...{{/name}}     once for each value of a list, or once if the value is not empty
///   {{^name}}...{{/name}}     once if the value is empty or missing
///   {{>name}}, {{>*name}}     another template, by its name or by the value that names it
/// Names are looked up from the inside out. A template cannot hold a section within one of the same name.
std::string rendered(std::string_view name, const Value& value);

/// `text` as a part of an address: the value of a query item.
std::string percentEncoded(std::string_view text);

}  // namespace living_room
