#include <VanticRestKit/platform/http/detail/BodyCollector.h>

#include <algorithm>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// A length that is only claimed gets so much memory at once; a longer body grows into the rest as it comes.
constexpr std::uint64_t mostReserved = 16 * 1024 * 1024;
// How much larger JSON is than its compressed form, roughly.
constexpr std::uint64_t usualRatio = 4;

}  // namespace

void BodyCollector::expect(std::optional<std::uint64_t> length, Decoding decoding) {
    decoders_ = std::move(decoding.decoders);
    if (!length) return;
    const std::uint64_t plain = decoders_.empty() ? *length : std::min(*length, mostReserved) * usualRatio;
    body_.reserve(static_cast<std::size_t>(std::min(plain, mostReserved)) + Data::padding);
}

std::optional<TransportFault> BodyCollector::add(std::string_view piece) {
    received_ += piece.size();
    std::string between;
    for (std::size_t i = 0; i < decoders_.size(); ++i) {
        const bool isLast = i + 1 == decoders_.size();
        std::string plain;
        if (!decoders_[i]->decode(piece, isLast ? body_ : plain)) {
            return TransportFault{URLErrorCode::cannotDecodeContentData, "The coding of the body is broken."};
        }
        between = std::move(plain);
        piece = between;
    }
    if (decoders_.empty()) body_ += piece;
    return std::nullopt;
}

std::optional<TransportFault> BodyCollector::finish() const {
    const bool ended = std::all_of(decoders_.begin(), decoders_.end(),
                                   [](const auto& decoder) { return decoder->hasEnded(); });
    if (received_ == 0 || ended) return std::nullopt;
    return TransportFault{URLErrorCode::cannotDecodeContentData, "The body ends before its coding does."};
}

Data BodyCollector::take() { return Data(std::move(body_)); }

}  // namespace VanticRestKit::detail
