#include "Template.h"

#include "Assets.h"

namespace living_room {

namespace {

/// The text after the line "<!-- template NAME -->", up to the next such line.
std::string_view templateNamed(std::string_view name) {
    const std::string head = "<!-- template " + std::string(name) + " -->\n";
    const std::size_t found = assets::templates.find(head);
    if (found == std::string_view::npos) return {};
    const std::string_view rest = assets::templates.substr(found + head.size());
    return rest.substr(0, rest.find("<!-- template "));
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
                section(tag, text.substr(0, length), kind == '^');
                text.remove_prefix(length + end.size());
            } else if (kind == '>') {
                const bool isNamedByValue = tag.starts_with('*');
                run(templateNamed(isNamedByValue ? found(tag.substr(1)).text() : tag));
            } else {
                escape(found(tag).text());
            }
        }
    }

    std::string&& output() && { return std::move(output_); }

private:
    const Value& found(std::string_view name) const {
        static const Value nothing;
        if (name == ".") return *scopes_.back();
        for (auto scope = scopes_.rbegin(); scope != scopes_.rend(); ++scope) {
            if (const Value* const value = (*scope)->named(name)) return *value;
        }
        return nothing;
    }

    void section(std::string_view name, std::string_view body, bool ifEmpty) {
        const Value& value = found(name);
        if (value.empty() || ifEmpty) {
            if (value.empty() && ifEmpty) run(body);
        } else if (const Value::List* const list = value.list()) {
            for (const Value& item : *list) runWithin(item, body);
        } else {
            runWithin(value, body);
        }
    }

    void runWithin(const Value& scope, std::string_view body) {
        scopes_.push_back(&scope);
        run(body);
        scopes_.pop_back();
    }

    void escape(const std::string& text) {
        for (const char c : text) {
            switch (c) {
                case '&': output_ += "&amp;"; break;
                case '<': output_ += "&lt;"; break;
                case '>': output_ += "&gt;"; break;
                case '"': output_ += "&quot;"; break;
                case '\'': output_ += "&#39;"; break;
                case '\0': output_ += "\xEF\xBF\xBD"; break;  // no character of HTML
                default: output_ += c;
            }
        }
    }

    std::vector<const Value*> scopes_;
    std::string output_{};
};

}  // namespace

bool Value::empty() const {
    if (const auto* truth = std::get_if<bool>(&held_)) return !*truth;
    if (const auto* values = list()) return values->empty();
    return !std::holds_alternative<Object>(held_) && text().empty();
}

std::string Value::text() const {
    if (const auto* truth = std::get_if<bool>(&held_)) return *truth ? "true" : "false";
    const auto* text = std::get_if<std::string>(&held_);
    return text != nullptr ? *text : std::string();
}

const Value* Value::named(std::string_view name) const {
    if (const auto* object = std::get_if<Object>(&held_)) {
        for (const auto& [key, value] : *object) {
            if (key == name) return &value;
        }
    }
    return nullptr;
}

void Value::set(std::string name, Value value) {
    if (auto* object = std::get_if<Object>(&held_)) object->emplace_back(std::move(name), std::move(value));
}

std::string rendered(std::string_view name, const Value& value) {
    Renderer renderer(value);
    renderer.run(templateNamed(name));
    return std::move(renderer).output();
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
