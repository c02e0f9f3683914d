#pragma once

// HTML that escapes by type: whatever is not `Html` already is text, and becomes harmless on the way in.

#include <concepts>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace living_room {

/// Finished markup. It is made by `html`, from literals of this program, and by nothing else.
class Html {
public:
    Html() = default;
    const std::string& text() const& noexcept { return text_; }
    std::string&& text() && noexcept { return std::move(text_); }
    bool empty() const noexcept { return text_.empty(); }
    Html& operator+=(const Html& more) {
        text_ += more.text_;
        return *this;
    }

private:
    friend class HtmlWriter;
    std::string text_{};
};

/// Fills the gaps of a pattern. Text is escaped for elements and for attributes in double quotes.
class HtmlWriter {
public:
    explicit HtmlWriter(std::string_view pattern) : pattern_(pattern) {}

    void add(const Html& part) { gap() += part.text_; }
    void add(std::string_view part);
    void add(std::integral auto part) { gap() += std::to_string(part); }
    void add(const std::same_as<std::optional<std::string>> auto& part) {
        add(part ? std::string_view(*part) : std::string_view());
    }
    void add(const std::vector<Html>& parts);
    Html finish();

private:
    /// The text up to and with what stands before the next gap.
    std::string& gap();

    std::string_view pattern_;
    Html html_{};
};

/// A literal with a `{}` for each part. It does not compile if their numbers differ, or if text would stand in a tag
/// outside of double quotes, where escaping cannot make it harmless.
template <class... Parts>
class HtmlPattern {
public:
    consteval HtmlPattern(const char* text) : text_(text) {
        constexpr bool isMarkup[] = {std::is_same_v<Parts, Html>..., false};
        std::size_t gaps = 0;
        bool inTag = false;
        bool inQuotes = false;
        for (std::size_t i = 0; i < text_.size(); ++i) {
            const char c = text_[i];
            if (inTag && c == '"') inQuotes = !inQuotes;
            if (!inQuotes && c == '<') inTag = true;
            if (!inQuotes && c == '>') inTag = false;
            if (c != '{' || i + 1 == text_.size() || text_[i + 1] != '}') continue;
            if (gaps >= sizeof...(Parts)) throw "a pattern has more gaps than parts";
            if (inTag && !inQuotes && !isMarkup[gaps]) throw "text stands in a tag outside of quotes";
            ++gaps;
        }
        if (gaps != sizeof...(Parts)) throw "a pattern has fewer gaps than parts";
    }
    std::string_view text() const noexcept { return text_; }

private:
    std::string_view text_;
};

/// `html("<a href=\"{}\">{}</a>", address, title)`: the pattern with its gaps filled.
template <class... Parts>
Html html(HtmlPattern<std::type_identity_t<Parts>...> pattern, const Parts&... parts) {
    HtmlWriter writer(pattern.text());
    (writer.add(parts), ...);
    return writer.finish();
}

/// `part` if `condition`, else nothing.
inline Html when(bool condition, Html part) { return condition ? part : Html(); }

/// `text` as a part of an address: the value of a query item.
std::string percentEncoded(std::string_view text);

}  // namespace living_room
