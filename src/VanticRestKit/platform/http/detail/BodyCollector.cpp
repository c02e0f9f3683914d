#include <VanticRestKit/platform/http/detail/BodyCollector.h>

#include <algorithm>
#include <cstddef>
#include <limits>
#include <new>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// The most memory that is reserved for a declared length; the buffer of a longer body grows as it arrives.
constexpr std::uint64_t maxReserved = 16 * 1024 * 1024;
// Roughly how much larger JSON is than its compressed form.
constexpr std::uint64_t usualRatio = 4;
// How many bytes a coding writes in one step: enough to be worth the call, and few enough to stay in the processor's
// cache.
constexpr std::size_t minStep = 4 * 1024;
constexpr std::size_t maxStep = 32 * 1024;
// The most that the process can address, which bounds all limits. On 32-bit systems a body can be longer.
constexpr std::uint64_t addressable = std::numeric_limits<std::ptrdiff_t>::max();
// A body may decode to this size at any ratio: a small, repetitive body is not an attack.
constexpr std::uint64_t exemptFromRatio = 1024 * 1024;

TransportFault noMemory() {
    return {URLErrorCode::dataLengthExceedsMaximum, "There is no memory for the body."};
}

}  // namespace

void BodyCollector::expect(std::optional<std::uint64_t> length, Decoding decoding) {
    stages_.clear();
    for (auto& decoder : decoding.decoders) stages_.push_back({.decoder = std::move(decoder)});
    if (!length) return;
    length_ = *length;
    const std::uint64_t plain = stages_.empty() ? length_ : std::min(length_, maxReserved) * usualRatio;
    body_.reserve(static_cast<std::size_t>(std::min({plain, maxReserved, limits_.maxBodyBytes})));
}

std::optional<TransportFault> BodyCollector::add(std::string_view piece, std::size_t& budget) {
    received_ += piece.size();
    if (auto fault = wireSizeFault()) return fault;
    if (stages_.empty()) {
        if (auto fault = sizeFault(received_)) return fault;
        return body_.append(piece) ? std::nullopt : std::optional(noMemory());
    }
    Stage& first = stages_.front();
    first.input = piece;
    if (auto fault = decode(budget)) return fault;
    rest_.assign(first.input);
    first.input = rest_;
    return std::nullopt;
}

// The last stage is served first, so that no stage has more than one pending output.
std::vector<BodyCollector::Stage>::const_reverse_iterator BodyCollector::lastThatCanContinue()
    const noexcept {
    return std::find_if(stages_.rbegin(), stages_.rend(),
                        [](const Stage& stage) { return stage.canContinue(); });
}

bool BodyCollector::hasMore() const noexcept { return lastThatCanContinue() != stages_.rend(); }

bool BodyCollector::isBeingDecoded() const noexcept {
    const auto next = lastThatCanContinue();
    return next != stages_.rend() && next->decoder->isWorking();
}

std::optional<TransportFault> BodyCollector::decode(std::size_t& budget) {
    while (budget > 0) {
        const auto next = lastThatCanContinue();
        if (next == stages_.rend() || next->decoder->isWorking()) return std::nullopt;
        const auto stage = static_cast<std::size_t>(stages_.rend() - next) - 1;
        if (auto fault = advance(stage, budget)) return fault;
    }
    return std::nullopt;
}

std::optional<TransportFault> BodyCollector::advance(std::size_t index, std::size_t& budget) {
    Stage& stage = stages_[index];
    const std::span<char> output = outputOf(index);
    if (output.empty()) return noMemory();
    const std::size_t size = std::min(output.size(), budget);
    const auto written = stage.decoder->decode(stage.input, output.data(), size);
    if (!written) {
        if (stage.decoder->isOutOfMemory()) return noMemory();
        return TransportFault{URLErrorCode::cannotDecodeContentData,
                              "The content coding of the body is invalid."};
    }
    stage.mayHaveMore = *written == size || stage.decoder->hasMore();
    stage.written += *written;
    budget -= *written;
    if (index + 1 == stages_.size()) {
        body_.extend(*written);
    } else {
        stages_[index + 1].input = {output.data(), *written};
    }
    return sizeFault(stage.written);
}

std::span<char> BodyCollector::outputOf(std::size_t index) {
    if (index + 1 == stages_.size()) return body_.spare(minStep, maxStep);
    auto& output = stages_[index].output;
    if (!output) output.reset(new (std::nothrow) char[maxStep]);
    return {output.get(), output ? maxStep : 0};
}

std::optional<TransportFault> BodyCollector::wireSizeFault() const {
    const std::uint64_t limit = std::min(limits_.maxBodyBytesOnWire, addressable);
    if (std::max(received_, length_) <= limit) return std::nullopt;
    return limitFault("The body of the answer is larger than " + sizeText(limit), "maxBodyBytesOnWire");
}

std::optional<TransportFault> BodyCollector::sizeFault(std::uint64_t size) const {
    const std::uint64_t limit = std::min(limits_.maxBodyBytes, addressable);
    if (size > limit) {
        return limitFault("The body of the answer is larger than " + sizeText(limit), "maxBodyBytes");
    }
    const std::uint64_t ratio = std::max<std::uint64_t>(limits_.maxDecodingRatio, 1);
    if (size <= exemptFromRatio || (size - exemptFromRatio) / ratio <= received_) return std::nullopt;
    return limitFault(
        "The body of the answer decodes to more than " + std::to_string(ratio) + " times its size",
        "maxDecodingRatio");
}

std::optional<TransportFault> BodyCollector::finish() const {
    const bool ended = std::all_of(stages_.begin(), stages_.end(),
                                   [](const Stage& stage) { return stage.decoder->hasEnded(); });
    if (received_ == 0 || ended) return std::nullopt;
    return TransportFault{URLErrorCode::cannotDecodeContentData,
                          "The body ends before its content coding is complete."};
}

Data BodyCollector::take() { return body_.take(); }

}  // namespace VanticRestKit::detail
