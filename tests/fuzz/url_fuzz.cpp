// Feeds texts to URLs and their components: none may crash, and what holds for every URL holds for theirs.
// An input is two texts with a line feed between them: one is read, the other is appended, resolved and made
// an item.

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
