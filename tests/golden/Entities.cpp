#include <golden/Entities.h>

#include <entities/DecodableTypes.h>

namespace VanticRestKit::test {

namespace {

/// Adds a type to a list of types.
auto addTo(std::vector<NamedType>& types) {
    return [&types]<class T>(std::type_identity<T>, std::string_view name) {
        types.push_back(
            {name, decodable<T>, decodable<std::optional<T>>, decodable<std::vector<std::optional<T>>>});
    };
}

}  // namespace

const std::vector<NamedType>& rootEntities() {
    static const auto& types = *[] {
        auto* const list = new std::vector<NamedType>();
        visitRootTypes(addTo(*list));
        return list;
    }();
    return types;
}

const std::vector<NamedType>& nestedEntities() {
    static const auto& types = *[] {
        auto* const list = new std::vector<NamedType>();
        visitNestedTypes(addTo(*list));
        return list;
    }();
    return types;
}

}  // namespace VanticRestKit::test
