#include "catalogue/Catalogue.h"

namespace sample {

std::vector<Show> children() {
    return {
        {14, "SP", "small-planets", "Small Planets", "episode", "vantic-kids", "children", "G",
         "Bibi and her telescope visit every rock in the sky that is smaller than a school.", "Voices",
         "Bibi Tanaka-Rowe, Old Ferdinand", {"children", "science", "animation"},
         {{"The Rock That Hummed", "Nobody's Moon", "A Comet Called Steve"},
          {"Dust", "The Loneliest Crater", "Home Before Dark"}}},
        {58, "MO", "moss-and-otto", "Moss and Otto", "episode", "vantic-kids", "children", "G",
         "A hedgehog and a wheelbarrow run a delivery service.", "Voices", "Pip Harcastle, Lindiwe Moon",
         {"children", "animation"}, {{"The Very Long Parcel", "Uphill", "Signed by a Duck"}, {"Flat Tyre", "Winter Rounds"}}},
        {59, "NB", "number-bakery", "The Number Bakery", "episode", "vantic-kids", "children", "G",
         "Seven buns, four customers, one problem.", "With", "Auntie Decimal", {"children", "numbers"},
         {{"Half a Dozen", "The Remainder", "A Baker's Dozen", "Crumbs"}}},
        {60, "TT", "tilda-tunnels", "Tilda Tunnels", "episode", "vantic-kids", "children", "G",
         "A mole engineer digs where the map says no.", "Voices", "Roisin Applegarth", {"children", "animation", "railway"},
         {{"Wrong Turn", "The Glow-worm Lamp", "Under the School"}, {"Rabbit Junction", "The Big Drill"}}},
        {61, "CS", "the-cloud-shed", "The Cloud Shed", "episode", "vantic-kids", "children", "G",
         "Where clouds are made, folded and sent out before breakfast.", "Voices", "Old Ferdinand, Mei Sorrel",
         {"children", "weather", "animation"}, {{"A Small Grey One", "Thunder Is Asleep", "Fog on Order"}}},
        {62, "DD", "dinner-with-dragons", "Dinner with Dragons", "episode", "vantic-kids", "children", "G",
         "Nobody minds the fire. It is the table manners.", "Voices", "Gwendolen Fry, Hamish Onwuka",
         {"children", "food", "comedy"}, {{"Soup", "No Singeing", "The Guest Who Ate the Table"}, {"Pudding", "Leftovers"}}},
        {63, "BK", "backyard-lab", "Backyard Lab", "episode", "vantic-kids", "children", "G",
         "Experiments for one shed and two brothers.", "With", "Kofi and Kwame Addler", {"children", "science"},
         {{"Vinegar", "The Egg Drop", "Shadows"}}},
    };
}

}  // namespace sample
