#pragma once

// HTML templates. What is filled in is text and is always escaped; only the templates contain markup.

#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace living_room {

/// A file that the build puts into the program, such as "living-room.css"; "templates" is all templates in one. Empty
/// if there is no file with that name.
std::string_view asset(std::string_view name);

/// What a template is filled with: a string, a Boolean, a list, or named values.
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

    /// Whether there is nothing to show: an empty string or list, or false.
    bool empty() const;
    /// As it is shown; empty for lists and objects.
    std::string text() const;
    const List* list() const noexcept { return std::get_if<List>(&held_); }
    /// The value with that name in an object; null if there is none.
    const Value* named(std::string_view name) const;

private:
    std::variant<std::string, bool, List, Object> held_;
};

/// The template of that name, filled with `value`. Templates contain
///   {{name}}                  the text of a value, escaped for elements and for attributes in double quotes
///   {{#name}}...{{/name}}     once for each value of a list, or once if the value is not empty
///   {{^name}}...{{/name}}     once if the value is empty or missing
///   {{>name}}, {{>*name}}     another template, by its name or by the value that contains its name
/// Names are looked up from the innermost section outwards. Sections of one name cannot be nested in one template.
std::string rendered(std::string_view name, const Value& value);

}  // namespace living_room
