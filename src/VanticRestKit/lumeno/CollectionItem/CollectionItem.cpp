#include <VanticRestKit/lumeno/CollectionItem/CollectionItem.h>

namespace VanticRestKit {

CollectionItem::Text CollectionItem::showSlug(SlugArgument argument) const {
    const auto getter = table_->getters[static_cast<std::size_t>(CollectionItemMember::showSlug)];
    if (getter == nullptr) return defaultShowSlug(argument);
    Text& text = argument.from.value();
    getter(entity_.get(), &text);
    return std::move(text);
}

CollectionItem::Text CollectionItem::defaultShowSlug(const SlugArgument& argument) {
    const Text& text = argument.from.value();
    if (!text) return std::nullopt;
    const std::string& path = *text;
    const std::size_t first = path.find('/');
    if (first == std::string::npos) return std::nullopt;
    const std::size_t second = path.find('/', first + 1);
    if (second == std::string::npos) return std::nullopt;
    const std::size_t third = path.find('/', second + 1);
    return path.substr(second + 1, third == std::string::npos ? third : third - second - 1);
}

}  // namespace VanticRestKit
