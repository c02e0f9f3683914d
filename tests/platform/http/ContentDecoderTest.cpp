#include <VanticRestKit/platform/http/detail/BrotliDecoder.h>
#include <VanticRestKit/platform/http/detail/ContentDecoder.h>
#include <VanticRestKit/platform/http/detail/Inflater.h>

#include <gtest/gtest.h>
#include <support/Codings.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

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

/// Appends all that `coded` decodes to to `plain`, written in pieces of `step`. Whether the coding is good so far.
bool decodeAll(ContentDecoder& decoder, std::string_view coded, std::string& plain,
               std::size_t step = 32 * 1024) {
    std::vector<char> output(step);
    while (true) {
        const auto written = decoder.decode(coded, output.data(), step);
        if (!written) return false;
        plain.append(output.data(), *written);
        if (*written < step) {
            EXPECT_TRUE(coded.empty()) << "a decoder with space left uses all of its input";
            return true;
        }
    }
}

/// A raw deflate of one block that is not compressed: each byte of it gives one of the text.
std::string stored(const std::string& text) {
    const std::size_t size = text.size();
    const auto byte = [](std::size_t value) {
        return static_cast<char>(static_cast<unsigned char>(value & 0xFF));
    };
    return std::string{byte(1), byte(size), byte(size >> 8), byte(~size), byte(~size >> 8)} + text;
}

}  // namespace

TEST(ContentDecoder, UndoesACodingInPiecesOfAnySize) {
    const std::string text = sampleText(70 * 1000);
    for (const Coding& coding : codings) {
        const std::string coded = coding.code(text);
        for (const std::size_t step : {std::size_t{1}, std::size_t{7}, std::size_t{4096}, coded.size()}) {
            const auto decoder = coding.make();
            std::string plain;
            for (std::size_t at = 0; at < coded.size(); at += step) {
                ASSERT_TRUE(decodeAll(*decoder, std::string_view(coded).substr(at, step), plain))
                    << coding.name;
            }
            EXPECT_TRUE(plain == text) << coding.name << " in pieces of " << step;
            EXPECT_TRUE(decoder->hasEnded()) << coding.name;
        }
    }
}

TEST(ContentDecoder, UndoesABodyThatFillsItsRoomToTheLastByte) {
    for (const std::size_t size : {32U * 1024U, 64U * 1024U}) {
        const std::string text = sampleText(size);
        for (const Coding& coding : codings) {
            const auto decoder = coding.make();
            std::string plain;
            EXPECT_TRUE(decodeAll(*decoder, coding.code(text), plain)) << coding.name;
            EXPECT_TRUE(plain == text) << coding.name;
            EXPECT_TRUE(decoder->hasEnded()) << coding.name;
        }
    }
}

