#include <VanticRestKit/platform/http/cache/detail/CacheControl.h>

#include <VanticRestKit/platform/http/detail/HeaderName.h>

#include <algorithm>

namespace VanticRestKit::detail {

namespace {

using std::chrono::seconds;

/// The argument of a directive: `text` is empty if there is none, and `isGood` is false if it is malformed.
struct Argument {
    std::optional<std::string> text{};
    bool isGood = true;

    std::optional<seconds> delta() const { return text && isGood ? parseDeltaSeconds(*text) : std::nullopt; }
};

Argument readArgument(std::string_view text) {
    if (!text.starts_with('"')) return {std::string(text), true};
    std::string plain;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (text[i] == '"') return {std::move(plain), i + 1 == text.size()};
        if (text[i] == '\\' && i + 1 < text.size()) ++i;
        plain += text[i];
    }
    return {std::move(plain), false};
}

void addNames(std::vector<std::string>& to, std::string_view list) {
    for (const std::string_view name : listMembers(list)) to.emplace_back(name);
}

void setOnce(std::optional<seconds>& to, std::optional<seconds> value) {
    if (!to) to = value;
}

/// The position of the closing quote of the quoted string that begins at `opening`.
std::optional<std::size_t> closingQuote(std::string_view text, std::size_t opening) {
    for (std::size_t i = opening + 1; i < text.size(); ++i) {
        if (text[i] == '"') return i;
        if (text[i] == '\\') ++i;
    }
    return std::nullopt;
}

class Directives {
public:
    void add(std::string_view directive) {
        const auto equals = directive.find('=');
        // A space next to the equals sign is malformed. The name is still recognised, so that a restriction is not
        // lost.
        const std::string_view name = trimmed(directive.substr(0, equals));
        if (equals == std::string_view::npos) {
            add(name, {});
        } else {
            Argument argument = readArgument(directive.substr(equals + 1));
            if (name.size() != equals) argument.isGood = false;
            add(name, argument);
        }
    }

    CacheControl take() { return std::move(control_); }

private:
    void add(std::string_view name, const Argument& argument) {
        const auto is = [name](std::string_view known) { return sameHeaderName(name, known); };
        if (is("max-age")) {
            setOnce(control_.maxAge, argument.delta().value_or(seconds(0)));
        } else if (is("no-store")) {
            control_.noStore = true;
        } else if (is("no-cache")) {
            addNoCache(argument);
        } else if (is("must-revalidate")) {
            control_.mustRevalidate = true;
        } else if (is("must-understand")) {
            control_.mustUnderstand = true;
        } else if (is("public")) {
            control_.isPublic = true;
        } else if (is("private")) {
            control_.isPrivate = true;
        } else if (is("immutable")) {
            control_.isImmutable = true;
        } else if (is("only-if-cached")) {
            control_.onlyIfCached = true;
        } else if (is("max-stale")) {
            setOnce(control_.maxStale, argument.text ? argument.delta() : seconds::max());
        } else if (is("min-fresh")) {
            setOnce(control_.minFresh, argument.delta());
        } else if (is("stale-while-revalidate")) {
            setOnce(control_.staleWhileRevalidate, argument.delta());
        } else if (is("stale-if-error")) {
            setOnce(control_.staleIfError, argument.delta());
        }
    }

    void addNoCache(const Argument& argument) {
        if (argument.text && argument.isGood) addNames(control_.noCacheFields, *argument.text);
        control_.noCache =
            control_.noCache || !argument.text || !argument.isGood || listMembers(*argument.text).empty();
    }

    CacheControl control_;
};

}  // namespace

CacheControl CacheControl::parse(std::string_view value) {
    if (value.empty()) return {};
    Directives directives;
    for (const std::string_view directive : listMembers(value)) directives.add(directive);
    return directives.take();
}

std::optional<seconds> parseDeltaSeconds(std::string_view text) {
    if (text.empty()) return std::nullopt;
    std::int64_t number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') return std::nullopt;
        number = std::min<std::int64_t>(number * 10 + (c - '0'), maxDeltaSeconds.count());
    }
    return seconds(number);
}

std::vector<std::string_view> listMembers(std::string_view value) {
    std::vector<std::string_view> members;
    std::size_t start = 0;
    const auto end = [&](std::size_t at) {
        const std::string_view member = trimmed(value.substr(start, at - start));
        if (!member.empty()) members.push_back(member);
        start = at + 1;
    };
    for (std::size_t i = 0; i < value.size(); ++i) {
        if (value[i] == ',') end(i);
        // A quote without a closing quote is an ordinary character, so that it does not hide what follows.
        if (value[i] == '"') i = closingQuote(value, i).value_or(i);
    }
    end(value.size());
    return members;
}

}  // namespace VanticRestKit::detail
