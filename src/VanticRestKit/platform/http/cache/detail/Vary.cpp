#include <VanticRestKit/platform/http/cache/detail/Vary.h>

#include <VanticRestKit/platform/http/cache/detail/CacheControl.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>

#include <algorithm>
#include <vector>

namespace VanticRestKit::detail {

namespace {

void addLine(std::string& variant, std::string_view name, const URLRequest& request) {
    variant += name;
    if (const auto value = request.value(name)) {
        variant += ':';
        variant += normalVaryValue(name, *value);
    }
    variant += '\n';
}

/// Whether case and whitespace are insignificant in values of the field.
bool isPlainList(std::string_view name) {
    return name == "accept-language" || name == "accept-encoding" || name == "accept-charset" ||
           name == "accept";
}

}  // namespace

std::optional<std::string> variantOf(std::string_view vary, const URLRequest& request) {
    if (vary.empty()) return std::string();
    std::vector<std::string> names;
    for (const std::string_view name : listMembers(vary)) {
        if (name == "*" || !isToken(name)) return std::nullopt;
        // Keys already contain these as digests; their values must not be written to disk.
        if (sameHeaderName(name, "authorization") || sameHeaderName(name, "cookie")) continue;
        names.push_back(asciiLowered(name));
    }
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    std::string variant;
    for (const std::string& name : names) addLine(variant, name, request);
    return variant;
}

bool fitsVariant(std::string_view variant, const URLRequest& request) {
    std::string line;
    while (!variant.empty()) {
        const std::string_view wanted = variant.substr(0, variant.find('\n') + 1);
        if (wanted.empty()) return false;
        line.clear();
        addLine(line, wanted.substr(0, wanted.find_first_of(":\n")), request);
        if (line != wanted) return false;
        variant.remove_prefix(wanted.size());
    }
    return true;
}

std::string normalVaryValue(std::string_view name, std::string_view value) {
    const bool isPlain = isPlainList(name);
    std::string normal;
    for (const std::string_view member : listMembers(value)) {
        if (!normal.empty()) normal += ',';
        if (!isPlain) {
            normal += member;
            continue;
        }
        for (const char c : member) {
            if (c != ' ' && c != '\t') normal += asciiLower(c);
        }
    }
    return normal;
}

}  // namespace VanticRestKit::detail
