#include "Codings.h"

#include <gtest/gtest.h>

#include <brotli/encode.h>
#include <zlib.h>
#include <cstdint>

namespace VanticRestKit::test {

namespace {

std::string coded(std::string_view text, int windowBits) {
    z_stream stream{};
    EXPECT_EQ(deflateInit2(&stream, 6, Z_DEFLATED, windowBits, 8, Z_DEFAULT_STRATEGY), Z_OK);
    std::string result(deflateBound(&stream, static_cast<uLong>(text.size())) + 32, '\0');
    stream.next_in = const_cast<Bytef*>(reinterpret_cast<const Bytef*>(text.data()));
    stream.avail_in = static_cast<uInt>(text.size());
    stream.next_out = reinterpret_cast<Bytef*>(result.data());
    stream.avail_out = static_cast<uInt>(result.size());
    EXPECT_EQ(deflate(&stream, Z_FINISH), Z_STREAM_END);
    result.resize(stream.total_out);
    deflateEnd(&stream);
    return result;
}

}  // namespace

std::string gzipped(std::string_view text) { return coded(text, 15 + 16); }

std::string deflated(std::string_view text) { return coded(text, 15); }

std::string rawDeflated(std::string_view text) { return coded(text, -15); }

std::string brotlied(std::string_view text) {
    std::size_t size = BrotliEncoderMaxCompressedSize(text.size()) + 64;
    std::string result(size, '\0');
    EXPECT_EQ(BrotliEncoderCompress(5, 20, BROTLI_MODE_TEXT, text.size(),
                                    reinterpret_cast<const std::uint8_t*>(text.data()), &size,
                                    reinterpret_cast<std::uint8_t*>(result.data())),
              BROTLI_TRUE);
    result.resize(size);
    return result;
}

std::string sampleText(std::size_t size) {
    std::string text;
    for (std::uint32_t i = 1; text.size() < size; ++i) {
        text.append("{\"id\":")
            .append(std::to_string(i * 2654435761U))
            .append(",\"title\":\"One of them\"},");
    }
    text.resize(size);
    return text;
}

}  // namespace VanticRestKit::test
