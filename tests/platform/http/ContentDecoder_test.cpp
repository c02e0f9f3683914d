#include <VanticRestKit/platform/http/detail/ContentDecoder.h>

#include <gtest/gtest.h>
#include <support/Codings.h>

#include <functional>

using namespace VanticRestKit::detail;
using namespace VanticRestKit::test;

namespace {

struct Coding {
    const char* name;
    std::string (*code)(std::string_view);
    std::unique_ptr<ContentDecoder> (*make)();
};

constexpr Coding codings[] = {{"gzip", &gzipped, &makeGzipDecoder},
                              {"deflate", &deflated, &makeDeflateDecoder},
                              {"raw deflate", &rawDeflated, &makeDeflateDecoder},
                              {"br", &brotlied, &makeBrotliDecoder}};

}  // namespace

TEST(ContentDecoder, UndoesACodingInPiecesOfAnySize) {
    const std::string text = sampleText(70 * 1000);
    for (const Coding& coding : codings) {
        const std::string coded = coding.code(text);
        for (const std::size_t step : {std::size_t{1}, std::size_t{7}, std::size_t{4096}, coded.size()}) {
            const auto decoder = coding.make();
            std::string plain;
            for (std::size_t at = 0; at < coded.size(); at += step) {
                ASSERT_TRUE(decoder->decode(std::string_view(coded).substr(at, step), plain)) << coding.name;
            }
            EXPECT_TRUE(plain == text) << coding.name << " in pieces of " << step;
            EXPECT_TRUE(decoder->hasEnded()) << coding.name;
        }
    }
}

TEST(ContentDecoder, HasNotEndedBeforeTheLastByte) {
    const std::string text = "a short text";
    for (const Coding& coding : codings) {
        const std::string coded = coding.code(text);
        for (std::size_t length = 0; length < coded.size(); ++length) {
            const auto decoder = coding.make();
            std::string plain;
            EXPECT_TRUE(decoder->decode(std::string_view(coded).substr(0, length), plain)) << coding.name;
            EXPECT_FALSE(decoder->hasEnded()) << coding.name << " after " << length << " of " << coded.size();
        }
    }
}

TEST(ContentDecoder, UndoesAnEmptyBody) {
    for (const Coding& coding : codings) {
        const auto decoder = coding.make();
        std::string plain;
        EXPECT_TRUE(decoder->decode(coding.code(""), plain));
        EXPECT_TRUE(decoder->hasEnded()) << coding.name;
        EXPECT_EQ(plain, "");
    }
}

TEST(ContentDecoder, RefusesWhatIsNoCoding) {
    for (const Coding& coding : codings) {
        const auto decoder = coding.make();
        std::string plain;
        const bool good = decoder->decode("\xFF\xFF\xFF\xFF\xFF\xFF not coded", plain);
        EXPECT_FALSE(good && decoder->hasEnded()) << coding.name;
    }
}

TEST(ContentDecoder, DropsWhatFollowsTheEnd) {
    for (const Coding& coding : codings) {
        const auto decoder = coding.make();
        std::string plain;
        EXPECT_TRUE(decoder->decode(coding.code("text") + "and more", plain)) << coding.name;
        EXPECT_TRUE(decoder->decode("and more", plain)) << coding.name;
        EXPECT_TRUE(decoder->hasEnded()) << coding.name;
        EXPECT_EQ(plain, "text") << coding.name;
    }
}

TEST(ContentDecoder, UndoesGzipFilesThatFollowEachOther) {
    const std::string coded = gzipped("one, ") + gzipped("two, ") + gzipped("three");
    for (const std::size_t step : {std::size_t{1}, coded.size()}) {
        const auto decoder = makeGzipDecoder();
        std::string plain;
        for (std::size_t at = 0; at < coded.size(); at += step) {
            ASSERT_TRUE(decoder->decode(std::string_view(coded).substr(at, step), plain));
        }
        EXPECT_EQ(plain, "one, two, three");
        EXPECT_TRUE(decoder->hasEnded());
    }
}

TEST(Decoding, IsReadFromTheNamesOfTheCodings) {
    EXPECT_EQ(decodingFor("").decoders.size(), 0U);
    EXPECT_EQ(decodingFor("identity").decoders.size(), 0U);
    EXPECT_EQ(decodingFor(" GZip ").decoders.size(), 1U);
    EXPECT_EQ(decodingFor("gzip,br, deflate").decoders.size(), 3U);
    EXPECT_TRUE(decodingFor("gzip,").isKnown);
    EXPECT_FALSE(decodingFor("zstd").isKnown);
    EXPECT_FALSE(decodingFor("gzip, zstd").isKnown);
    EXPECT_FALSE(decodingFor("gzip,gzip,gzip,gzip,gzip").isKnown) << "nobody means that";
}
