#include <VanticRestKit/platform/text/CaseCompare.h>

#include <utf8proc.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace VanticRestKit {

namespace {

/// The text with case folded and every character in its decomposed form; empty where it is not UTF-8.
std::optional<std::string> folded(std::string_view text) {
    utf8proc_uint8_t* mapped = nullptr;
    const auto options =
        static_cast<utf8proc_option_t>(UTF8PROC_STABLE | UTF8PROC_DECOMPOSE | UTF8PROC_CASEFOLD);
    const utf8proc_ssize_t size = utf8proc_map(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                               static_cast<utf8proc_ssize_t>(text.size()), &mapped, options);
    if (size < 0) return std::nullopt;
    std::string result(reinterpret_cast<const char*>(mapped), static_cast<std::size_t>(size));
    std::free(mapped);
    return result;
}

}  // namespace

bool sameIgnoringCase(std::string_view a, std::string_view b) {
    if (a == b) return true;
    const std::optional<std::string> first = folded(a);
    const std::optional<std::string> second = folded(b);
    return first && second && *first == *second;
}

}  // namespace VanticRestKit
