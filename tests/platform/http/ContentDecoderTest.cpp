#include <VanticRestKit/platform/http/detail/BrotliDecoder.h>
#include <VanticRestKit/platform/http/detail/ContentDecoder.h>
#include <VanticRestKit/platform/http/detail/Inflater.h>

#include <gtest/gtest.h>
#include <support/Codings.h>

#include <brotli/encode.h>
#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
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

/// Waits until no other thread works for `decoder`. Returns whether there was one.
bool awaitWork(const ContentDecoder& decoder) {
    const bool isWorking = decoder.isWorking();
    const auto end = std::chrono::steady_clock::now() + std::chrono::minutes(1);
    while (decoder.isWorking() && std::chrono::steady_clock::now() < end) std::this_thread::yield();
    EXPECT_FALSE(decoder.isWorking());
    return isWorking;
}

/// Decodes `coded` in pieces of `step` and appends the result to `plain`. Returns whether the coding is valid so far.
bool decodeAll(ContentDecoder& decoder, std::string_view coded, std::string& plain,
               std::size_t step = 32 * 1024) {
    std::vector<char> output(step);
    while (true) {
        const auto written = decoder.decode(coded, output.data(), step);
        if (!written) return false;
        plain.append(output.data(), *written);
        if (decoder.hasMore()) {
            awaitWork(decoder);
        } else if (*written < step) {
            EXPECT_TRUE(coded.empty()) << "a decoder with space left consumes all of its input";
            return true;
        }
    }
}

/// A raw deflate stream with one uncompressed block, so that each input byte gives one byte of text.
std::string stored(const std::string& text) {
    const std::size_t size = text.size();
    const auto byte = [](std::size_t value) {
        return static_cast<char>(static_cast<unsigned char>(value & 0xFF));
    };
    return std::string{byte(1), byte(size), byte(size >> 8), byte(~size), byte(~size >> 8)} + text;
}

/// A brotli body, by default with a large window, encoded part by part.
class BrotliStream {
public:
    explicit BrotliStream(std::uint32_t windowBits = BROTLI_MAX_WINDOW_BITS)
        : encoder_(BrotliEncoderCreateInstance(nullptr, nullptr, nullptr)) {
        BrotliEncoderSetParameter(encoder_, BROTLI_PARAM_QUALITY, 5);
        BrotliEncoderSetParameter(encoder_, BROTLI_PARAM_LGWIN, windowBits);
    }
    BrotliStream(const BrotliStream&) = delete;
    BrotliStream& operator=(const BrotliStream&) = delete;
    ~BrotliStream() { BrotliEncoderDestroyInstance(encoder_); }

    BrotliStream& add(std::string_view text) { return add(text, BROTLI_OPERATION_FLUSH); }
    /// Metadata, which does not appear in the output.
    BrotliStream& addMetadata(std::string_view bytes) { return add(bytes, BROTLI_OPERATION_EMIT_METADATA); }
    std::string finish() {
        add({}, BROTLI_OPERATION_FINISH);
        return coded_;
    }

private:
    BrotliStream& add(std::string_view text, BrotliEncoderOperation operation) {
        const auto* next = reinterpret_cast<const std::uint8_t*>(text.data());
        std::size_t left = text.size();
        std::vector<std::uint8_t> output(64 * 1024);
        bool isGood = true;
        do {
            std::uint8_t* out = output.data();
            std::size_t outLeft = output.size();
            isGood =
                BrotliEncoderCompressStream(encoder_, operation, &left, &next, &outLeft, &out, nullptr) != 0;
            coded_.append(reinterpret_cast<const char*>(output.data()), output.size() - outLeft);
        } while (isGood && (left > 0 || BrotliEncoderHasMoreOutput(encoder_)));
        EXPECT_TRUE(isGood);
        return *this;
    }

    BrotliEncoderState* const encoder_;
    std::string coded_;
};

}  // namespace

