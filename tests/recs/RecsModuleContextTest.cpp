#include <gtest/gtest.h>
#include <VanticRestKit/recs/RecsModuleContext.h>

#include <array>
#include <iterator>
#include <utility>

namespace VanticRestKit {
namespace {

TEST(RecsContentSource, HasTwoCases) {
    EXPECT_EQ(std::size(RawTexts<RecsContentSource>::cases), 2U);
    EXPECT_EQ(rawValue(RecsContentSource::lumeno), "lumeno");
    EXPECT_EQ(rawValue(RecsContentSource::coremedia), "coremedia");
    EXPECT_EQ(fromRawValue<RecsContentSource>("coremedia"), RecsContentSource::coremedia);
    EXPECT_EQ(fromRawValue<RecsContentSource>("CoreMedia"), std::nullopt);
}

TEST(RecsContentType, HasNineCasesNamedAfterTheirRawValues) {
    constexpr std::array<std::pair<RecsContentType, const char*>, 9> types{
        {{RecsContentType::audio, "audio"},
         {RecsContentType::audioepisode, "audioepisode"},
         {RecsContentType::audiosegment, "audiosegment"},
         {RecsContentType::program, "program"},
         {RecsContentType::recipe, "recipe"},
         {RecsContentType::video, "video"},
         {RecsContentType::videoepisode, "videoepisode"},
         {RecsContentType::videosegment, "videosegment"},
         {RecsContentType::article, "article"}}};
    EXPECT_EQ(std::size(RawTexts<RecsContentType>::cases), types.size());
    for (const auto& [type, raw] : types) {
        EXPECT_EQ(rawValue(type), raw);
        EXPECT_EQ(caseName(type), raw);
        EXPECT_EQ(fromRawValue<RecsContentType>(raw), type);
    }
    EXPECT_EQ(fromRawValue<RecsContentType>("show"), std::nullopt);
    EXPECT_EQ(fromRawValue<RecsContentType>(""), std::nullopt);
}

TEST(RecsModuleContext, CanBeInitializedInDeclaredOrder) {
    const RecsModuleContext content{.source = RecsContentSource::lumeno,
                                    .contentType = RecsContentType::videoepisode,
                                    .contentId = "ZW1"};
    EXPECT_EQ(content.recContextURI(), "lumeno://videoepisode/ZW1");
}

TEST(RecsModuleContext, EscapesNothingInItsURI) {
    const auto uriOf = [](const char* id) { return RecsModuleContext::withShowId(id).recContextURI(); };
    EXPECT_EQ(uriOf("a b/c?d=%20&\u00e9"), "lumeno://program/a b/c?d=%20&\u00e9");
    EXPECT_EQ(uriOf(""), "lumeno://program/");
    EXPECT_EQ(uriOf("/7"), "lumeno://program//7");
}

TEST(RecsModuleContext, HasAFactoryForEachKindOfContent) {
    using Source = RecsContentSource;
    using Type = RecsContentType;
    EXPECT_EQ(RecsModuleContext::withCoreMediaProgramId("1"),
              (RecsModuleContext{Source::coremedia, Type::program, "1"}));
    EXPECT_EQ(RecsModuleContext::withArticleId("1"),
              (RecsModuleContext{Source::coremedia, Type::audio, "1"}));
    EXPECT_EQ(RecsModuleContext::withShowId("1"), (RecsModuleContext{Source::lumeno, Type::program, "1"}));
    EXPECT_EQ(RecsModuleContext::withAudioEpisodeId("1"),
              (RecsModuleContext{Source::coremedia, Type::audioepisode, "1"}));
    EXPECT_EQ(RecsModuleContext::withAudioSegmentId("1"),
              (RecsModuleContext{Source::coremedia, Type::audiosegment, "1"}));
}

TEST(RecsModuleContext, NamesAnArticleAsAudio) {
    EXPECT_EQ(RecsModuleContext::withArticleId("7").recContextURI(), "coremedia://audio/7");
}

TEST(RecsModuleContext, EqualsAContextWithTheSameFields) {
    EXPECT_EQ(RecsModuleContext::withShowId("1"), RecsModuleContext::withShowId("1"));
    EXPECT_NE(RecsModuleContext::withShowId("1"), RecsModuleContext::withShowId("2"));
    EXPECT_NE(RecsModuleContext::withShowId("1"), RecsModuleContext::withCoreMediaProgramId("1"));
    EXPECT_NE(RecsModuleContext::withAudioEpisodeId("1"), RecsModuleContext::withAudioSegmentId("1"));
}

}  // namespace
}  // namespace VanticRestKit
