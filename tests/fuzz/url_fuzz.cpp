// Passes strings to URLs and their components. None may crash, and the rules for all URLs must hold. An input consists
// of two strings separated by a line feed: one is parsed, the other is appended, resolved and used as a query item.

#include <platform/url/URLRules.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = input.find('\n');
    const std::string text = input.substr(0, end);
    const std::string other = end == std::string::npos ? std::string() : input.substr(end + 1);
    const std::string broken = VanticRestKit::test::brokenRule(text, other);
    if (!broken.empty()) {
        std::fprintf(stderr, "broken rule: %s\n", broken.c_str());
        std::abort();
    }
    return 0;
}
