// The inputs of the decoder's fuzzer select a type by its index. Checks that each index still selects the type for
// which the input was made. Those that the fuzzer has found may select any type, or none.

#include <golden/Entities.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace VanticRestKit {
namespace {

/// The number of inputs for each type, which is found by the file name, "Video.full".
std::map<std::string, int> inputsOfTypes() {
    std::map<std::string, int> counts;
    for (const auto& entry : std::filesystem::directory_iterator(VRK_DECODE_CORPUS)) {
        const std::string file = entry.path().filename().string();
        if (file.starts_with("found-")) continue;
        const std::string type = file.substr(0, file.find('.'));
        std::ifstream input(entry.path(), std::ios::binary);
        const auto place = static_cast<std::size_t>(input.get());
        const auto& types = test::rootEntities();
        EXPECT_TRUE(place < types.size() && types[place].name == type) << file << " begins with " << place;
        ++counts[type];
    }
    return counts;
}

TEST(TheDecodersCorpus, HasDocumentsForEachTypeAtItsIndex) {
    std::map<std::string, int> counts = inputsOfTypes();
    for (const test::NamedType& type : test::rootEntities())
        EXPECT_GE(counts[std::string(type.name)], 2) << type.name;
}

}  // namespace
}  // namespace VanticRestKit
