#pragma once

// HTML templates. What is filled in is text and is always escaped; only the templates contain markup.

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace living_room {

/// What a template is filled with: an object of strings, numbers, Booleans, lists and further objects.
using Value = nlohmann::json;

/// The template of that name, filled with `value`. Templates contain
///   {{name}}                  the text of a value, escaped for elements and for attributes in double quotes
///   {{#name}}...{{/name}}     once for each value of a list, or once if the value is not empty
///   {{^name}}...{{/name}}     once if the value is empty: missing, null, false, or a string or list without elements
///   {{>name}}, {{>*name}}     another template, by its name or by the value that contains its name
/// Names are looked up from the innermost section outwards. Sections of one name cannot be nested in one template.
std::string rendered(std::string_view name, const Value& value);

/// A file that the build embeds in the program, such as "living-room.css"; "templates" contains all templates. Empty if
/// there is no file with that name.
std::string_view asset(std::string_view name);

}  // namespace living_room

/// An empty optional becomes null.
template <class T>
struct nlohmann::adl_serializer<std::optional<T>> {
    static void to_json(json& value, const std::optional<T>& held) { value = held ? json(*held) : json(); }
};
