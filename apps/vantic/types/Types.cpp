#include <entities/DecodableTypes.h>

#include <algorithm>

#include "arguments/Suggestions.h"
#include "Failure.h"
#include "types/Type.h"

namespace vantic {

using namespace VanticRestKit;

namespace {

std::vector<TypeEntry> registry() {
    std::vector<TypeEntry> types;
    const auto add = [&types]<class T>(std::type_identity<T>, std::string_view name) {
        // Each entry also contains the list of the type.
        if constexpr (!mapping::isList<T>) types.push_back(entry<T>(std::string(name)));
    };
    visitRootTypes(add);
    visitNestedTypes(add);
    std::sort(types.begin(), types.end(),
              [](const TypeEntry& a, const TypeEntry& b) { return a.one.name < b.one.name; });
    return types;
}

}  // namespace

std::span<const TypeEntry> allTypes() {
    static const std::vector<TypeEntry> types = registry();
    return types;
}

std::vector<std::string_view> typeNames() {
    std::vector<std::string_view> names;
    for (const TypeEntry& entry : allTypes()) names.push_back(entry.one.name);
    return names;
}

const Type& typeNamed(const std::string& name) {
    for (const TypeEntry& entry : allTypes()) {
        if (entry.one.name == name) return entry.one;
        if (entry.list.name == name) return entry.list;
    }
    // Suggests a list for an unknown list.
    const bool isList = name.size() > 2 && name.front() == '[' && name.back() == ']';
    const std::string one = isList ? name.substr(1, name.size() - 2) : name;
    throw UsageError{"there is no type " + name + suggestion(one, typeNames()) +
                     " (vantic types lists all of them)"};
}

}  // namespace vantic
