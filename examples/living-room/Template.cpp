#include "Template.h"

#include <vector>

namespace living_room {
namespace {

/// The text after the line "<!-- template NAME -->", up to the next such line.
std::string_view templateNamed(std::string_view name) {
    const std::string head = "<!-- template " + std::string(name) + " -->\n";
    const std::string_view all = asset("templates");
    const std::size_t found = all.find(head);
    if (found == std::string_view::npos) return {};
    const std::string_view rest = all.substr(found + head.size());
    return rest.substr(0, rest.find("<!-- template "));
}

/// A string as it is, numbers and Booleans as in JSON; nothing for lists and objects.
std::string textOf(const Value& value) {
    if (value.is_string()) return value.get<std::string>();
    return value.is_number() || value.is_boolean() ? value.dump() : "";
}

bool isEmpty(const Value& value) {
    return value.is_structured() ? value.empty() : textOf(value).empty() || value == false;
}

class Renderer {
public:
    explicit Renderer(const Value& value) : scopes_{&value} {}

    void run(std::string_view text) {
        for (;;) {
            const std::size_t open = text.find("{{");
            output_ += text.substr(0, open);
            if (open == std::string_view::npos) return;
            const std::size_t close = text.find("}}", open);
            std::string_view tag = text.substr(open + 2, close - open - 2);
            text.remove_prefix(close + 2);
            const char kind = tag.front();
            if (kind == '#' || kind == '^' || kind == '>') tag.remove_prefix(1);
            if (kind == '#' || kind == '^') {
                const std::string end = "{{/" + std::string(tag) + "}}";
                const std::size_t length = text.find(end);
                section(found(tag), text.substr(0, length), kind == '^');
                text.remove_prefix(length + end.size());
            } else if (kind == '>') {
                run(templateNamed(tag.starts_with('*') ? textOf(found(tag.substr(1))) : tag));
            } else {
                escape(textOf(found(tag)));
            }
        }
    }

    std::string&& output() && { return std::move(output_); }

private:
    const Value& found(std::string_view name) const {
        static const Value nothing;
        if (name == ".") return *scopes_.back();
        for (auto scope = scopes_.rbegin(); scope != scopes_.rend(); ++scope) {
            const auto value = (*scope)->find(name);
            if (value != (*scope)->end()) return *value;
        }
        return nothing;
    }

    void section(const Value& value, std::string_view body, bool ifEmpty) {
        if (isEmpty(value) != ifEmpty) return;
        if (value.is_array() && !ifEmpty) {
            for (const Value& item : value) runWithin(item, body);
        } else {
            runWithin(value, body);
        }
    }

    void runWithin(const Value& scope, std::string_view body) {
        scopes_.push_back(&scope);
        run(body);
        scopes_.pop_back();
    }

    void escape(std::string_view text) {
        // HTML has no character for a zero byte.
        constexpr std::string_view special("&<>\"'\0", 6);
        constexpr const char* escapes[] = {"&amp;", "&lt;", "&gt;", "&quot;", "&#39;", "\xEF\xBF\xBD"};
        for (const char c : text) {
            const std::size_t index = special.find(c);
            if (index == std::string_view::npos) {
                output_ += c;
            } else {
                output_ += escapes[index];
            }
        }
    }

    std::vector<const Value*> scopes_;
    std::string output_{};
};

}  // namespace

std::string rendered(std::string_view name, const Value& value) {
    Renderer renderer(value);
    renderer.run(templateNamed(name));
    return std::move(renderer).output();
}

}  // namespace living_room
