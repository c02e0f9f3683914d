#include "server/Exchange.h"

#include <string_view>

namespace VanticRestKit::sample {

namespace {

int hexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

std::string decoded(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '%' && i + 2 < text.size() && hexDigit(text[i + 1]) >= 0 &&
            hexDigit(text[i + 2]) >= 0) {
            result += static_cast<char>(hexDigit(text[i + 1]) * 16 + hexDigit(text[i + 2]));
            i += 2;
        } else {
            result += text[i];
        }
    }
    return result;
}

std::vector<std::string_view> parts(std::string_view text, char separator) {
    std::vector<std::string_view> found;
    for (;;) {
        const auto end = text.find(separator);
        found.push_back(text.substr(0, end));
        if (end == std::string_view::npos) return found;
        text.remove_prefix(end + 1);
    }
}

}  // namespace

std::string Request::path() const {
    std::string result;
    for (const auto& segment : segments) {
        if (&segment != &segments.front()) result += '/';
        result += segment;
    }
    return result;
}

std::string Request::queryValue(const std::string& name) const {
    for (const QueryItem& item : query) {
        if (item.name == name) return item.value.value_or("");
    }
    return {};
}

std::vector<std::string> Request::queryValues(const std::string& name) const {
    const std::string value = queryValue(name);
    return value.empty() ? std::vector<std::string>() : split(value, ',');
}

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> result;
    for (const auto part : parts(text, separator)) result.emplace_back(part);
    return result;
}

void readTarget(const std::string& target, Request& request) {
    request.target = target;
    const std::string_view whole = target;
    const auto mark = whole.find('?');

    // A trailing slash is part of a route, so the last segment may be empty; doubled slashes inside the path come from
    // hrefs with a leading slash and have no meaning.
    const auto segments = parts(whole.substr(0, mark), '/');
    for (std::size_t i = 0; i < segments.size(); ++i) {
        if (!segments[i].empty() || (i > 0 && i + 1 == segments.size())) {
            request.segments.push_back(decoded(segments[i]));
        }
    }

    if (mark == std::string_view::npos || mark + 1 == whole.size()) return;
    for (const auto item : parts(whole.substr(mark + 1), '&')) {
        const auto equals = item.find('=');
        QueryItem read{decoded(item.substr(0, equals)), std::nullopt};
        if (equals != std::string_view::npos) read.value = decoded(item.substr(equals + 1));
        request.query.push_back(std::move(read));
    }
}

Reply answered(JSON body) {
    Reply reply;
    reply.body = std::move(body);
    return reply;
}

Reply failure(int status, const std::string& message) {
    Reply reply;
    reply.status = status;
    reply.body = JSON{{"error", {{"status", status}, {"message", message}}}};
    return reply;
}

}  // namespace VanticRestKit::sample
