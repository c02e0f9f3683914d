#include "catalogue/Catalogue.h"

namespace sample {

std::vector<Show> films() {
    return {
        {21, "SR", "the-salt-road", "The Salt Road", "feature", "vantic-two", "film", "PG",
         "A caravan, a forged map and four hundred kilometres of white ground.", "Directed by", "Ysolde Marchetti",
         {"film", "adventure", "travel"}, {}},
        {22, "PL", "paper-lanterns", "Paper Lanterns", "feature", "vantic-one", "film", "M",
         "The last lantern maker of the street takes an apprentice who is afraid of fire.", "Directed by",
         "Kenji Abara", {"film", "craft"}, {}},
        {24, "BX", "brass-octopus", "The Brass Octopus", "feature", "vantic-two", "film", "PG",
         "A diver finds a clock on the sea bed, and it is right.", "Directed by", "Valentina Drury",
         {"film", "adventure", "sea"}, {}},
        {25, "TH", "the-understudy-of-horses", "The Understudy of Horses", "feature", "vantic-one", "film", "PG",
         "In a travelling theatre the back half of the horse knows every part.", "Directed by", "Olumide Karr",
         {"film", "comedy"}, {}},
        {26, "NS", "north-of-sunday", "North of Sunday", "feature", "vantic-two", "film", "M",
         "A snowplough driver gives a lift to a man who is not on any list.", "Directed by", "Aino Kettunen-Bly",
         {"film", "thriller"}, {}},
        {27, "GL", "a-grammar-of-birds", "A Grammar of Birds", "feature", "vantic-one", "film", "G",
         "A silent girl and a parrot with bad manners.", "Directed by", "Kenji Abara", {"film", "family"}, {}},
        {28, "EW", "the-electric-well", "The Electric Well", "feature", "vantic-kids", "film", "G",
         "Four cousins, one bucket, and light at the bottom.", "Directed by", "Mercy Tollander",
         {"film", "children", "adventure"}, {}},
        {29, "MW", "midnight-weighbridge", "Midnight Weighbridge", "feature", "vantic-two", "film", "MA15+",
         "Every lorry is weighed twice, and one comes back lighter.", "Directed by", "Cassius Wren",
         {"film", "thriller"}, {}},
        // A trailer bears the slug of what it is about, with "-trailer" behind it.
        {23, "SRT", "the-salt-road-trailer", "The Salt Road: Trailer", "trailer", "vantic-two", "film", "PG",
         "Two minutes of white ground.", "Directed by", "Ysolde Marchetti", {"trailer"}, {}},
        {32, "HLT", "harbour-lights-trailer", "Harbour Lights: Trailer", "trailer", "vantic-one", "drama", "PG",
         "The second series, in two minutes.", "Starring", "Odile Brannagh", {"trailer"}, {}},
        {33, "SPT", "small-planets-trailer", "Small Planets: Trailer", "trailer", "vantic-kids", "children", "G",
         "Three rocks and a song.", "Voices", "Bibi Tanaka-Rowe", {"trailer"}, {}},
    };
}

}  // namespace sample
