#include "catalogue/Catalogue.h"

namespace sample {

std::vector<Show> documentaries() {
    return {
        {12, "QO", "the-quiet-orchard", "The Quiet Orchard", "episode", "vantic-one", "documentary", "G",
         "One year among old apple trees and the people who prune them.", "Narrated by", "Perpetua Lindqvist",
         {"nature", "slow"}, {{"Frost", "Blossom", "Thinning"}, {"Windfalls", "The Press", "Grafting Wood"}}},
        {47, "BB", "below-the-breakwater", "Below the Breakwater", "episode", "vantic-one", "documentary", "G",
         "What lives between the stones that keep the sea out.", "Narrated by", "Tobiah Wexcombe",
         {"nature", "sea"}, {{"The Gap", "Night Feeders", "After the Storm"}}},
        {48, "MM", "maps-that-lied", "Maps That Lied", "episode", "vantic-two", "documentary", "PG",
         "Six maps that were wrong on purpose, and who paid for it.", "Presented by", "Dr Ottoline Farrow",
         {"history", "travel"},
         {{"The Island That Was Not", "A River Too Far", "The Paper Town"}, {"North of Nowhere", "The Kind Surveyor"}}},
        {49, "SB", "the-sound-of-bridges", "The Sound of Bridges", "episode", "vantic-plus", "documentary", "G",
         "An engineer listens to bridges and hears which one is tired.", "With", "Ragnhild Bexley",
         {"science", "slow"}, {{"Expansion Joint", "Cable Seventeen", "Resonance"}}},
        {50, "OH", "open-hangar", "Open Hangar", "episode", "vantic-plus", "documentary", "PG",
         "Volunteers put a flying boat back together from forty crates.", "Narrated by", "Jarvis Mbeki-Lowe",
         {"history", "craft"}, {{"Crate One", "Rivets", "The Hull"}, {"The Wrong Engine", "Wet Wings"}}},
        {51, "LL", "last-letters", "Last Letters", "episode", "vantic-two", "documentary", "PG",
         "A postwoman delivers letters that are forty years late.", "With", "Clementine Rusk",
         {"history", "people"}, {{"Return to Sender", "The Blue Envelope", "Poste Restante", "Signed For"}}},
        {52, "DW", "dark-water-country", "Dark Water Country", "episode", "vantic-one", "documentary", "G",
         "Peat, frogs, and the slowest rivers of the continent.", "Narrated by", "Perpetua Lindqvist",
         {"nature", "river", "slow"}, {{"Tannin", "The Sundew", "A Thousand Ponds"}}},
    };
}

}  // namespace sample
