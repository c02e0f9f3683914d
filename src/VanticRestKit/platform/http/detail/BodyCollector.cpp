#include <VanticRestKit/platform/http/detail/BodyCollector.h>

#include <algorithm>
#include <array>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// A length that is only claimed gets so much memory at once; a longer body grows into the rest as it comes.
constexpr std::uint64_t mostReserved = 16 * 1024 * 1024;
// How much larger JSON is than its compressed form, roughly.
constexpr std::uint64_t usualRatio = 4;

TransportFault noMemory() {
    return {URLErrorCode::dataLengthExceedsMaximum, "There is no memory for the body."};
}

}  // namespace

void BodyCollector::expect(std::optional<std::uint64_t> length, Decoding decoding) {
    decoders_ = std::move(decoding.decoders);
    if (!length) return;
    const std::uint64_t plain = decoders_.empty() ? *length : std::min(*length, mostReserved) * usualRatio;
    body_.reserve(static_cast<std::size_t>(std::min(plain, mostReserved)));
}

std::optional<TransportFault> BodyCollector::add(std::string_view piece) {
    received_ += piece.size();
    // What each coding but the last gives.
    std::array<ByteBuffer, maxCodings> between;
    for (std::size_t i = 0; i < decoders_.size(); ++i) {
        ByteBuffer& plain = i + 1 == decoders_.size() ? body_ : between[i];
        if (!decoders_[i]->decode(piece, plain)) {
            if (plain.hasFailed() || decoders_[i]->isOutOfMemory()) return noMemory();
            return TransportFault{URLErrorCode::cannotDecodeContentData, "The coding of the body is broken."};
        }
        piece = between[i].view();
    }
    if (decoders_.empty() && !body_.append(piece)) return noMemory();
    return std::nullopt;
}

std::optional<TransportFault> BodyCollector::finish() const {
    const bool ended = std::all_of(decoders_.begin(), decoders_.end(),
                                   [](const auto& decoder) { return decoder->hasEnded(); });
    if (received_ == 0 || ended) return std::nullopt;
    return TransportFault{URLErrorCode::cannotDecodeContentData, "The body ends before its coding does."};
}

Data BodyCollector::take() { return body_.take(); }

}  // namespace VanticRestKit::detail
