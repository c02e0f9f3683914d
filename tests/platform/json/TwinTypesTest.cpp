// Types with the same name but different fields in the unnamed namespaces of two source files.

#include <gtest/gtest.h>
#include <VanticRestKit/platform/json/Table.h>

#include <platform/json/BothEngines.h>
#include <optional>
#include <string>

namespace VanticRestKit {
namespace {

struct Twin {
    std::string title{};
    double count{};
    std::string note{};
};

void note(Twin& twin) { twin.note = "first"; }

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

TEST(ATypeInAnUnnamedNamespace, HasItsOwnFields) {
    EXPECT_EQ(test::shown<Twin>(R"({"title":"t"})"), R"({"title":"t","count":7,"note":"first"})");
}

}  // namespace
}  // namespace VanticRestKit
