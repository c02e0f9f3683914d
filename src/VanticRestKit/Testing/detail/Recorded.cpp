#include <VanticRestKit/platform/error/NSError.h>
#include <VanticRestKit/Testing/detail/Recorded.h>

#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <utility>
#include <vector>

namespace VanticRestKit::Testing::detail {

namespace {

constexpr std::size_t maxNameLength = 80;

/// A short hash (FNV-1a).
std::string digest(std::string_view text) {
    std::uint32_t hash = 2'166'136'261;
    for (const char letter : text) hash = (hash ^ static_cast<unsigned char>(letter)) * 16'777'619;
    char digits[16];
    std::snprintf(digits, sizeof digits, "%08x", hash);
    return digits;
}

/// Removes and returns the first line.
std::string_view nextLine(std::string_view& text) {
    const auto end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

/// Removes and returns the lines that begin with a mark, without the mark and the space after it.
std::vector<std::string> markedLines(std::string_view& text, char mark) {
    std::vector<std::string> lines;
    while (text.starts_with(mark)) {
        std::string_view line = nextLine(text).substr(1);
        if (line.starts_with(' ')) line.remove_prefix(1);
        lines.emplace_back(line);
        if (mark == '<' && line.empty()) break;
    }
    return lines;
}

std::pair<std::string, std::string> headerOf(const std::string& line) {
    const auto colon = line.find(": ");
    if (colon == std::string::npos) return {line, ""};
    return {line.substr(0, colon), line.substr(colon + 2)};
}

std::optional<std::int64_t> numberOf(std::string_view text) {
    std::int64_t number = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (fault != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

/// Parses "error NSURLErrorDomain -1001 The request timed out."
std::optional<Answer> errorOf(std::string_view line) {
    line.remove_prefix(std::strlen("error "));
    const auto first = line.find(' ');
    if (first == std::string_view::npos) return std::nullopt;
    const auto second = std::min(line.find(' ', first + 1), line.size());
    const auto code = numberOf(line.substr(first + 1, second - first - 1));
    if (!code) return std::nullopt;
    const std::string domain(line.substr(0, first));
    if (domain == NSURLErrorDomain) return Answer::error(static_cast<URLErrorCode>(*code));
    const std::string description(line.substr(std::min(second + 1, line.size())));
    return Answer::error(NSError(domain, *code, {{std::string(NSLocalizedDescriptionKey), description}}));
}

std::optional<Answer> answerOf(const std::vector<std::string>& head, std::string_view body) {
    if (head.empty()) return std::nullopt;
    if (head.front().starts_with("error ")) return errorOf(head.front());
    const auto status = numberOf(head.front());
    if (!status || head.back() != "") return std::nullopt;
    Answer answer = Answer(std::string(body)).withStatus(*status);
    for (std::size_t i = 1; i + 1 < head.size(); ++i) {
        auto [name, value] = headerOf(head[i]);
        answer = answer.withHeader(std::move(name), std::move(value));
    }
    return answer;
}

std::string errorText(const Answer& answer) {
    if (const auto* code = std::get_if<URLErrorCode>(&answer.failure())) {
        return std::string(NSURLErrorDomain) + " " + std::to_string(static_cast<std::int64_t>(*code));
    }
    const Error& error = std::get<Error>(answer.failure());
    std::string description = error.localizedDescription();
    for (char& letter : description) {
        if (letter == '\n') letter = ' ';
    }
    return error.domain() + " " + std::to_string(error.code()) + " " + description;
}

void appendMarked(std::string& text, char mark, std::string_view lines) {
    bool isLast = false;
    while (!isLast) {
        isLast = lines.find('\n') == std::string_view::npos;
        text.append(1, mark).append(" ").append(nextLine(lines)).append("\n");
    }
}

}  // namespace

RecordedRequest RecordedRequest::of(const AskedRequest& asked, const Redaction& redaction) {
    RecordedRequest request;
    request.line = asked.method() + " " + asked.path();
    if (const std::string items = asked.query(); !items.empty()) {
        request.line.append("?").append(redaction.query(items));
    }
    for (const auto& [name, value] : asked.request.allHTTPHeaderFields()) {
        request.headers.emplace(name, redaction.header(name, value));
    }
    request.body = redaction.body(asked.body(), asked.header("Content-Type").value_or(""));
    return request;
}

std::string RecordedRequest::fileName() const {
    const std::string_view whole = line;
    std::string name;
    for (const char letter : whole.substr(0, whole.find('?'))) {
        const bool isPlain = (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z') ||
                             (letter >= '0' && letter <= '9') || letter == '-';
        if (isPlain) {
            name += letter;
        } else if (!name.ends_with('_')) {
            name += '_';
        }
    }
    const bool isWhole =
        name.size() <= maxNameLength && body.empty() && whole.find('?') == std::string_view::npos;
    name.resize(std::min(name.size(), maxNameLength));
    return isWhole ? name : name + "_" + digest(key());
}

std::string Recorded::text() const {
    std::string text;
    appendMarked(text, '>', request.line);
    for (const auto& [name, value] : request.headers) appendMarked(text, '>', name + ": " + value);
    if (!request.body.empty()) {
        text += ">\n";
        appendMarked(text, '>', request.body);
    }
    if (answer.failure().index() != 0) return text + "< error " + errorText(answer) + "\n";
    text.append("< ").append(std::to_string(answer.status())).append("\n");
    for (const auto& [name, value] : answer.headers()) appendMarked(text, '<', name + ": " + value);
    text += "<\n";
    return answer.body() ? text.append(answer.body()->view()) : text;
}

std::optional<Recorded> Recorded::read(std::string_view text) {
    const std::vector<std::string> asked = markedLines(text, '>');
    const std::vector<std::string> head = markedLines(text, '<');
    std::optional<Answer> answer = answerOf(head, text);
    if (asked.empty() || !answer) return std::nullopt;
    RecordedRequest request{.line = asked.front()};
    std::size_t i = 1;
    for (; i < asked.size() && !asked[i].empty(); ++i) request.headers.insert(headerOf(asked[i]));
    const std::size_t first = i + 1;
    for (i = first; i < asked.size(); ++i) request.body.append(i == first ? "" : "\n").append(asked[i]);
    return Recorded{std::move(request), *std::move(answer)};
}

std::string indented(std::string_view json) {
    std::string text;
    std::size_t depth = 0;
    bool isInString = false;
    const auto newLine = [&] { text.append(1, '\n').append(depth * 2, ' '); };
    for (std::size_t i = 0; i < json.size(); ++i) {
        const char letter = json[i];
        if (isInString) {
            text += letter;
            if (letter == '\\' && i + 1 < json.size()) text += json[++i];
            isInString = letter != '"';
            continue;
        }
        if (std::strchr(" \t\r\n", letter) != nullptr) continue;
        const bool closes = letter == '}' || letter == ']';
        if (closes && depth > 0) --depth;
        const bool isEmpty = closes && (text.ends_with('{') || text.ends_with('['));
        if (text.ends_with('{') || text.ends_with('[') || text.ends_with(',') || closes) {
            if (!isEmpty) newLine();
        }
        text += letter;
        if (letter == '{' || letter == '[') ++depth;
        if (letter == ':') text += ' ';
        isInString = letter == '"';
    }
    return text;
}

}  // namespace VanticRestKit::Testing::detail
