#include "catalogue/Tables.h"

// clang-format off: a table, a line or two for each row

namespace VanticRestKit::sample {

const std::vector<HomeRow>& homeRows() {
    static const auto& table = *new std::vector<HomeRow>{
        {1000,
         "Tonight",
         "featured",
         "Six to begin with.",
         {"show:harbour-lights", "show:brass-octopus", "video:NF0203", "show:small-planets", "series:162",
          "show:parish-council"}},
        {1001,
         "New this week",
         "standard",
         "Fresh episodes.",
         {"video:HL0203", "video:QO0201", "video:KW0202", "video:LO0101", "video:SW0103", "video:LE0201"}},
        {1002,
         "Drama",
         "standard",
         "Stories that want more than one evening.",
         {"show:night-ferry", "show:the-wool-ghosts", "show:third-platform", "show:court-of-reeds",
          "show:glass-sisters", "show:the-long-handover"}},
        {1003,
         "Films",
         "movie",
         "One sitting each.",
         {"show:the-salt-road", "show:paper-lanterns", "show:brass-octopus", "show:north-of-sunday",
          "show:a-grammar-of-birds", "show:midnight-weighbridge"}},
        {1004,
         "Whole series",
         "standard",
         "From the first episode to the last.",
         {"series:111", "series:121", "series:431", "series:511", "series:651"}},
        {1005,
         "By the water",
         "standard",
         "Harbours, rivers and a clock on the sea bed.",
         {"show:harbour-lights", "video:BB0102", "series:452", "show:brass-octopus", "video:DW0103"}},
        {1006,
         "Made by hand",
         "standard",
         "Clay, copper, wool and glass.",
         {"show:copper-and-clay", "show:second-coat", "video:NH0101", "series:441",
          "show:the-umbrella-menders"}},
        {1007,
         "For children",
         "standard",
         "Until bedtime.",
         {"show:small-planets", "show:moss-and-otto", "show:tilda-tunnels", "video:CS0102",
          "show:dinner-with-dragons", "show:the-electric-well"}},
        {1008,
         "Live now",
         "standard",
         "As it goes out.",
         {"video:LIVE0001", "video:ONE0001", "video:TWO0001", "video:PLUS0001", "video:KIDS0001"}},
    };
    return table;
}

}  // namespace VanticRestKit::sample
