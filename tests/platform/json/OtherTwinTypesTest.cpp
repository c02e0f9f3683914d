// Types with the same name but different fields in the unnamed namespaces of two source files.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <optional>
#include <string>

namespace VanticRestKit {
namespace {

struct Twin {
    std::string note{};
    std::int64_t count{};
    std::string other{};
    std::string title{};
};

void note(Twin& twin) { twin.note = "second"; }

}  // namespace

template <>
const TypePlan& planOf<Twin>() {
    using namespace mapping;
    // clang-format off
    static const TypePlan& plan = object<Twin>(
        required<&Twin::title>("title"),
        lenientOr<&Twin::count, 7>("count"),
        derived<&Twin::note, note>());
    // clang-format on
    return plan;
}

namespace {

TEST(ATypeInAnUnnamedNamespace, HasItsOwnFieldsDespiteATypeOfTheSameNameElsewhere) {
    EXPECT_EQ(test::shown<Twin>(R"({"title":"t"})"), R"({"note":"second","count":7,"title":"t"})");
}

}  // namespace
}  // namespace VanticRestKit
