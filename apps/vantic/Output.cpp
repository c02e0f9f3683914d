#include "Output.h"

#include <VanticRestKit/platform/json/ValueText.h>
#include <VanticRestKit/platform/text/detail/UTF8.h>

#include <algorithm>
#include <cstdio>

#include "Failure.h"

namespace vantic {

namespace {

std::string validText(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto character = VanticRestKit::detail::firstCharacter(bytes);
        if (character.length == 0) {
            text += "\uFFFD";
            bytes.remove_prefix(1);
        } else {
            text += bytes.substr(0, character.length);
            bytes.remove_prefix(character.length);
        }
    }
    return text;
}

}  // namespace

// Errors are reported by `flush`, because the stream remembers them.
void print(std::string_view text) { std::fwrite(text.data(), 1, text.size(), stdout); }

void report(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
    line += '\n';
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void flush() {
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) throw Failed{"cannot write to standard output"};
}

std::string jsonText(std::string_view bytes) { return VanticRestKit::quotedText(validText(bytes)); }

}  // namespace vantic
