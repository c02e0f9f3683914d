#include <VanticRestKit/platform/json/JSONEncoder.h>

#include <VanticRestKit/platform/json/ValueText.h>
#include <VanticRestKit/platform/text/detail/Hex.h>
#include <VanticRestKit/platform/text/detail/UTF8.h>

#include <cmath>

namespace VanticRestKit {

namespace {

void appendEscaped(std::string& text, char c) {
    switch (c) {
        case '"': text += "\\\""; return;
        case '\\': text += "\\\\"; return;
        case '/': text += "\\/"; return;
        case '\b': text += "\\b"; return;
        case '\f': text += "\\f"; return;
        case '\n': text += "\\n"; return;
        case '\r': text += "\\r"; return;
        case '\t': text += "\\t"; return;
        default: break;
    }
    if (static_cast<unsigned char>(c) >= 0x20) {
        text += c;
        return;
    }
    text += "\\u00";
    detail::appendHex(text, c, detail::lowerHexDigits);
}

std::string quoted(std::string_view text) {
    std::string written = "\"";
    for (const char c : text) appendEscaped(written, c);
    written += '"';
    return written;
}

}  // namespace

JSONObjectWriter::JSONObjectWriter(std::string& text, std::optional<EncodingError>& fault)
    : text_(text), fault_(fault) {
    text_ += '{';
}

void JSONObjectWriter::end() { text_ += '}'; }

void JSONObjectWriter::beginMember(std::string_view key) {
    if (!isFirst_) text_ += ',';
    isFirst_ = false;
    quote(key, key);
    text_ += ':';
}

void JSONObjectWriter::quote(std::string_view key, std::string_view text) {
    if (!fault_ && !detail::isUTF8(text)) fault_ = EncodingError(std::string(key), "The text is not UTF-8.");
    text_ += quoted(text);
}

void JSONObjectWriter::write(std::string_view key, std::string_view text) {
    beginMember(key);
    quote(key, text);
}

void JSONObjectWriter::write(std::string_view key, bool truth) {
    beginMember(key);
    text_ += truth ? "true" : "false";
}

void JSONObjectWriter::write(std::string_view key, double number) {
    beginMember(key);
    if (!fault_ && !std::isfinite(number))
        fault_ = EncodingError(std::string(key), "The number is not finite.");
    text_ += numberText(number);
}

void JSONObjectWriter::write(std::string_view key, std::int64_t number) {
    beginMember(key);
    text_ += std::to_string(number);
}

void JSONObjectWriter::write(std::string_view key, std::uint64_t number) {
    beginMember(key);
    text_ += std::to_string(number);
}

void JSONObjectWriter::write(std::string_view key, const std::vector<std::string>& texts) {
    beginMember(key);
    text_ += '[';
    const char* separator = "";
    for (const std::string& text : texts) {
        text_ += separator;
        quote(key, text);
        separator = ",";
    }
    text_ += ']';
}

Data JSONEncoder::document(std::string_view text) { return Data(quoted(text)); }

}  // namespace VanticRestKit
