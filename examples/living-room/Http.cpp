#include "Http.h"

#include <algorithm>
#include <charconv>

namespace living_room {

namespace {

std::string valueIn(const Fields& fields, std::string_view name) {
    const auto found = fields.find(name);
    return found == fields.end() ? std::string() : found->second;
}

std::optional<std::string> decoded(std::string_view text, bool plusIsSpace) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            plain += plusIsSpace && text[i] == '+' ? ' ' : text[i];
            continue;
        }
        unsigned value = 0;
        const char* const digits = text.data() + i + 1;
        if (text.size() - i < 3 || std::from_chars(digits, digits + 2, value, 16).ptr != digits + 2) {
            return std::nullopt;
        }
        plain += static_cast<char>(value);
        i += 2;
    }
    return plain;
}

}  // namespace

std::string Request::queried(std::string_view name) const { return valueIn(query, name); }
std::string Request::posted(std::string_view name) const { return valueIn(form, name); }
std::string Request::header(std::string_view name) const { return valueIn(headers, name); }

std::string Request::cookie(std::string_view name) const {
    const std::string all = header("cookie");
    std::string_view rest = all;
    while (!rest.empty()) {
        const std::string_view pair = rest.substr(0, rest.find(';'));
        rest.remove_prefix(std::min(rest.size(), pair.size() + 1));
        const std::string_view trimmed = pair.substr(std::min(pair.size(), pair.find_first_not_of(' ')));
        const std::size_t equals = trimmed.find('=');
        if (equals != std::string_view::npos && trimmed.substr(0, equals) == name) {
            return std::string(trimmed.substr(equals + 1));
        }
    }
    return {};
}

Answer pageAnswer(std::string_view name, const Value& value, int status) {
    return {.status = status,
            .body = VanticRestKit::Data(rendered(name, value)),
            .headers = {{"Cache-Control", "no-store"}}};
}

Answer partAnswer(std::string_view name, const Value& value, const char* state) {
    Answer answer = pageAnswer(name, value);
    answer.headers.emplace_back("X-State", state);
    return answer;
}

Answer emptyPart(const char* sentence) {
    return partAnswer("empty", Value::Object{{"sentence", sentence}}, "empty");
}

Answer seeOther(std::string address) {
    return {.status = 303, .headers = {{"Location", std::move(address)}, {"Cache-Control", "no-store"}}};
}

std::optional<Fields> readFields(std::string_view text) {
    Fields fields;
    while (!text.empty()) {
        const std::string_view item = text.substr(0, text.find('&'));
        text.remove_prefix(std::min(text.size(), item.size() + 1));
        const std::size_t equals = std::min(item.find('='), item.size());
        auto name = decoded(item.substr(0, equals), true);
        auto value = decoded(item.substr(std::min(equals + 1, item.size())), true);
        if (!name || !value) return std::nullopt;
        fields.insert_or_assign(*std::move(name), *std::move(value));
    }
    return fields;
}

bool readTarget(std::string_view target, Request& request) {
    const std::size_t question = std::min(target.find('?'), target.size());
    auto path = decoded(target.substr(0, question), false);
    auto query = readFields(target.substr(std::min(question + 1, target.size())));
    if (!path || !query || !path->starts_with('/')) return false;
    if (path->find('\0') != std::string::npos || path->find("..") != std::string::npos) return false;
    request.path = *std::move(path);
    request.query = *std::move(query);
    return true;
}

}  // namespace living_room
