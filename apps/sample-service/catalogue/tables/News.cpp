#include "catalogue/Catalogue.h"

namespace sample {

std::vector<Show> news() {
    return {
        {70, "MD", "the-morning-desk", "The Morning Desk", "episode", "vantic-news", "news", "CTC",
         "What happened overnight, before the kettle boils.", "Presented by", "Adaeze Whitlock, Ned Sorensen", {"news"},
         {{"Monday", "Tuesday", "Wednesday", "Thursday", "Friday"}}},
        {71, "HR", "half-past", "Half Past", "episode", "vantic-news", "news", "CTC",
         "The hour in three minutes.", "Presented by", "The newsroom", {"news"}, {{"Midday", "Afternoon", "Evening"}}},
        {72, "LE", "the-long-explainer", "The Long Explainer", "episode", "vantic-news", "news", "PG",
         "One question, asked until it is answered.", "Presented by", "Thandeka Mirov", {"news", "science"},
         {{"Why Water Costs", "Where the Buses Went", "What a Vote Weighs"}, {"Who Owns a Beach", "How Long Is a Lease"}}},
        {73, "CN", "country-notebook", "Country Notebook", "episode", "vantic-news", "news", "G",
         "Reports from places with one set of traffic lights.", "Presented by", "Joanie Trask", {"news", "people"},
         {{"Shearing", "The Last Bank", "Rain at Last"}}},
        {74, "WC", "world-at-the-counter", "World at the Counter", "episode", "vantic-news", "news", "PG",
         "Foreign news, told by those who came from there.", "Presented by", "Idris Pallavicini", {"news", "travel"},
         {{"Two Coffees", "The Long Queue", "Change for a Twenty"}}},
    };
}

}  // namespace sample
