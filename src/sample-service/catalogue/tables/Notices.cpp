#include "catalogue/Tables.h"

// clang-format off: a table, a line or two for each row

namespace VanticRestKit::sample {

const std::vector<Alert>& alerts() {
    static const auto& table = *new std::vector<Alert>{
        {"storm", "Storm warning for the coast",
         "Vantic News stays with the storm through the night; Harbour Lights follows half an hour later.",
         "important", "Watch live", "/video/LIVE0001", "home"},
        {"new-series", "Harbour Lights is back", "The second series is here, all of it.", "",
         "The second series", "/series/112", "harbour-lights"},
        {"moved", "Night Ferry moves to Thursdays", "From next week, at half past eight.", "information", "",
         "", "night-ferry"},
        {"captions", "More captions", "Nine in ten programmes now have captions.", "", "", "", "shows"},
    };
    return table;
}

const std::vector<Notice>& notices() {
    static const auto& table = *new std::vector<Notice>{
        {501, "The new home screen", "Rows now move sideways.", 1, 0, "", "", ""},
        {502, "Keep your place", "Sign in, and every screen knows where you stopped.", 3, 86'400, "/account",
         "", "false"},
        {503, "Bedtime", "Vantic Kids closes at eight.", 5, 43'200.5, "/channel/vantic-kids", "kids", ""},
        {504, "Watching abroad", "Not every programme may leave the country.", 1, 0, "", "lumeno int", ""},
        {505, "Your list", "Three programmes of your list end this week.", 1, 0, "/mylist", "", "true"},
    };
    return table;
}

std::string alertShownAt(const std::string& place) {
    for (const Alert& alert : alerts()) {
        if (alert.shownAt == place) return alert.id;
    }
    return {};
}

}  // namespace VanticRestKit::sample
