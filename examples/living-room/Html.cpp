#include "Html.h"

namespace living_room {

std::string& HtmlWriter::gap() {
    const std::size_t next = pattern_.find("{}");
    html_.text_ += pattern_.substr(0, next);
    pattern_.remove_prefix(next + 2);
    return html_.text_;
}

void HtmlWriter::add(std::string_view part) {
    std::string& text = gap();
    for (const char c : part) {
        switch (c) {
            case '&': text += "&amp;"; break;
            case '<': text += "&lt;"; break;
            case '>': text += "&gt;"; break;
            case '"': text += "&quot;"; break;
            case '\'': text += "&#39;"; break;
            // A zero byte is no character of HTML.
            case '\0': text += "\xEF\xBF\xBD"; break;
            default: text += c;
        }
    }
}

void HtmlWriter::add(const std::vector<Html>& parts) {
    std::string& text = gap();
    for (const Html& part : parts) text += part.text();
}

Html HtmlWriter::finish() {
    html_.text_ += pattern_;
    return std::move(html_);
}

std::string percentEncoded(std::string_view text) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                             std::string_view("-._~/").find(c) != std::string_view::npos;
        if (isPlain) {
            encoded += c;
        } else {
            encoded += {'%', digits[byte >> 4], digits[byte & 15]};
        }
    }
    return encoded;
}

}  // namespace living_room
