#include "catalogue/Catalogue.h"

namespace sample {

std::vector<Show> comedy() {
    return {
        {64, "PC", "parish-council", "Parish Council", "episode", "vantic-two", "comedy", "PG",
         "Nine people, one bench, and where to put it.", "Starring", "Dilys Corcoran, Bartholomew Eze",
         {"comedy", "people"}, {{"Any Other Business", "The Bench", "Points of Order"}, {"Minutes", "The Other Bench"}}},
        {65, "LO", "lost-on-purpose", "Lost on Purpose", "episode", "vantic-two", "comedy", "M",
         "A lost property office hires someone who loses things.", "Starring", "Zuleika Hartnoll, Monty Adeyemi",
         {"comedy", "railway"}, {{"One Glove", "Claim Form", "The Tuba"}, {"Unattended", "Found"}}},
        {66, "HB", "hold-the-bagpipes", "Hold the Bagpipes", "episode", "vantic-two", "comedy", "PG",
         "The second-worst pipe band of the county prepares for the worst.", "Starring",
         "Fergus Ballantine-Choi, Oona Reddy", {"comedy", "music"}, {{"Drones", "Uniforms", "Second to Last"}}},
        {67, "WN", "weather-or-not", "Weather or Not", "episode", "vantic-one", "comedy", "PG",
         "Two forecasters who have not spoken since the hailstorm share one desk.", "Starring",
         "Marguerite Osei, Ignatius Bell", {"comedy", "weather"}, {{"Isobars", "Sunny Spells", "The Apology"}, {"Gale Warning", "Clearing"}}},
        {68, "FG", "five-good-chairs", "Five Good Chairs", "episode", "vantic-one", "comedy", "M",
         "A flat, six tenants, five chairs.", "Starring", "Orla Venn, Sunil Castaway", {"comedy"},
         {{"House Meeting", "The Stool", "Subletting", "Six"}}},
        {69, "UM", "the-umbrella-menders", "The Umbrella Menders", "episode", "vantic-one", "comedy", "G",
         "In the driest town of the country, business is slow.", "Starring", "Tam Weatherby, Dilys Corcoran",
         {"comedy", "weather", "craft"}, {{"Forecast", "A Customer", "The Rain Dance"}}},
    };
}

}  // namespace sample
