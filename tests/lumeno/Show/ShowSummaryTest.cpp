#include <gtest/gtest.h>
#include <VanticRestKit/lumeno/Show/ShowSummary.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/json/ValueText.h>

#include <support/TemporaryZone.h>
#include <type_traits>
#include <unordered_set>

namespace VanticRestKit {
namespace {

const Date january{std::chrono::duration<double>(1577934245)};

/// The smallest show that has a summary.
Show minimal() {
    return {.showId = 9184, .thumbnail = "t.jpg", .updated = january, .selfHref = "/show/lantern-road"};
}

template <class T>
concept CanBeDecoded = requires(const Data& document) {
    JSONDecoder().decode<T>(document);
};
static_assert(CanBeDecoded<Show>);
static_assert(!CanBeDecoded<ShowSummary> && !CanBeDecoded<std::vector<ShowSummary>> &&
                  !CanBeDecoded<std::optional<ShowSummary>>,
              "a summary is constructed from a show, never decoded");
static_assert(Decodable<Show> && !Decodable<ShowSummary> && !Decodable<std::vector<ShowSummary>>);

ShowSummary summaryOf(const Show& show) {
    Result<ShowSummary, lumenoSDKError> summary = ShowSummary::make({.fromShow = show});
    EXPECT_TRUE(summary);
    return summary ? std::move(summary).value() : mapping::detail::fresh<ShowSummary>();
}

ShowSummary summaryAt(const char* href) {
    Show show = minimal();
    show.selfHref = href;
    return summaryOf(show);
}

std::string messageOf(const Show& show) {
    const Result<ShowSummary, lumenoSDKError> summary = ShowSummary::make({.fromShow = show});
    return summary ? "" : summary.error().message();
}

TEST(ShowSummary, CanOnlyBeConstructedFromAShow) {
    static_assert(!std::is_aggregate_v<ShowSummary> && !std::is_default_constructible_v<ShowSummary>);
    static_assert(!std::is_constructible_v<ShowSummary, Show>);
}

TEST(ShowSummary, CopiesEachFieldFromTheShow) {
    const ShowSummary summary = summaryOf({.showId = 9184,
                                           .slug = "own-slug",
                                           .title = "The Lantern Road",
                                           .displayTitle = "Lantern Road, The",
                                           .thumbnail = "t.jpg",
                                           .portraitThumbnail = "p.jpg",
                                           .portraitTitledThumbnail = "pt.jpg",
                                           .character1Thumbnail = "c1.png",
                                           .character2Thumbnail = "c2.png",
                                           .updated = january,
                                           .selfHref = "/show/lantern-road",
                                           .deeplinkHref = "/show/deep"});
    EXPECT_EQ(summary.title, "The Lantern Road");
    EXPECT_EQ(summary.displayTitle, "Lantern Road, The");
    EXPECT_EQ(summary.updated, january);
    EXPECT_EQ(summary.href, "/show/lantern-road");
    EXPECT_EQ(summary.thumbnail, "t.jpg");
    EXPECT_EQ(summary.portraitThumbnailHref, "p.jpg");
    EXPECT_EQ(summary.characterThumbnaiHref, "c1.png");
    EXPECT_EQ(summary.derivedShowSlug, "own-slug");
}

TEST(ShowSummary, HasTheFormatsPlaceholderForAnUnreadableNumber) {
    for (const std::uint64_t id :
         {std::uint64_t{0}, std::uint64_t{1}, std::uint64_t{9184}, std::uint64_t{1} << 53U}) {
        Show show = minimal();
        show.showId = id;
        EXPECT_EQ(summaryOf(show).id, "0") << id;
    }
}

TEST(ShowSummary, HasAnUnderscoreForAMissingTitle) {
    Show show = minimal();
    EXPECT_EQ(summaryOf(show).title, "_");
    EXPECT_EQ(summaryOf(show).displayTitle, "_");
    show.displayTitle = "d";
    EXPECT_EQ(summaryOf(show).title, "_");
    EXPECT_EQ(summaryOf(show).displayTitle, "d");
    show.title = "t";
    show.displayTitle = std::nullopt;
    EXPECT_EQ(summaryOf(show).title, "t");
    EXPECT_EQ(summaryOf(show).displayTitle, "_");
}

TEST(ShowSummary, TreatsEmptyStringsAsPresent) {
    Show show = minimal();
    show.title = "";
    show.displayTitle = "";
    show.thumbnail = "";
    show.selfHref = "";
    const ShowSummary summary = summaryOf(show);
    EXPECT_EQ(summary.title, "");
    EXPECT_EQ(summary.displayTitle, "");
    EXPECT_EQ(summary.thumbnail, "");
    EXPECT_EQ(summary.href, "");
}

TEST(ShowSummary, HasNoPicturesThatTheShowLacks) {
    Show show = minimal();
    show.character2Thumbnail = "c2.png";
    show.portraitTitledThumbnail = "pt.jpg";
    EXPECT_EQ(summaryOf(show).portraitThumbnailHref, std::nullopt);
    EXPECT_EQ(summaryOf(show).characterThumbnaiHref, std::nullopt);
}

TEST(ShowSummary, KeepsTheSlugThatTheShowDerives) {
    EXPECT_EQ(summaryAt("/show/lantern-road").derivedShowSlug, "lantern-road");
    EXPECT_EQ(summaryAt("show/lantern-road").derivedShowSlug, std::nullopt);
    Show show = minimal();
    show.slug = "";
    EXPECT_EQ(summaryOf(show).derivedShowSlug, "");
}

TEST(ShowSummary, HasOneErrorMessageForFourMissingFields) {
    const std::string message = "Missing itemID, href, updated or thumbnailHref";
    EXPECT_EQ(messageOf(minimal()), "");
    EXPECT_EQ(messageOf({}), message);
    Show show = minimal();
    show.showId = std::nullopt;
    EXPECT_EQ(messageOf(show), message);
    show = minimal();
    show.updated = std::nullopt;
    EXPECT_EQ(messageOf(show), message);
    show = minimal();
    show.thumbnail = std::nullopt;
    EXPECT_EQ(messageOf(show), message);
    show = minimal();
    show.selfHref = std::nullopt;
    EXPECT_EQ(messageOf(show), message);
}

TEST(ShowSummary, FailsWithAnInitializationError) {
    const Result<ShowSummary, lumenoSDKError> summary = ShowSummary::make({.fromShow = Show{}});
    ASSERT_FALSE(summary);
    EXPECT_EQ(summary.error().kind(), lumenoSDKError::Kind::initializationError);
    const Error general = summary.error();
    EXPECT_EQ(general.localizedDescription(), "Missing itemID, href, updated or thumbnailHref");
    ASSERT_NE(general.as<lumenoSDKError>(), nullptr);
}

TEST(ShowSummary, DoesNotSubstituteAnotherPictureOrLink) {
    Show show = minimal();
    show.thumbnail = std::nullopt;
    show.portraitThumbnail = "p.jpg";
    EXPECT_NE(messageOf(show), "");
    show = minimal();
    show.selfHref = std::nullopt;
    show.deeplinkHref = "/show/x";
    show.slug = "x";
    EXPECT_NE(messageOf(show), "");
}

TEST(ShowSummary, ComparesItsHrefCaseInsensitively) {
    EXPECT_EQ(summaryAt("/show/x"), summaryAt("/show/x"));
    EXPECT_EQ(summaryAt("/show/x"), summaryAt("/Show/X"));
    EXPECT_EQ(summaryAt("/show/\xc3\xa9t\xc3\xa9"), summaryAt("/SHOW/\xc3\x89T\xc3\x89"));
    EXPECT_NE(summaryAt("/show/x"), summaryAt("/show/y"));
    EXPECT_NE(summaryAt("/show/x"), summaryAt("/show/x/"));
    EXPECT_NE(summaryAt("/show/e"), summaryAt("/show/\xc3\xa9"));
}

TEST(ShowSummary, ComparesOnlyItsHref) {
    Show other = minimal();
    other.showId = 1;
    other.title = "another";
    other.displayTitle = "another";
    other.updated = january + std::chrono::hours(1);
    other.thumbnail = "another";
    other.portraitThumbnail = "another";
    other.character1Thumbnail = "another";
    other.slug = "another";
    EXPECT_EQ(summaryOf(minimal()), summaryOf(other));
    other.selfHref = "/show/another";
    EXPECT_NE(summaryOf(minimal()), summaryOf(other));
}

TEST(ShowSummary, HashesItsHrefCaseSensitivelySoEqualSummariesCanHashDifferently) {
    const std::hash<ShowSummary> hash;
    const ShowSummary lower = summaryAt("/show/x");
    const ShowSummary upper = summaryAt("/show/X");
    EXPECT_EQ(lower, upper);
    EXPECT_NE(hash(lower), hash(upper));
    EXPECT_EQ(hash(lower), hash(summaryAt("/show/x")));
}

template <class T>
concept CanBeOrdered = requires(const T& a, const T& b) {
    a < b;
}
|| requires(const T& a, const T& b) { a <=> b; };
static_assert(CanBeOrdered<std::string> && !CanBeOrdered<ShowSummary>, "summaries have no order");

TEST(ShowSummary, CanBeInASetTwiceEvenIfEqual) {
    // Enough buckets to separate the two. In the same bucket, equal values would be treated as one.
    std::unordered_set<ShowSummary> summaries(1009);
    const ShowSummary lower = summaryAt("/show/x");
    const ShowSummary upper = summaryAt("/show/X");
    summaries.insert(lower);
    summaries.insert(upper);
    EXPECT_EQ(lower, upper);
    EXPECT_EQ(summaries.size(), 2U);
    summaries.insert(summaryAt("/show/x"));
    EXPECT_EQ(summaries.size(), 2U);
}

TEST(ShowSummary, HashesOnlyItsHref) {
    Show other = minimal();
    other.showId = 1;
    other.title = "another";
    other.thumbnail = "another";
    other.slug = "another";
    EXPECT_EQ(std::hash<ShowSummary>()(summaryOf(minimal())), std::hash<ShowSummary>()(summaryOf(other)));
}

TEST(ShowSummary, HasNineFieldsInDeclaredOrder) {
    EXPECT_EQ(
        valueText(summaryOf(minimal())),
        R"({"id":"0","title":"_","displayTitle":"_","updated":"2020-01-02T03:04:05Z","href":"/show/lantern-road",)"
        R"("thumbnail":"t.jpg","portraitThumbnailHref":null,"characterThumbnaiHref":null,)"
        R"("derivedShowSlug":"lantern-road"})");
}

}  // namespace
}  // namespace VanticRestKit