TEST(ContentDecoder, DecodesInPiecesOfAnySize) {
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

TEST(ContentDecoder, DecodesABodyThatFillsTheOutputBufferExactly) {
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

TEST(ContentDecoder, AcceptsMoreInputAfterTheOutputBufferWasFilled) {
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

TEST(ContentDecoder, RecognisesRawDeflateByItsFirstTwoBytes) {
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
    EXPECT_GT(looksFramed, 0) << "by the second check alone";
}

TEST(ContentDecoder, WritesNoMoreThanRequestedAndContinuesFromThere) {
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

TEST(ContentDecoder, DecodesAnEmptyBody) {
    for (const Coding& coding : codings) {
        const auto decoder = coding.make();
        std::string plain;
        EXPECT_TRUE(decodeAll(*decoder, coding.code(""), plain));
        EXPECT_TRUE(decoder->hasEnded()) << coding.name;
        EXPECT_EQ(plain, "");
    }
}

TEST(ContentDecoder, RejectsInvalidData) {
    for (const Coding& coding : codings) {
        const auto decoder = coding.make();
        std::string plain;
        const bool good = decodeAll(*decoder, "\xFF\xFF\xFF\xFF\xFF\xFF not coded", plain);
        EXPECT_FALSE(good && decoder->hasEnded()) << coding.name;
    }
}

TEST(ContentDecoder, RejectsDataThatCannotStartACoding) {
    for (const Coding& coding : codings) {
        std::string plain;
        EXPECT_FALSE(decodeAll(*coding.make(), std::string(100, '\xFF'), plain)) << coding.name;
    }
}

TEST(ContentDecoder, IgnoresDataAfterTheEnd) {
    for (const Coding& coding : codings) {
        const auto decoder = coding.make();
        std::string plain;
        EXPECT_TRUE(decodeAll(*decoder, coding.code("text") + "and more", plain)) << coding.name;
        EXPECT_TRUE(decodeAll(*decoder, "and more", plain)) << coding.name;
        EXPECT_TRUE(decoder->hasEnded()) << coding.name;
        EXPECT_EQ(plain, "text") << coding.name;
    }
}

TEST(ContentDecoder, IgnoresDataAfterTheEndHoweverItIsDivided) {
    for (const Coding& coding : codings) {
        const auto decoder = coding.make();
        std::string plain;
        EXPECT_TRUE(decodeAll(*decoder, coding.code("text"), plain)) << coding.name;
        EXPECT_TRUE(decodeAll(*decoder, "more", plain)) << coding.name;
        EXPECT_TRUE(decodeAll(*decoder, coding.code("text"), plain)) << coding.name;
        EXPECT_TRUE(decoder->hasEnded()) << coding.name;
        EXPECT_EQ(plain, "text") << coding.name;
    }
}

TEST(ContentDecoder, DecodesConcatenatedGzipFiles) {
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

TEST(ContentDecoder, FillsALargeBrotliWindowOnAnotherThread) {
    const std::string text = std::string(20'000'000, 'x') + sampleText(1'000'000);
    const std::string coded = BrotliStream().add(text).finish();
    const auto decoder = makeBrotliDecoder();
    std::string_view left = coded;
    std::vector<char> output(32 * 1024);
    std::string plain;
    int windows = 0;
    do {
        const auto written = decoder->decode(left, output.data(), output.size());
        ASSERT_TRUE(written);
        plain.append(output.data(), *written);
        if (decoder->isWorking()) ++windows;
        awaitWork(*decoder);
    } while (!decoder->hasEnded());
    EXPECT_TRUE(plain == text);
    EXPECT_GT(windows, 0);
}

TEST(ContentDecoder, EndsABrotliBodyThatFillsItsWindowExactly) {
    const std::string text = sampleText(4 * 1024 * 1024);
    // Its window is 1 MB.
    const std::string coded = brotlied(text);
    const auto decoder = makeBrotliDecoder();
    std::string plain;
    EXPECT_TRUE(decodeAll(*decoder, coded, plain));
    EXPECT_TRUE(plain == text);
    EXPECT_TRUE(decoder->hasEnded());
}

TEST(ContentDecoder, DecodesASmallBrotliBodyOnTheCallingThread) {
    const std::string text = sampleText(250'000);
    const std::string coded = BrotliStream().add(text).finish();
    const auto decoder = makeBrotliDecoder();
    std::string_view left = coded;
    std::string plain(text.size() + 1, ' ');
    EXPECT_EQ(decoder->decode(left, plain.data(), plain.size()), text.size());
    EXPECT_FALSE(decoder->hasMore());
    EXPECT_TRUE(decoder->hasEnded());
}

TEST(ContentDecoder, ContinuesABrotliBodyThatBecomesLargeLate) {
    const std::string small = sampleText(100'000);
    const std::string large = sampleText(3'000'000);
    const std::string coded = BrotliStream().add(small).add("x").add(large).add("end").finish();
    for (const std::size_t piece : {std::size_t{100}, std::size_t{16 * 1024}, coded.size()}) {
        const auto decoder = makeBrotliDecoder();
        std::string plain;
        for (std::size_t at = 0; at < coded.size(); at += piece) {
            ASSERT_TRUE(decodeAll(*decoder, std::string_view(coded).substr(at, piece), plain));
        }
        EXPECT_TRUE(plain == small + "x" + large + "end") << "in pieces of " << piece;
        EXPECT_TRUE(decoder->hasEnded());
    }
}

TEST(ContentDecoder, DecodesABrotliBodyWithALongStretchOfNoOutput) {
    BrotliStream stream;
    stream.add("begin ");
    for (int i = 0; i < 20; ++i) stream.addMetadata(std::string(100'000, 'm'));
    const std::string coded = stream.add("end").finish();
    const auto decoder = makeBrotliDecoder();
    std::string plain;
    for (std::size_t at = 0; at < coded.size(); at += 16'000) {
        ASSERT_TRUE(decodeAll(*decoder, std::string_view(coded).substr(at, 16'000), plain));
    }
    EXPECT_EQ(plain, "begin end");
    EXPECT_TRUE(decoder->hasEnded());
}

TEST(ContentDecoder, DetectsATruncatedOrMalformedLargeBrotliBody) {
    const std::string coded = BrotliStream().add(sampleText(2'000'000)).finish();
    const auto cut = makeBrotliDecoder();
    std::string plain;
    EXPECT_TRUE(decodeAll(*cut, std::string_view(coded).substr(0, coded.size() - 1), plain));
    EXPECT_FALSE(cut->hasEnded());
    std::string broken = coded;
    broken.replace(coded.size() / 2, 200, std::string(200, '\xFF'));
    const auto decoder = makeBrotliDecoder();
    EXPECT_FALSE(decodeAll(*decoder, broken, plain) && decoder->hasEnded());
}

TEST(ContentDecoder, DecodesALongBrotliBodyWithASmallWindowOnTheCallingThread) {
    const std::string text = sampleText(3'000'000);
    const std::string coded = BrotliStream(BROTLI_MIN_WINDOW_BITS).add(text).finish();
    const auto decoder = makeBrotliDecoder();
    std::string plain;
    std::string buffer(50'000, '\0');
    std::string_view rest = coded;
    while (!decoder->hasEnded()) {
        const auto count = decoder->decode(rest, buffer.data(), buffer.size());
        ASSERT_TRUE(count.has_value());
        ASSERT_FALSE(decoder->isWorking());
        ASSERT_GT(*count, 0U);
        plain.append(buffer, 0, *count);
    }
    EXPECT_EQ(plain, text);
}

TEST(ContentDecoder, RejectsRawDeflateWhoseFirstByteIsInvalidOnceTheSecondArrives) {
    const Decoding decoding = decodingFor("deflate");
    std::string buffer(10, '\0');
    // The last block, of a type that does not exist.
    std::string_view first = "\x07";
    EXPECT_EQ(decoding.decoders.front()->decode(first, buffer.data(), buffer.size()), 0U);
    std::string_view second = "x";
    EXPECT_EQ(decoding.decoders.front()->decode(second, buffer.data(), buffer.size()), std::nullopt);
}

TEST(Decoding, IgnoresIdentityAndEmptyNames) {
    EXPECT_TRUE(decodingFor("identity").isKnown);
    EXPECT_TRUE(decodingFor("Identity, ,").decoders.empty());
    EXPECT_EQ(decodingFor(" , gzip,identity").decoders.size(), 1U);
    EXPECT_FALSE(decodingFor("identity2").isKnown);
}

TEST(Decoding, IsSelectedByTheNamesOfTheCodings) {
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
    EXPECT_FALSE(decodingFor("gzip,gzip,gzip,gzip,gzip").isKnown) << "no server sends that on purpose";
}
