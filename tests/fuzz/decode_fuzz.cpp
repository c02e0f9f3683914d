// Passes documents to both engines of the decoder. Neither may crash, and both must have the same outcome. The first
// byte of an input selects the type, the rest is the document.

#include <golden/Entities.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace VanticRestKit;
    if (size == 0) return 0;
    const auto& types = test::rootEntities();
    const test::NamedType& type = types[data[0] % types.size()];
    const std::string_view document(reinterpret_cast<const char*>(data) + 1, size - 1);
    const test::Outcome outcome = test::decodeByBoth(type.type, Data(document));
    if (!outcome.difference.empty()) {
        std::fprintf(stderr, "the engines differ on a %.*s: %s\n", static_cast<int>(type.name.size()),
                     type.name.data(), outcome.difference.c_str());
        std::abort();
    }
    return 0;
}
