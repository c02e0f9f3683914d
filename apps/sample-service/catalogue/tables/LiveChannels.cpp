#include "catalogue/Catalogue.h"

namespace sample {

std::vector<Show> liveChannels() {
    return {
        {31, "LIVE", "vantic-news", "Vantic News Live", "livestream", "vantic-news", "news", "CTC",
         "The news channel, as it goes out.", "Presented by", "The newsroom", {"news", "live"}, {}},
        {34, "ONE", "vantic-one", "Vantic One Live", "livestream", "vantic-one", "drama", "PG",
         "Drama and documentaries, as they go out.", "Presented by", "Vantic One", {"live"}, {}},
        {35, "TWO", "vantic-two", "Vantic Two Live", "livestream", "vantic-two", "comedy", "M",
         "Comedy and films, as they go out.", "Presented by", "Vantic Two", {"live"}, {}},
        {36, "PLUS", "vantic-plus", "Vantic Plus Live", "livestream", "vantic-plus", "lifestyle", "G",
         "Craft, food and travel, as they go out.", "Presented by", "Vantic Plus", {"live"}, {}},
        {37, "KIDS", "vantic-kids", "Vantic Kids Live", "livestream", "vantic-kids", "children", "G",
         "For children until bedtime, as it goes out.", "Presented by", "Old Ferdinand", {"children", "live"}, {}},
    };
}

}  // namespace sample
