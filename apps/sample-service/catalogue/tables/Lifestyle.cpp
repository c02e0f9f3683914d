#include "catalogue/Catalogue.h"

namespace sample {

std::vector<Show> lifestyle() {
    return {
        {13, "CC", "copper-and-clay", "Copper & Clay", "episode", "vantic-plus", "lifestyle", "G",
         "Two potters and a coppersmith make one thing a week, and it has to hold water.", "With",
         "Rafe Oduya, Mirelle Santos, Joss Pemberton", {"craft"},
         {{"The Kettle", "The Basin", "The Caf\u00e9 Tile"}, {"The Lamp", "The Still", "The Fountain"}}},
        {16, "KW", "kitchen-on-wheels", "Kitchen on Wheels", "episode", "vantic-plus", "lifestyle", "G",
         "A bus with six seats and four burners looks for the best soup of every town.", "Presented by",
         "Bea Akintola", {"food", "travel"},
         {{"Barley", "Pumpkin", "Fish Heads"}, {"Miso", "Beetroot", "Stone Soup"}}},
        {53, "RG", "the-roof-garden-club", "The Roof Garden Club", "episode", "vantic-plus", "lifestyle", "G",
         "Neighbours grow dinner on nine flat roofs.", "Presented by", "Lucian Okoro-Hayes", {"garden", "food"},
         {{"Buckets", "Wind", "Bees Upstairs"}, {"Rainwater", "The Harvest Supper"}}},
        {54, "SC", "second-coat", "Second Coat", "episode", "vantic-plus", "lifestyle", "G",
         "Old furniture, honest repairs, and no glue gun.", "With", "Winifred Slade, Abel Nkemelu", {"craft", "home"},
         {{"The Sulking Wardrobe", "Dovetails", "A Chair with a Past"}}},
        {55, "TB", "the-thursday-bakers", "The Thursday Bakers", "episode", "vantic-plus", "lifestyle", "G",
         "A village bakes once a week in the same oven, and nobody agrees on salt.", "Presented by",
         "Bea Akintola", {"food", "people"}, {{"Starter", "Rye", "Too Much Cardamom"}, {"Plaits", "The Oven Cracks"}}},
        {56, "SW", "slow-way-round", "The Slow Way Round", "episode", "vantic-two", "lifestyle", "PG",
         "By canal, cart and local bus, with one small suitcase.", "Presented by", "Emeka Thorne-Ruiz",
         {"travel", "slow"}, {{"Lock Thirty", "The Milk Run", "Market Day"}, {"Branch Line", "On Foot"}}},
        {57, "NH", "a-new-hem", "A New Hem", "episode", "vantic-plus", "lifestyle", "G",
         "One coat is mended, passed on, and followed for a year.", "With", "Saskia Dremmel", {"craft", "people"},
         {{"Lining", "Elbows", "The Third Owner"}}},
    };
}

}  // namespace sample
