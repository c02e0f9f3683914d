// Arguments with the mistake selected by CASE.
#include <VanticRestKit/Core/HrefURI.h>
#include <VanticRestKit/Core/Omittable.h>
#include <VanticRestKit/Core/Required.h>
#if CASE == 4
#include <VanticRestKit/Core/Loader.h>
#endif

#include <cstdint>

using namespace VanticRestKit;

namespace {

struct Limit {
    Required<std::uint64_t> limit;
    Omittable<std::uint64_t> first{};
};

}  // namespace

int main() {
#if CASE == 0
    const HrefURI uri({.withHref = "x", .andQueryItems = {{"a", "1"}}});
    const Limit limit{.limit = 5, .first = 1};
#elif CASE == 1
    const HrefURI::Arguments uri{.andQueryItems = {{"a", "1"}}};
    const Limit limit{.limit = 5u};
#elif CASE == 2
    const HrefURI::Arguments uri{.withHref = "x"};
    const Limit limit{.limit = 5u};
#elif CASE == 3
    const HrefURI uri({.withHref = "x", .andQueryItems = {{"a", "1"}}});
    const Limit limit{.limit = -1.5};
#elif CASE == 4
    Loader<double> loader(nullptr);
    const HrefURI uri({.withHref = "x", .andQueryItems = {{"a", "1"}}});
    const Limit limit{.limit = 5u};
#elif CASE == 5
    const HrefURI uri({.withHref = "x", .andQueryItems = {{"a", "1"}}});
    const Limit limit{.limit = -1};
#elif CASE == 6
    const HrefURI uri({.withHref = "x", .andQueryItems = {{"a", "1"}}});
    int number = 5;
    const Limit limit{.limit = number};
#elif CASE == 7
    const HrefURI uri({.withHref = "x", .andQueryItems = {{"a", "1"}}});
    const Limit limit{.limit = 5, .first = -1};
#endif
    return static_cast<int>(limit.limit.value());
}