TEST(ContentDecoder, TakesMoreWhenAPieceHasFilledItsRoom) {
    const std::string text = sampleText(40'000);
    const std::string coded = stored(text);
    const std::size_t head = coded.size() - text.size();
    for (const std::size_t plainOfTheFirst : {32U * 1024U - 1U, 32U * 1024U, 32U * 1024U + 1U}) {
        const std::string_view all = coded;
        const auto decoder = makeDeflateDecoder();
        std::string plain;
        EXPECT_TRUE(decodeAll(*decoder, all.substr(0, head + plainOfTheFirst), plain));
        EXPECT_EQ(plain.size(), plainOfTheFirst);
        EXPECT_TRUE(decodeAll(*decoder, all.substr(head + plainOfTheFirst), plain));
        EXPECT_TRUE(plain == text);
        EXPECT_TRUE(decoder->hasEnded());
    }
}

TEST(ContentDecoder, TellsARawDeflateByBothOfItsFirstBytes) {
    int looksFramed = 0;
    for (std::size_t size = 1; size < 400; ++size) {
        const std::string text = sampleText(size);
        const std::string coded = rawDeflated(text);
        const auto byte = [&coded](std::size_t i) { return static_cast<unsigned char>(coded[i]); };
        if ((byte(0) * 256 + byte(1)) % 31 == 0) ++looksFramed;
        const auto decoder = makeDeflateDecoder();
        std::string plain;
        EXPECT_TRUE(decodeAll(*decoder, coded, plain)) << size;
        EXPECT_EQ(plain, text);
    }
    EXPECT_GT(looksFramed, 0) << "by the second test alone";
}

TEST(ContentDecoder, WritesNoMoreThanItIsAskedForAndGoesOnFromThere) {
    const std::string text = std::string(50'000, 'x') + sampleText(3000);
    for (const Coding& coding : codings) {
        for (const std::size_t step : {std::size_t{1}, std::size_t{7}, std::size_t{1000}, text.size()}) {
            const auto decoder = coding.make();
            std::string plain;
            EXPECT_TRUE(decodeAll(*decoder, coding.code(text), plain, step)) << coding.name;
            EXPECT_TRUE(plain == text) << coding.name << " in steps of " << step;
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
            EXPECT_TRUE(decodeAll(*decoder, std::string_view(coded).substr(0, length), plain)) << coding.name;
            EXPECT_FALSE(decoder->hasEnded()) << coding.name << " after " << length << " of " << coded.size();
        }
    }
}

TEST(ContentDecoder, UndoesAnEmptyBody) {
    for (const Coding& coding : codings) {
        const auto decoder = coding.make();
        std::string plain;
        EXPECT_TRUE(decodeAll(*decoder, coding.code(""), plain));
        EXPECT_TRUE(decoder->hasEnded()) << coding.name;
        EXPECT_EQ(plain, "");
    }
}

TEST(ContentDecoder, RefusesWhatIsNoCoding) {
    for (const Coding& coding : codings) {
        const auto decoder = coding.make();
        std::string plain;
        const bool good = decodeAll(*decoder, "\xFF\xFF\xFF\xFF\xFF\xFF not coded", plain);
        EXPECT_FALSE(good && decoder->hasEnded()) << coding.name;
    }
}

TEST(ContentDecoder, RefusesAtOnceWhatCannotBeginItsCoding) {
    for (const Coding& coding : codings) {
        std::string plain;
        EXPECT_FALSE(decodeAll(*coding.make(), std::string(100, '\xFF'), plain)) << coding.name;
    }
}

TEST(ContentDecoder, DropsWhatFollowsTheEnd) {
    for (const Coding& coding : codings) {
        const auto decoder = coding.make();
        std::string plain;
        EXPECT_TRUE(decodeAll(*decoder, coding.code("text") + "and more", plain)) << coding.name;
        EXPECT_TRUE(decodeAll(*decoder, "and more", plain)) << coding.name;
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
            ASSERT_TRUE(decodeAll(*decoder, std::string_view(coded).substr(at, step), plain));
        }
        EXPECT_EQ(plain, "one, two, three");
        EXPECT_TRUE(decoder->hasEnded());
    }
}

TEST(Decoding, IsReadFromTheNamesOfTheCodings) {
    EXPECT_EQ(decodingFor("").decoders.size(), 0U);
    EXPECT_EQ(decodingFor("identity").decoders.size(), 0U);
    EXPECT_TRUE(decodingFor("identity").isKnown);
    EXPECT_EQ(decodingFor("x-gzip, Identity").decoders.size(), 1U);
    EXPECT_EQ(decodingFor(" GZip ").decoders.size(), 1U);
    EXPECT_EQ(decodingFor("gzip,br, deflate").decoders.size(), 3U);
    EXPECT_TRUE(decodingFor("gzip,").isKnown);
    EXPECT_FALSE(decodingFor("zstd").isKnown);
    EXPECT_FALSE(decodingFor("gzip, zstd").isKnown);
    EXPECT_TRUE(decodingFor("gzip, zstd").decoders.empty());
    EXPECT_FALSE(decodingFor("gzip,gzip,gzip,gzip,gzip").isKnown) << "no server means that";
}
