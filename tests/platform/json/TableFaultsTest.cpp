// Faults of a table built at run time, which the compiler cannot reject.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Table.h>

#include <array>
#include <string>
#include <vector>

namespace VanticRestKit {
namespace {

struct Song {
    std::string title{};
    std::string artist{};
};

TEST(ATableMadeAtRunTime, EndsTheProgramNamingTheTypeAndTheDuplicateKey) {
    const Song fresh;
    const auto rows = mapping::detail::joined(mapping::defaulted<&Song::title>("name"),
                                              mapping::defaulted<&Song::artist>("name"));
    EXPECT_DEATH(mapping::makeObjectPlan("Song", rows, &fresh), "mapping table of Song .*same key.*\"name\"");
    const auto inner = mapping::requiredObject("credits", mapping::defaulted<&Song::title>("name"),
                                               mapping::defaulted<&Song::artist>("name"));
    EXPECT_DEATH(mapping::makeObjectPlan("Song", inner, &fresh),
                 "mapping table of Song .*same key.*\"name\"");
}

TEST(ATableMadeAtRunTime, EndsTheProgramNamingTheTypeIfItHasTooManyRows) {
    const Song fresh;
    std::vector<std::string> keys;
    for (std::size_t i = 0; i <= mapping::maxRows; ++i) keys.push_back(std::to_string(i));
    std::vector<mapping::Row> rows;
    for (const std::string& key : keys) rows.push_back(mapping::defaulted<&Song::title>(key)[0]);
    EXPECT_DEATH(mapping::makeObjectPlan("Song", rows, &fresh), "mapping table of Song .*63 rows.*\"63\"");
}

}  // namespace
}  // namespace VanticRestKit
