#include <VanticRestKit/platform/http/detail/ContentDecoder.h>

#include <VanticRestKit/platform/http/detail/BrotliDecoder.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>
#include <VanticRestKit/platform/http/detail/Inflater.h>

#include <utility>

namespace VanticRestKit::detail {

namespace {

std::unique_ptr<ContentDecoder> decoderNamed(std::string_view name) {
    if (sameHeaderName(name, "gzip") || sameHeaderName(name, "x-gzip")) return makeGzipDecoder();
    if (sameHeaderName(name, "deflate")) return makeDeflateDecoder();
    if (sameHeaderName(name, "br")) return makeBrotliDecoder();
    return nullptr;
}

}  // namespace

ContentDecoder::~ContentDecoder() = default;

Decoding decodingFor(std::string_view contentEncoding) {
    Decoding decoding;
    while (!contentEncoding.empty()) {
        const auto comma = contentEncoding.find(',');
        const std::string_view name = trimmed(contentEncoding.substr(0, comma));
        contentEncoding = comma == std::string_view::npos ? "" : contentEncoding.substr(comma + 1);
        if (name.empty() || sameHeaderName(name, "identity")) continue;
        auto decoder = decoderNamed(name);
        if (!decoder || decoding.decoders.size() == maxCodings) {
            decoding.decoders.clear();
            decoding.isKnown = false;
            return decoding;
        }
        // The last coding was applied last, so it is decoded first.
        decoding.decoders.insert(decoding.decoders.begin(), std::move(decoder));
    }
    return decoding;
}

}  // namespace VanticRestKit::detail
