// Constructs an empty value. KIND selects the type and CASE the way of construction.
#include <VanticRestKit/lumeno/Navigation/BrowseList.h>
#include <VanticRestKit/lumeno/Remap/Remap.h>
#include <VanticRestKit/lumeno/Show/ShowSummary.h>

using namespace VanticRestKit;

#if CASE % 10 == 0
using Type = Remap;
#elif CASE % 10 == 1
using Type = BrowseItem;
#elif CASE % 10 == 2
using Type = BrowseList;
#elif CASE % 10 == 3
using Type = ShowSummary;
#endif

int main() {
#if CASE / 10 == 0
    const std::optional<Type> value;
#elif CASE / 10 == 1
    const std::optional<Type> value = Type{};
#elif CASE / 10 == 2
    const std::optional<Type> value = mapping::fresh<Type>();
#elif CASE / 10 == 3
    const std::optional<Type> value = Type(mapping::Fresh());
#elif CASE / 10 == 4
    const std::optional<Type> value = Type({});
#endif
    return value ? 1 : 0;
}
