#include <VanticRestKit/platform/http/cookies/detail/CookieFileText.h>

#include <zlib.h>

#include <array>
#include <bit>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <system_error>

namespace VanticRestKit::detail {

namespace {

constexpr std::string_view firstLine = "VanticRestKit cookies 1\n";
constexpr std::string_view lastLineBegins = "end ";

// Flag letters.
constexpr char subdomains = 'd';
constexpr char secure = 's';
constexpr char httpOnly = 'h';
constexpr std::array<char, 3> sameSites{'n', 'l', 't'};

std::string checkSumOf(std::string_view text) {
    const auto sum =
        ::crc32_z(0, reinterpret_cast<const unsigned char*>(text.data()), static_cast<z_size_t>(text.size()));
    std::array<char, 16> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), sum, 16);
    return {digits.data(), written.ptr};
}

std::string flagsOf(const HTTPCookie& cookie) {
    // Begins with a dash, so that the field is never empty.
    std::string flags = "-";
    if (cookie.includesSubdomains) flags += subdomains;
    if (cookie.isSecure) flags += secure;
    if (cookie.isHTTPOnly) flags += httpOnly;
    if (cookie.sameSite) flags += sameSites[static_cast<std::size_t>(*cookie.sameSite)];
    return flags;
}

void applyFlag(HTTPCookie& cookie, char flag) {
    if (flag == subdomains) cookie.includesSubdomains = true;
    if (flag == secure) cookie.isSecure = true;
    if (flag == httpOnly) cookie.isHTTPOnly = true;
    for (std::size_t i = 0; i < sameSites.size(); ++i) {
        if (flag == sameSites[i]) cookie.sameSite = static_cast<HTTPCookieSameSite>(i);
    }
}

// Tabs separate the fields here, but a cookie may contain them, as its only control character.
constexpr char tabSubstitute = '\x01';

void appendField(std::string& text, std::string_view field) {
    for (const char c : field) text += c == '\t' ? tabSubstitute : c;
    text += '\t';
}

/// Removes the first field, with the tab at its end, from `line`.
std::optional<std::string> takeField(std::string_view& line) {
    const auto tab = line.find('\t');
    if (tab == std::string_view::npos) return std::nullopt;
    std::string field(line.substr(0, tab));
    for (char& c : field) c = c == tabSubstitute ? '\t' : c;
    line.remove_prefix(tab + 1);
    return field;
}

std::optional<HTTPCookie> readLine(std::string_view line) {
    std::array<std::string, 6> fields;
    for (std::string& field : fields) {
        auto taken = takeField(line);
        if (!taken) return std::nullopt;
        field = *std::move(taken);
    }
    // The bits of the number are stored, so that exactly the same number is read back.
    std::uint64_t bits = 0;
    const std::string& number = fields[4];
    const auto read = std::from_chars(number.data(), number.data() + number.size(), bits, 16);
    if (!line.empty() || read.ec != std::errc() || read.ptr != number.data() + number.size())
        return std::nullopt;
    HTTPCookie cookie;
    cookie.domain = fields[0];
    cookie.path = fields[1];
    cookie.name = fields[2];
    cookie.value = fields[3];
    cookie.expiresDate = Date(std::chrono::duration<double>(std::bit_cast<double>(bits)));
    for (const char flag : fields[5]) applyFlag(cookie, flag);
    return cookie;
}

}  // namespace

std::string cookieFileText(const std::vector<HTTPCookie>& cookies) {
    std::string text(firstLine);
    for (const HTTPCookie& cookie : cookies) {
        const double expires = cookie.expiresDate.value_or(Date()).time_since_epoch().count();
        std::array<char, 16> digits{};
        const auto written = std::to_chars(digits.data(), digits.data() + digits.size(),
                                           std::bit_cast<std::uint64_t>(expires), 16);
        appendField(text, cookie.domain);
        appendField(text, cookie.path);
        appendField(text, cookie.name);
        appendField(text, cookie.value);
        appendField(text, {digits.data(), static_cast<std::size_t>(written.ptr - digits.data())});
        appendField(text, flagsOf(cookie));
        text += '\n';
    }
    const std::string sum = checkSumOf(text);
    return text.append(lastLineBegins).append(sum).append("\n");
}

std::optional<std::vector<HTTPCookie>> readCookieFileText(std::string_view text) {
    if (!text.starts_with(firstLine) || !text.ends_with('\n')) return std::nullopt;
    const auto lastLine = text.substr(0, text.size() - 1).find_last_of('\n') + 1;
    const std::string_view lines = text.substr(0, lastLine);
    std::string end(lastLineBegins);
    end.append(checkSumOf(lines)).append("\n");
    if (text.substr(lastLine) != end) return std::nullopt;
    std::vector<HTTPCookie> cookies;
    std::string_view rest = lines.substr(firstLine.size());
    while (!rest.empty()) {
        const auto lineEnd = rest.find('\n');
        auto cookie = readLine(rest.substr(0, lineEnd));
        if (!cookie) return std::nullopt;
        cookies.push_back(*std::move(cookie));
        rest.remove_prefix(lineEnd + 1);
    }
    return cookies;
}

}  // namespace VanticRestKit::detail
