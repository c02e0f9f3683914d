#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>

#include <VanticRestKit/lumeno/Show/Show.h>
#include <VanticRestKit/platform/json/Table.h>

namespace VanticRestKit {

template <>
const TypePlan& planOf<MixedCollection>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<MixedCollection>(
        lenient<&MixedCollection::collectionId, decimalOrText>("id"),
        lenient<&MixedCollection::type, fromRaw<MixedCollectionType>>("type"),
        required<&MixedCollection::title>("title"),
        lenient<&MixedCollection::description>("description"),
        lenient<&MixedCollection::thumbnail>("thumbnail"),
        lenient<&MixedCollection::banner>("banner"),
        lenient<&MixedCollection::collectionLink>("collectionLink"),
        lenient<&MixedCollection::mixedItems, eachOneOf<Show, Video, Series>>("items"),
        lenientObject("_links",
            requiredObject("self",
                required<&MixedCollection::href>("href")),
            lenientObject("alert",
                lenient<&MixedCollection::alertId>("id"))),
        lenientObject("_embedded",
            lenient<&MixedCollection::highlightItem, oneOf<Show, Video>>("highlightItem")));
    // clang-format on
    return plan;
}

template <>
const TypePlan& planOf<MixedCollection::Empty>() {
    static const TypePlan& plan = mapping::makeAnythingPlan("MixedCollection.Empty");
    return plan;
}

MixedCollection::MixedCollection(Members members)
    : collectionId(std::move(members.collectionId).value()),
      title(std::move(members.title).value()),
      mixedItems(std::move(members.mixedItems).value()),
      href(std::move(members.href).value()),
      type(std::move(members.type).value()),
      description(std::move(members.description).value()),
      thumbnail(std::move(members.thumbnail).value()),
      banner(std::move(members.banner).value()),
      collectionLink(std::move(members.collectionLink).value()),
      highlightItem(std::move(members.highlightItem).value()),
      alertId(std::move(members.alertId).value()) {}

MixedCollection::MixedCollection(Items items)
    : title(std::move(items.title).value()), href(std::move(items.href).value()) {
    for (CollectionItem& item : items.items.value()) mixedItems.emplace_back(std::move(item));
}

std::vector<CollectionItem> MixedCollection::items() const {
    std::vector<CollectionItem> items;
    for (const MixedItem& item : mixedItems) {
        if (item.item()) items.push_back(*item.item());
    }
    return items;
}

}  // namespace VanticRestKit
