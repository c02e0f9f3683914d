#include "Http.h"

#include <algorithm>

namespace living_room {

namespace {

std::string valueIn(const Fields& fields, std::string_view name) {
    const auto found = fields.find(name);
    return found == fields.end() ? std::string() : found->second;
}

/// The items of the query of `address`; empty if it cannot be read.
std::optional<Fields> fieldsOf(const std::optional<URLComponents>& address) {
    if (!address) return std::nullopt;
    Fields fields;
    for (const URLQueryItem& item : address->queryItems().value_or(std::vector<URLQueryItem>())) {
        fields.insert_or_assign(item.name, item.value.value_or(""));
    }
    return fields;
}

}  // namespace

std::string Request::queried(std::string_view name) const { return valueIn(query, name); }
std::string Request::posted(std::string_view name) const { return valueIn(form, name); }
std::string Request::header(std::string_view name) const { return valueIn(headers, name); }

std::string Request::cookie(std::string_view name) const {
    const std::string all = "; " + header("cookie");
    const std::string start = "; " + std::string(name) + "=";
    const std::size_t found = all.find(start);
    if (found == std::string::npos) return {};
    const std::size_t begin = found + start.size();
    return all.substr(begin, all.find(';', begin) - begin);
}

Answer pageAnswer(std::string_view name, const Value& value, int status) {
    return {
        .status = status, .body = Data(rendered(name, value)), .headers = {{"Cache-Control", "no-store"}}};
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

bool readTarget(const std::string& target, Request& request) {
    const auto address = URLComponents::make(target);
    auto query = fieldsOf(address);
    if (!query || address->host()) return false;
    request.path = address->path();
    request.query = *std::move(query);
    return request.path.starts_with('/') && request.path.find('\0') == std::string::npos &&
           request.path.find("..") == std::string::npos;
}

bool readForm(std::string body, Request& request) {
    // A space of a form.
    for (auto plus = body.find('+'); plus != std::string::npos; plus = body.find('+', plus)) {
        body.replace(plus, 1, "%20");
    }
    auto form = fieldsOf(URLComponents::make("/?" + body));
    if (form) request.form = *std::move(form);
    return form.has_value();
}

}  // namespace living_room
