#include "catalogue/Catalogue.h"

namespace sample {

std::vector<Show> drama() {
    return {
        {11, "HL", "harbour-lights", "Harbour Lights", "episode", "vantic-one", "drama", "M",
         "A harbour master, her three brothers and a lighthouse that nobody will sell.", "Starring",
         "Odile Brannagh, Tam Weatherby, Ines Calloway", {"drama", "sea", "family"},
         {{"The Pilot Boat", "Slack Water", "A Berth for Winter"}, {"Low Tide", "The Salvage Claim", "Landfall"}}},
        {15, "NF", "night-ferry", "Night Ferry", "episode", "vantic-two", "drama", "MA15+",
         "Eleven passengers, one crossing, and a car deck that is one car short.", "Starring",
         "Cassius Wren, Dagny Holt", {"drama", "thriller", "sea"},
         {{"Cars First", "The Purser", "Fog Signal"}, {"Deck Three", "Man Overboard", "The Far Shore"}}},
        {41, "WG", "the-wool-ghosts", "The Wool Ghosts", "episode", "vantic-one", "drama", "M",
         "A spinning mill is sold with everything in it, the night shift included.", "Starring",
         "Hester Quillfeather, Boaz Anand", {"drama", "mystery"},
         {{"Inventory", "The Night Shift", "Carding"}, {"Dye Lot Nine", "Loose Threads"}}},
        {42, "AL", "a-ledger-of-rain", "A Ledger of Rain", "episode", "vantic-one", "drama", "PG",
         "An accountant inherits a weather station and its debts.", "Starring",
         "Marguerite Osei, Dov Tallis", {"drama", "family", "weather"},
         {{"Opening Balance", "Drizzle", "Accrued"}, {"Carried Forward", "Dry Month", "Closing Balance"}}},
        {43, "TP", "third-platform", "Third Platform", "episode", "vantic-two", "drama", "M",
         "At a station with two platforms, somebody keeps selling tickets for the third.", "Starring",
         "Ilka Marsden, Terrence Obuya", {"drama", "mystery", "railway"},
         {{"Mind the Gap", "Rolling Stock", "The Guard's Van", "Terminus"}}},
        {44, "GS", "glass-sisters", "The Glass Sisters", "episode", "vantic-two", "drama", "M",
         "Two sisters, one furnace, and a commission that neither can finish alone.", "Starring",
         "Petra Valkonen, Suvi Valkonen-Dane", {"drama", "family", "craft"},
         {{"Gather", "Marver", "Punty"}, {"Annealing", "Cold Shop"}}},
        {45, "CR", "court-of-reeds", "Court of Reeds", "episode", "vantic-one", "drama", "M",
         "A river changes its course and takes the boundary of two farms with it.", "Starring",
         "Anselm Bright, Noor Haddadin, Cosmo Pike", {"drama", "law", "river"},
         {{"The Old Bank", "Surveyors", "Easement"}, {"High Water", "Judgment"}}},
        {46, "LH", "the-long-handover", "The Long Handover", "episode", "vantic-two", "drama", "MA15+",
         "A night nurse has seven minutes to say what happened in twelve hours.", "Starring",
         "Yewande Castellan, Fritz Amberley", {"drama", "hospital"},
         {{"Bed Four", "The Quiet Ward", "Obs", "Discharge"}}},
    };
}

}  // namespace sample
