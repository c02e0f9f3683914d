#include "catalogue/Catalogue.h"

namespace sample {

namespace {

Show harbourLights() {
    return {11, "HL", "harbour-lights", "Harbour Lights", "episode", "vantic-one", "Vantic One", "drama", "M",
            "A harbour master, her three brothers and a lighthouse that nobody will sell.",
            "Starring", "Odile Brannagh, Tam Weatherby, Ines Calloway", {"drama", "sea", "family"},
            {{"The Pilot Boat", "Slack Water", "A Berth for Winter"},
             {"Low Tide", "The Salvage Claim", "Landfall"}}};
}

Show quietOrchard() {
    return {12, "QO", "the-quiet-orchard", "The Quiet Orchard", "episode", "vantic-one", "Vantic One", "documentary",
            "G", "One year among old apple trees and the people who prune them.",
            "Narrated by", "Perpetua Lindqvist", {"nature", "slow"},
            {{"Frost", "Blossom", "Thinning"}, {"Windfalls", "The Press", "Grafting Wood"}}};
}

Show copperAndClay() {
    return {13, "CC", "copper-and-clay", "Copper & Clay", "episode", "vantic-plus", "Vantic Plus", "lifestyle", "G",
            "Two potters and a coppersmith make one thing a week, and it has to hold water.",
            "With", "Rafe Oduya, Mirelle Santos, Joss Pemberton", {"craft"},
            {{"The Kettle", "The Basin", "The Caf\u00e9 Tile"}, {"The Lamp", "The Still", "The Fountain"}}};
}

Show smallPlanets() {
    return {14, "SP", "small-planets", "Small Planets", "episode", "vantic-kids", "Vantic Kids", "children", "G",
            "Bibi and her telescope visit every rock in the sky that is smaller than a school.",
            "Voices", "Bibi Tanaka-Rowe, Old Ferdinand", {"children", "science", "animation"},
            {{"The Rock That Hummed", "Nobody's Moon", "A Comet Called Steve"},
             {"Dust", "The Loneliest Crater", "Home Before Dark"}}};
}

Show nightFerry() {
    return {15, "NF", "night-ferry", "Night Ferry", "episode", "vantic-two", "Vantic Two", "drama", "MA15+",
            "Eleven passengers, one crossing, and a car deck that is one car short.",
            "Starring", "Cassius Wren, Dagny Holt", {"drama", "thriller"},
            {{"Cars First", "The Purser", "Fog Signal"}, {"Deck Three", "Man Overboard", "The Far Shore"}}};
}

Show kitchenOnWheels() {
    return {16, "KW", "kitchen-on-wheels", "Kitchen on Wheels", "episode", "vantic-plus", "Vantic Plus", "lifestyle",
            "G", "A bus with six seats and four burners looks for the best soup of every town.",
            "Presented by", "Bea Akintola", {"food", "travel"},
            {{"Barley", "Pumpkin", "Fish Heads"}, {"Miso", "Beetroot", "Stone Soup"}}};
}

Show saltRoad() {
    return {21, "SR", "the-salt-road", "The Salt Road", "feature", "vantic-two", "Vantic Two", "film", "PG",
            "A caravan, a forged map and four hundred kilometres of white ground.",
            "Directed by", "Ysolde Marchetti", {"film", "adventure"}, {}};
}

Show paperLanterns() {
    return {22, "PL", "paper-lanterns", "Paper Lanterns", "feature", "vantic-one", "Vantic One", "film", "M",
            "The last lantern maker of the street takes an apprentice who is afraid of fire.",
            "Directed by", "Kenji Abara", {"film"}, {}};
}

Show saltRoadTrailer() {
    return {23, "SRT", "the-salt-road-trailer", "The Salt Road: Trailer", "trailer", "vantic-two", "Vantic Two",
            "film", "PG", "Two minutes of white ground.", "Directed by", "Ysolde Marchetti", {"trailer"}, {}};
}

Show newsLive() {
    return {31, "LIVE", "vantic-news", "Vantic News Live", "livestream", "vantic-news", "Vantic News", "news", "CTC",
            "The news channel, as it goes out.", "Presented by", "The newsroom", {"news", "live"}, {}};
}

}  // namespace

std::vector<Show> madeUpShows() {
    return {harbourLights(),   quietOrchard(), copperAndClay(), smallPlanets(),    nightFerry(),
            kitchenOnWheels(), saltRoad(),     paperLanterns(), saltRoadTrailer(), newsLive()};
}

}  // namespace sample
