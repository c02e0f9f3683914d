#pragma once

// The tables of a home screen for other parsers.

#include "PeerShow.h"

#include <VanticRestKit/lumeno/Categories/Category.h>

#include <utility>

namespace VanticRestKit::bench {

/// The type of an element is determined by its "_entity".
template <class S>
void readInto(std::vector<MixedItem>& list, S& value) {
    const auto add = [&list](auto entity, S& element) {
        readInto(entity, element);
        list.emplace_back(std::move(entity));
    };
    value.elements([&](S element) {
        const std::string_view name = element.entity();
        if (name == "show") {
            add(Show(), element);
        } else if (name == "video") {
            add(Video(), element);
        } else {
            add(Series(), element);
        }
    });
}

/// In these documents, every highlight item is a show.
template <class S>
void readInto(std::optional<CollectionItem>& field, S& value) {
    Show show;
    readInto(show, value);
    field.emplace(std::move(show));
}

template <class S>
struct PeerTableOf<MixedCollection, S> {
    using E = MixedCollection;
    using Table = PeerTable<E, S>;

    static const Table& self() {
        static const Table table({row<&E::href, S>("href")});
        return table;
    }
    static const Table& links() {
        static const Table table({inside<E, S, self>("self")});
        return table;
    }
    static const Table& embedded() {
        static const Table table({row<&E::highlightItem, S>("highlightItem")});
        return table;
    }
    static const Table& get() {
        static const Table table({row<&E::collectionId, S>("id"), row<&E::type, S>("type"),
                                  row<&E::title, S>("title"), row<&E::description, S>("description"),
                                  row<&E::thumbnail, S>("thumbnail"), row<&E::banner, S>("banner"),
                                  row<&E::collectionLink, S>("collectionLink"),
                                  row<&E::mixedItems, S>("items"), inside<E, S, links>("_links"),
                                  inside<E, S, embedded>("_embedded")});
        return table;
    }
};

template <class S>
struct PeerTableOf<Category, S> {
    using E = Category;
    using Table = PeerTable<E, S>;

    static const Table& self() {
        static const Table table({row<&E::selfHref, S>("href")});
        return table;
    }
    static const Table& links() {
        static const Table table({inside<E, S, self>("self")});
        return table;
    }
    static const Table& embedded() {
        static const Table table(
            {row<&E::featuredCollection, S>("featuredCollection"), row<&E::collections, S>("collections")});
        return table;
    }
    static const Table& get() {
        static const Table table(
            {row<&E::id, S>("id"), row<&E::title, S>("title"), row<&E::featuredImageHref, S>("featuredImage"),
             row<&E::logoHref, S>("logoUrl"), row<&E::banner, S>("banner"), row<&E::theme, S>("theme"),
             inside<E, S, embedded>("_embedded"), inside<E, S, links>("_links")});
        return table;
    }
};

/// Converts a parsed document to a value.
template <class T, class S>
T valueOf(S root) {
    const detail::DeviceZoneHold zone;
    T value{};
    readInto(value, root);
    return value;
}

}  // namespace VanticRestKit::bench
