#include <gtest/gtest.h>
#include <VanticRestKit/recs/Recommendation.h>

#include <platform/json/FieldRules.h>
#include <support/Vectors.h>
#include <VanticRestKit/recs/RecsModuleContext.h>

namespace VanticRestKit {
namespace {

using test::decoded;
using test::Strictness;

test::EntityRules recommendations() {
    return {.type = test::decodable<Recommendation>,
            .minimal = R"({"rid":"","recipeid":""})",
            .fields = {{"rid", "rid", Strictness::required, test::text()},
                       {"recipeid", "recipeid", Strictness::required, test::text()}}};
}

/// The parts of a rid: "lumeno program 5", with "-" for an absent part.
std::string partsOf(const std::string& rid) {
    const Recommendation recommendation{.rid = rid};
    const auto source = recommendation.contentSource();
    const auto type = recommendation.contentType();
    return (source ? std::string(rawValue(*source)) : "-") + " " +
           (type ? std::string(rawValue(*type)) : "-") + " " + recommendation.contentId().value_or("-");
}

TEST(Recommendation, HasTwoFieldsInDeclaredOrder) {
    test::expectDeclaredFields(recommendations());
    const Recommendation recommendation{.rid = "lumeno://program/5", .recipeid = "r"};
    EXPECT_EQ(decoded<Recommendation>(R"({"recipeid":"r","rid":"lumeno:\/\/program\/5"})"), recommendation);
}

TEST(Recommendation, RequiresBothFields) {
    test::expectFieldsInEveryState(recommendations());
    test::expectErrorsInOrder(recommendations(), {{"rid", "7"}, {"recipeid", "null"}});
    test::expectAnObjectOnly(test::decodable<Recommendation>);
}

TEST(Recommendation, ReadsSourceTypeAndIdFromItsRid) {
    EXPECT_EQ(partsOf("lumeno://program/5"), "lumeno program 5");
    EXPECT_EQ(partsOf("coremedia://audiosegment/abc-1"), "coremedia audiosegment abc-1");
    for (const RawCase<RecsContentType>& type : RawTexts<RecsContentType>::cases) {
        const RecsModuleContext content{RecsContentSource::coremedia, type.value, "x"};
        EXPECT_EQ(partsOf(content.recContextURI()), "coremedia " + std::string(type.raw) + " x");
    }
}

TEST(Recommendation, ParsesItsRidOnEachAccess) {
    Recommendation recommendation{.rid = "lumeno://program/5"};
    EXPECT_EQ(recommendation.contentId(), "5");
    recommendation.rid = "coremedia://video/6";
    EXPECT_EQ(recommendation.contentSource(), RecsContentSource::coremedia);
    EXPECT_EQ(recommendation.contentType(), RecsContentType::video);
    EXPECT_EQ(recommendation.contentId(), "6");
}

TEST(Recommendation, UsesTheFirstPathSegmentAsTheId) {
    EXPECT_EQ(partsOf("coremedia://audio/7/8"), "coremedia audio 7");
    EXPECT_EQ(partsOf("lumeno://program//5"), "lumeno program 5");
    EXPECT_EQ(partsOf("lumeno://program/1/2/3"), "lumeno program 1");
    EXPECT_EQ(partsOf("lumeno://program/1/"), "lumeno program 1");
    EXPECT_EQ(partsOf("lumeno://program/1?x=y#z"), "lumeno program 1");
    EXPECT_EQ(partsOf("lumeno:program/123"), "lumeno - program");
}

TEST(Recommendation, SplitsThePathAfterDecoding) {
    EXPECT_EQ(partsOf("lumeno://program/%41"), "lumeno program A");
    EXPECT_EQ(partsOf("lumeno://program/a%2Fb"), "lumeno program a");
    EXPECT_EQ(partsOf("lumeno://program/%2F%2Fb"), "lumeno program b");
    EXPECT_EQ(partsOf("lumeno://program/a b"), "lumeno program a b");
}

TEST(Recommendation, HasNoIdWithoutAPath) {
    EXPECT_EQ(partsOf("coremedia://article"), "coremedia article -");
    EXPECT_EQ(partsOf("coremedia://article/"), "coremedia article -");
    EXPECT_EQ(partsOf("coremedia://article///"), "coremedia article -");
}

TEST(Recommendation, HasNoTypeForAnUnknownHostButASourceAndAnId) {
    EXPECT_EQ(partsOf("lumeno://podcast/5"), "lumeno - 5");
    EXPECT_EQ(partsOf("lumeno://VIDEO/5"), "lumeno - 5");
    EXPECT_EQ(partsOf("lumeno:///5"), "lumeno - 5");
}

TEST(Recommendation, HasNoSourceForAnUnknownSchemeButATypeAndAnId) {
    EXPECT_EQ(partsOf("https://video/5"), "- video 5");
    EXPECT_EQ(partsOf("LUMENO://video/5"), "- video 5");
    EXPECT_EQ(partsOf("//video/5"), "- video 5");
    EXPECT_EQ(partsOf("video/5"), "- - video");
    EXPECT_EQ(partsOf(""), "- - -");
}

TEST(Recommendation, HasNoPartsIfItsRidIsNotAURI) {
    for (const char* const rid :
         {"lumeno://pro gram/1", "lumeno://program:x/9", " lumeno://program/1", "lumeno://program\\\\x/1"}) {
        const auto recommendation =
            decoded<Recommendation>(std::string(R"({"rid":")") + rid + R"(","recipeid":"r"})");
        ASSERT_TRUE(recommendation) << rid;
        EXPECT_EQ(recommendation->recipeid, "r");
        EXPECT_EQ(partsOf(recommendation->rid), "- - -") << rid;
    }
}

/// The expected parts of a URI, from a line of the vectors.
std::string expectedOf(const nlohmann::json& parts) {
    if (parts.is_null()) return "- - -";
    const auto known = [&parts](const char* key, auto fromRaw) {
        const nlohmann::json& raw = parts[key];
        return raw.is_string() && fromRaw(raw.template get<std::string>()) ? raw.template get<std::string>()
                                                                           : "-";
    };
    std::string id = "-";
    std::string part;
    for (const char c : parts["path"].get<std::string>() + "/") {
        if (c != '/') {
            part += c;
        } else if (!part.empty()) {
            id = part;
            break;
        }
    }
    return known("scheme", fromRawValue<RecsContentSource>) + " " +
           known("host", fromRawValue<RecsContentType>) + " " + id;
}

TEST(Recommendation, ParsesEveryRidLikeThePlatform) {
    std::size_t judged = 0;
    for (const nlohmann::json& line : test::vectors("url_components.jsonl")) {
        const std::string rid = line["in"]["string"];
        const std::string parts = partsOf(rid);
        if (test::isFree(line)) continue;
        EXPECT_EQ(parts, expectedOf(line["out"])) << rid;
        ++judged;
    }
    EXPECT_GT(judged, 300U);
}

}  // namespace
}  // namespace VanticRestKit
