#include <VanticRestKit/Testing/detail/TextDistance.h>
#include <VanticRestKit/Testing/RequestPattern.h>

#include <algorithm>
#include <string_view>

namespace VanticRestKit::Testing {

namespace {

/// The parts between the separators, without empty ones.
std::vector<std::string> parts(std::string_view text, char separator) {
    std::vector<std::string> found;
    while (!text.empty()) {
        const auto end = std::min(text.find(separator), text.size());
        if (end > 0) found.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return found;
}

std::string quoted(std::string_view text) {
    std::string result = "\"";
    return result.append(text).append("\"");
}

bool takesTheRest(const std::vector<std::string>& segments, std::size_t at) {
    return segments[at] == "**" && at + 1 == segments.size();
}

std::optional<std::string> pathMismatch(const std::vector<std::string>& expected, const std::string& path) {
    const std::vector<std::string> actual = parts(path, '/');
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (takesTheRest(expected, i)) return std::nullopt;
        if (i >= actual.size()) return "the path ends before " + quoted(expected[i]);
        if (expected[i] != "*" && expected[i] != actual[i]) {
            return "the path has " + quoted(actual[i]) + " instead of " + quoted(expected[i]);
        }
    }
    if (actual.size() > expected.size()) {
        return "the path continues with " + quoted(actual[expected.size()]);
    }
    return std::nullopt;
}

}  // namespace

RequestPattern::RequestPattern(std::string text) : text_(std::move(text)) {
    std::string_view rest = text_;
    if (const auto space = rest.find(' '); space != std::string_view::npos) {
        method_ = rest.substr(0, space);
        rest.remove_prefix(space + 1);
    }
    const auto mark = std::min(rest.find('?'), rest.size());
    segments_ = parts(rest.substr(0, mark), '/');
    items_ = parts(rest.substr(std::min(mark + 1, rest.size())), '&');
}

RequestPattern RequestPattern::withHeader(std::string name, std::string value) const {
    RequestPattern changed = *this;
    changed.headers_.emplace_back(std::move(name), std::move(value));
    return changed;
}

RequestPattern RequestPattern::withBody(std::string text) const {
    RequestPattern changed = *this;
    changed.bodies_.push_back(std::move(text));
    return changed;
}

std::optional<std::string> RequestPattern::mismatch(const AskedRequest& asked) const {
    if (!method_.empty() && method_ != asked.method())
        return "the method is " + asked.method() + " instead of " + method_;
    if (const auto reason = pathMismatch(segments_, asked.path())) return reason;
    const std::vector<std::string> items = parts(asked.query(), '&');
    for (const std::string& item : items_) {
        if (std::find(items.begin(), items.end(), item) == items.end()) {
            return "the query " + quoted(asked.query()) + " lacks " + quoted(item);
        }
    }
    for (const auto& [name, value] : headers_) {
        const std::optional<std::string> actual = asked.header(name);
        if (!actual) return "the header " + name + " is missing";
        if (*actual != value)
            return "the header " + name + " is " + quoted(*actual) + " instead of " + quoted(value);
    }
    for (const std::string& body : bodies_) {
        if (asked.body().find(body) == std::string::npos) return "the body lacks " + quoted(body);
    }
    return std::nullopt;
}

std::size_t RequestPattern::distance(const AskedRequest& asked) const {
    if (fits(asked)) return 0;
    const auto space = text_.find(' ');
    const std::string path = text_.substr(space == std::string::npos ? 0 : space + 1);
    std::size_t distance = 1 + detail::textDistance(path.substr(0, path.find('?')), asked.path());
    if (!method_.empty() && method_ != asked.method()) distance += 3;
    return distance;
}

std::string RequestPattern::text() const {
    std::string text = text_;
    for (const auto& [name, value] : headers_) text.append(" with ").append(name).append(": ").append(value);
    for (const std::string& body : bodies_) text.append(" with a body that contains ").append(quoted(body));
    return text;
}

}  // namespace VanticRestKit::Testing
