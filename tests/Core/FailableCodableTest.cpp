#include <gtest/gtest.h>
#include <VanticRestKit/Core/FailableCodable.h>
#include <VanticRestKit/platform/json/DecodingError.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/Table.h>

#include <cstdint>
#include <string>
#include <vector>

namespace VanticRestKit {

struct Named {
    std::string name{};
    friend bool operator==(const Named&, const Named&) = default;
};

struct Holder {
    FailableCodable<Named> inside{};
    std::optional<FailableCodable<std::string>> perhaps{};
    std::vector<FailableCodable<Named>> list{};
    std::string after{};
};

template <>
const TypePlan& planOf<Named>() {
    using namespace mapping;
    static const TypePlan& plan = object<Named>(required<&Named::name>("name"));
    return plan;
}

template <>
const TypePlan& planOf<Holder>() {
    using namespace mapping;
    static const TypePlan& plan =
        object<Holder>(required<&Holder::inside>("inside"), optional<&Holder::perhaps>("perhaps"),
                       required<&Holder::list>("list"), required<&Holder::after>("after"));
    return plan;
}

namespace {

using Failables = std::vector<FailableCodable<Named>>;

const FailableCodable<Named> named{.wrappedValue = Named{.name = "a"}};
const FailableCodable<Named> absent{};

TEST(FailableCodable, IsEmptyByDefault) { EXPECT_EQ(FailableCodable<Named>{}.wrappedValue, std::nullopt); }

TEST(FailableCodable, AnElementThatDoesNotDecodeIsEmptyAndTheOthersAreKept) {
    const auto list = JSONDecoder().decode<Failables>(Data(R"([{"name":"a"},{"name":1},{"name":"a"}])"));
    ASSERT_TRUE(list);
    EXPECT_EQ(*list, (Failables{named, absent, named}));
}

TEST(FailableCodable, AnElementOfAnyJSONTypeKeepsItsPlace) {
    const auto list =
        JSONDecoder().decode<Failables>(Data(R"([1,null,"x",[{"name":"a"}],{},true,{"name":"a"}])"));
    ASSERT_TRUE(list);
    EXPECT_EQ(*list, (Failables{absent, absent, absent, absent, absent, absent, named}));
}

TEST(FailableCodable, AnObjectInPlaceOfTheListFails) {
    EXPECT_FALSE(JSONDecoder().decode<Failables>(Data("{}")));
}

TEST(FailableCodable, ABrokenDocumentFailsAsAWhole) {
    EXPECT_FALSE(JSONDecoder().decode<Failables>(Data(R"([{"name":"a"},{"name":])")));
    EXPECT_FALSE(JSONDecoder().decode<FailableCodable<Named>>(Data("{")));
}

TEST(FailableCodable, DecodesAtTheRoot) {
    const auto good = JSONDecoder().decode<FailableCodable<double>>(Data("1.5"));
    ASSERT_TRUE(good);
    EXPECT_EQ(good->wrappedValue, 1.5);
    const auto bad = JSONDecoder().decode<FailableCodable<double>>(Data("\"1.5\""));
    ASSERT_TRUE(bad);
    EXPECT_EQ(bad->wrappedValue, std::nullopt);
}

TEST(FailableCodable, DecodesUnderAKey) {
    const auto holder = JSONDecoder().decode<Holder>(
        Data(R"({"inside":7,"perhaps":"p","list":[{"name":"a"},{}],"after":"b"})"));
    ASSERT_TRUE(holder);
    EXPECT_EQ(holder->inside, absent);
    ASSERT_TRUE(holder->perhaps);
    EXPECT_EQ(holder->perhaps->wrappedValue, "p");
    EXPECT_EQ(holder->list, (Failables{named, absent}));
    EXPECT_EQ(holder->after, "b");
}

TEST(FailableCodable, ReportsAFailureOfALaterFieldWithItsOwnPath) {
    const auto holder = JSONDecoder().decode<Holder>(Data(R"({"inside":7,"list":[1,{"name":2}],"after":3})"));
    ASSERT_FALSE(holder);
    const DecodingError* const error = holder.error().as<DecodingError>();
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->kind(), DecodingError::Kind::typeMismatch);
    EXPECT_EQ(error->codingPath(), CodingPath{"after"});
}

TEST(FailableCodable, AnAbsentKeyIsStillKeyNotFound) {
    const auto holder = JSONDecoder().decode<Holder>(Data(R"({"list":[],"after":"b"})"));
    ASSERT_FALSE(holder);
    ASSERT_NE(holder.error().as<DecodingError>(), nullptr);
    EXPECT_EQ(holder.error().as<DecodingError>()->kind(), DecodingError::Kind::keyNotFound);
}

}  // namespace
}  // namespace VanticRestKit
