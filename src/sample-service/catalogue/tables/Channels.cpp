#include "catalogue/Tables.h"

// clang-format off: a table, a line or two for each row

namespace VanticRestKit::sample {

const std::vector<Region>& regions() {
    static const auto& table = *new std::vector<Region>{
        {"act", "Capital Territory", 0}, {"sa", "South Australia", 30},    {"nsw", "New South Wales", 0},
        {"vic", "Victoria", 0},          {"wa", "Western Australia", 120}, {"nt", "Northern Territory", 30},
        {"qld", "Queensland", 0},        {"tas", "Tasmania", 0},
    };
    return table;
}

const std::vector<Channel>& channels() {
    static const auto& table = *new std::vector<Channel>{
        {"vantic-one", "Vantic One", "Drama and documentaries.", "default", false},
        {"vantic-two", "Vantic Two", "Comedy, mystery and films.", "default", false},
        {"vantic-plus", "Vantic Plus", "Craft, food and travel.", "light", false},
        {"vantic-kids", "Vantic Kids", "For children, until bedtime.", "light", true},
        {"vantic-news", "Vantic News", "The news, all day.", "default", false},
    };
    return table;
}

const std::vector<Category>& categories() {
    static const auto& table = *new std::vector<Category>{
        {"drama", "Drama", "Stories that want more than one evening."},
        {"documentary", "Documentary", "What is the case."},
        {"comedy", "Comedy", "What is the case, seen from the side."},
        {"film", "Films", "One sitting each."},
        {"lifestyle", "Lifestyle", "Things to make, cook and travel by."},
        {"children", "Children", "For those who go to bed early."},
        {"news", "News", "What happened, and why."},
    };
    return table;
}

}  // namespace VanticRestKit::sample
