// The table of a host's item. CASE 0 has every required member, CASE n lacks the n-th.
#include <VanticRestKit/lumeno/CollectionItem/CollectionItem.h>

using namespace VanticRestKit;

namespace host {

/// Needs no operator==.
struct Podcast {
    std::optional<std::string> none() const { return {}; }
    std::optional<std::uint64_t> number() const { return {}; }
    std::optional<DirectPlayableVideo> video() const { return {}; }
    std::vector<std::string> words() const { return {}; }
};

struct Nothing {
    static constexpr CollectionItemMember member = CollectionItemMember::description;
    static void get(const void*, void*) {}
};

/// The row, unless CASE omits it.
template <int Number, CollectionItemMember Member, auto Source>
constexpr auto row() {
    if constexpr (Number == CASE) {
        return Nothing();
    } else {
        return own<Member, Source>();
    }
}

}  // namespace host

template <>
inline constexpr bool VanticRestKit::isCollectionItem<host::Podcast> = true;

template <>
const CollectionItemTable& VanticRestKit::collectionItemTable<host::Podcast>() {
    using enum CollectionItemMember;
    using host::Podcast;
    using host::row;
    static constexpr CollectionItemTable table = collectionItem<Podcast>(
        row<1, selfHref, &Podcast::none>(), row<2, deeplinkHref, &Podcast::none>(),
        row<3, title, &Podcast::none>(), row<4, displayTitle, &Podcast::none>(),
        row<5, thumbnail, &Podcast::none>(), row<6, showTitle, &Podcast::none>(),
        row<7, showId, &Podcast::number>(), row<8, playableVideo, &Podcast::video>(),
        row<9, kickerTitle, &Podcast::none>(), row<10, tags, &Podcast::words>(),
        row<11, showHref, &Podcast::none>(), row<12, channel, &Podcast::none>(),
        row<13, channelTitle, &Podcast::none>(), row<14, derivedShowSlug, &Podcast::none>());
    return table;
}

int main() { return CollectionItem(host::Podcast()).tags().empty() ? 0 : 1; }
