#include "Http.h"

#include <algorithm>
#include <charconv>

namespace living_room {

std::string Request::field(std::string_view name) const {
    const auto found = fields.find(name);
    return found == fields.end() ? std::string() : found->second;
}

std::string Request::cookie(std::string_view name) const {
    const std::string all = "; " + cookies;
    const std::string start = "; " + std::string(name) + "=";
    const std::size_t found = all.find(start);
    if (found == std::string::npos) return {};
    const std::size_t begin = found + start.size();
    return all.substr(begin, all.find(';', begin) - begin);
}

bool Request::read(std::string requested, std::string body) {
    target = std::move(requested);
    // In a form, a plus sign is a space.
    for (std::size_t plus = 0; (plus = body.find('+', plus)) != std::string::npos;)
        body.replace(plus, 1, "%20");
    const auto address = URLComponents::make(target);
    const auto form = URLComponents::make("/?" + body);
    if (!address || address->host() || !form) return false;
    for (const auto& components : {*address, *form}) {
        for (const URLQueryItem& item : components.queryItems().value_or(std::vector<URLQueryItem>())) {
            fields.insert_or_assign(item.name, item.value.value_or(""));
        }
    }
    path = address->path();
    return path.starts_with('/') && path.find('\0') == std::string::npos &&
           path.find("..") == std::string::npos;
}

Answer pageAnswer(std::string_view name, Value values, int status) {
    Data page(rendered(name, std::move(values)));
    return {.status = status, .body = std::move(page), .headers = {{"Cache-Control", "no-store"}}};
}

Answer partAnswer(std::string_view name, Value values, const char* state) {
    Answer answer = pageAnswer(name, std::move(values));
    answer.headers.emplace_back("X-State", state);
    return answer;
}

Answer emptyPart(std::string sentence) {
    return partAnswer("empty", {{"sentence", std::move(sentence)}}, "empty");
}

Answer tilesPart(std::string_view name, Value tiles, std::string sentenceIfNone) {
    if (tiles.empty()) return emptyPart(std::move(sentenceIfNone));
    return partAnswer(name, {{"tiles", std::move(tiles)}});
}

Answer seeOther(std::string address) {
    return {.status = 303, .headers = {{"Location", std::move(address)}, {"Cache-Control", "no-store"}}};
}

bool isPlain(std::string_view text, std::string_view others) {
    return std::all_of(text.begin(), text.end(), [&](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               others.find(c) != std::string_view::npos;
    });
}

std::optional<std::int64_t> numberIn(std::string_view text) {
    std::int64_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size() || number < 0) return std::nullopt;
    return number;
}

}  // namespace living_room
