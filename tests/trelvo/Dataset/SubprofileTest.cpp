#include <gtest/gtest.h>
#include <VanticRestKit/trelvo/Dataset/Subprofile.h>

namespace VanticRestKit {
namespace {

DatasetContainer container(Dictionary dataset = {}) {
    return {.uid = "u", .namespace_ = "profile", .dataset = std::move(dataset)};
}

Subprofile profile(Dictionary dataset = {}) {
    return *Subprofile::make({.datasetContainer = container(std::move(dataset))});
}

/// Empty changes, to be filled by the test.
Subprofile::Changes changes() {
    return {.newDisplayName = std::nullopt,
            .newBirthYear = std::nullopt,
            .newChannelFilter = std::nullopt,
            .newAvatarId = std::nullopt,
            .newAvatarURL = std::nullopt,
            .newAvatarAccessibilityText = std::nullopt};
}

Dictionary full() {
    return {{"displayName", AnyValue("Ada")},    {"avatar", AnyValue("https://example.test/a.png")},
            {"avatarId", AnyValue(7)},           {"avatarAccessibilityText", AnyValue("A lantern")},
            {"isChild", AnyValue(true)},         {"birthYear", AnyValue(2015)},
            {"channelFilter", AnyValue("kids")}, {"theme", AnyValue(0.5)}};
}

TEST(Subprofile, CanOnlyBeConstructedFromAContainerInTheProfileNamespace) {
    EXPECT_TRUE(Subprofile::make({.datasetContainer = container()}));
    for (const std::optional<std::string>& name :
         {std::optional<std::string>(), std::optional<std::string>(""), std::optional<std::string>("Profile"),
          std::optional<std::string>("profiles")}) {
        EXPECT_FALSE(Subprofile::make({.datasetContainer = DatasetContainer{.uid = "u", .namespace_ = name}}))
            << name.value_or("none");
    }
}

TEST(Subprofile, HasTheUidsAndDatesOfItsContainer) {
    const Date created{Date::duration(1)};
    const Date updated{Date::duration(2)};
    const auto made = Subprofile::make(
        {.datasetContainer = DatasetContainer{
             .uid = "u", .parentUid = "p", .namespace_ = "profile", .created = created, .updated = updated}});
    ASSERT_TRUE(made);
    EXPECT_EQ(made->uid(), "u");
    EXPECT_EQ(made->parentUid(), "p");
    EXPECT_EQ(made->created(), created);
    EXPECT_EQ(made->updated(), updated);
    EXPECT_EQ(profile().parentUid(), std::nullopt);
    EXPECT_EQ(profile().created(), std::nullopt);
    EXPECT_EQ(profile().updated(), std::nullopt);
}

TEST(Subprofile, ReadsItsPropertiesFromTheDataset) {
    const Subprofile ada = profile(full());
    EXPECT_EQ(ada.displayName(), "Ada");
    EXPECT_EQ(ada.avatar(), "https://example.test/a.png");
    EXPECT_EQ(ada.avatarId(), 7);
    EXPECT_EQ(ada.avatarAccessibilityText(), "A lantern");
    EXPECT_TRUE(ada.isChild());
    EXPECT_EQ(ada.birthYear(), 2015);
    EXPECT_EQ(ada.channelFilter(), "kids");
}

TEST(Subprofile, HasNoPropertiesThatTheDatasetLacks) {
    const Subprofile empty = profile();
    EXPECT_EQ(empty.displayName(), std::nullopt);
    EXPECT_EQ(empty.avatar(), std::nullopt);
    EXPECT_EQ(empty.avatarId(), std::nullopt);
    EXPECT_EQ(empty.avatarAccessibilityText(), std::nullopt);
    EXPECT_FALSE(empty.isChild());
    EXPECT_EQ(empty.birthYear(), std::nullopt);
    EXPECT_EQ(empty.channelFilter(), std::nullopt);
}

TEST(Subprofile, ReadsAStringOnlyFromAString) {
    for (const AnyValue& other : {AnyValue(1), AnyValue(true), AnyValue(1.5), AnyValue()}) {
        const Subprofile odd = profile({{"displayName", other},
                                        {"avatar", other},
                                        {"avatarAccessibilityText", other},
                                        {"channelFilter", other}});
        EXPECT_EQ(odd.displayName(), std::nullopt);
        EXPECT_EQ(odd.avatar(), std::nullopt);
        EXPECT_EQ(odd.avatarAccessibilityText(), std::nullopt);
        EXPECT_EQ(odd.channelFilter(), std::nullopt);
    }
}

TEST(Subprofile, ReadsANumberOnlyFromAnInteger) {
    for (const AnyValue& other : {AnyValue("1990"), AnyValue(true), AnyValue(1990.0), AnyValue()}) {
        const Subprofile odd = profile({{"birthYear", other}, {"avatarId", other}});
        EXPECT_EQ(odd.birthYear(), std::nullopt);
        EXPECT_EQ(odd.avatarId(), std::nullopt);
    }
}

TEST(Subprofile, IsAChildOnlyByABoolean) {
    for (const AnyValue& other :
         {AnyValue(1), AnyValue("true"), AnyValue(1.0), AnyValue(), AnyValue(false)}) {
        EXPECT_FALSE(profile({{"isChild", other}}).isChild());
    }
    EXPECT_TRUE(profile({{"isChild", AnyValue(true)}}).isChild());
}

TEST(Subprofile, KeepsAnEmptyString) {
    EXPECT_EQ(profile({{"displayName", AnyValue("")}}).displayName(), "");
}

TEST(Subprofile, IsEqualByItsUidOnly) {
    const Subprofile ada = profile({{"displayName", AnyValue("Ada")}});
    EXPECT_EQ(ada, profile({{"displayName", AnyValue("Bo")}}));
    DatasetContainer other = container({{"displayName", AnyValue("Ada")}});
    other.parentUid = "p";
    EXPECT_EQ(ada, *Subprofile::make({.datasetContainer = other}));
    other.uid = "v";
    EXPECT_NE(ada, *Subprofile::make({.datasetContainer = other}));
}

TEST(SubprofileChanges, LeaveTheDatasetUnchangedIfEmpty) {
    EXPECT_EQ(profile(full()).makeModifiedDataset(changes()), full());
    EXPECT_EQ(profile().makeModifiedDataset(changes()), Dictionary{});
}

TEST(SubprofileChanges, AreWrittenUnderTheirKeys) {
    Subprofile::Changes all = changes();
    all.newDisplayName = std::optional<std::string>("Bo");
    all.newBirthYear = std::optional<std::int64_t>(1990);
    all.newChannelFilter = std::optional<std::string>("all");
    all.newAvatarId = std::optional<std::int64_t>(9);
    all.newAvatarURL = std::optional<std::string>("https://example.test/b.png");
    all.newAvatarAccessibilityText = std::optional<std::string>("A boat");
    const Dictionary written{{"displayName", AnyValue("Bo")},
                             {"birthYear", AnyValue(1990)},
                             {"channelFilter", AnyValue("all")},
                             {"avatarId", AnyValue(9)},
                             {"avatar", AnyValue("https://example.test/b.png")},
                             {"avatarAccessibilityText", AnyValue("A boat")}};
    EXPECT_EQ(profile().makeModifiedDataset(all), written);

    Dictionary expected = written;
    expected.insert({{"isChild", AnyValue(true)}, {"theme", AnyValue(0.5)}});
    const Subprofile ada = profile(full());
    EXPECT_EQ(ada.makeModifiedDataset(all), expected);
    EXPECT_EQ(ada.displayName(), "Ada");
}

TEST(SubprofileChanges, ReplaceOnlyTheirOwnKeys) {
    Subprofile::Changes one = changes();
    one.newBirthYear = std::optional<std::int64_t>(1990);
    Dictionary expected = full();
    expected["birthYear"] = AnyValue(1990);
    EXPECT_EQ(profile(full()).makeModifiedDataset(one), expected);
}

TEST(SubprofileChanges, CannotRemoveAKey) {
    Subprofile::Changes blank = changes();
    blank.newDisplayName = std::optional<std::string>("");
    Dictionary expected = full();
    expected["displayName"] = AnyValue("");
    EXPECT_EQ(profile(full()).makeModifiedDataset(blank), expected);
}

TEST(SubprofileKeyValues, OverrideThoseOfTheDatasetAndKeepTheOthers) {
    const Subprofile ada = profile(full());
    const Dictionary result = ada.makeModifiedDataset(
        {.newKeyValues = Dictionary{
             {"displayName", AnyValue("Bo")}, {"isChild", AnyValue(false)}, {"new", AnyValue(1)}}});
    Dictionary expected = full();
    expected["displayName"] = AnyValue("Bo");
    expected["isChild"] = AnyValue(false);
    expected["new"] = AnyValue(1);
    EXPECT_EQ(result, expected);
    EXPECT_EQ(ada.displayName(), "Ada");
}

TEST(SubprofileKeyValues, CanAddAnyTypeUnderAnyKeyButRemoveNone) {
    const Dictionary result = profile(full()).makeModifiedDataset(
        {.newKeyValues = Dictionary{{"displayName", AnyValue()}, {"birthYear", AnyValue("1990")}}});
    Dictionary expected = full();
    expected["displayName"] = AnyValue();
    expected["birthYear"] = AnyValue("1990");
    EXPECT_EQ(result, expected);
    EXPECT_EQ(profile(full()).makeModifiedDataset({.newKeyValues = Dictionary{}}), full());
}

}  // namespace
}  // namespace VanticRestKit
