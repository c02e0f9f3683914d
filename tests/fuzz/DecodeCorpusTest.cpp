// The inputs of the decoder's fuzzer name a type by its place: they must still mean the type that they were
// made for.

#include <golden/Entities.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

namespace VanticRestKit {
namespace {

/// How many inputs there are of each type, by the name of the file, "Video.full".
std::map<std::string, int> inputsOfTypes() {
    std::map<std::string, int> counts;
    for (const auto& entry : std::filesystem::directory_iterator(VRK_DECODE_CORPUS)) {
        const std::string file = entry.path().filename().string();
        const std::string type = file.substr(0, file.find('.'));
        std::ifstream input(entry.path(), std::ios::binary);
        const auto place = static_cast<std::size_t>(input.get());
        const auto& types = test::rootEntities();
        EXPECT_TRUE(place < types.size() && types[place].name == type) << file << " begins with " << place;
        ++counts[type];
    }
    return counts;
}

TEST(TheDecodersCorpus, HasDocumentsOfEachTypeAtItsPlace) {
    std::map<std::string, int> counts = inputsOfTypes();
    for (const test::NamedType& type : test::rootEntities())
        EXPECT_GE(counts[std::string(type.name)], 2) << type.name;
}

}  // namespace
}  // namespace VanticRestKit
