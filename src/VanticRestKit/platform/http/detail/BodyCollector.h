#pragma once

/// \file
/// `BodyCollector`: collects the body of a response.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/data/detail/ByteBuffer.h>
#include <VanticRestKit/platform/http/detail/ContentDecoder.h>
#include <VanticRestKit/platform/http/detail/LimitFaults.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>
#include <VanticRestKit/platform/http/URLSessionLimits.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// Collects and decodes the pieces of one body in one buffer, which becomes the `Data` without another copy.
///
/// A piece can expand to any size, so it is decoded in slices: the caller passes a budget, the number of bytes that may
/// be written by all codings of the body together, and gets back the rest of it.
class BodyCollector {
public:
    /// `limits` must outlive the collector.
    explicit BodyCollector(const URLSessionLimits& limits = defaultLimits) : limits_(limits) {}

    /// Called before the first piece: sets the length on the wire, if known, and the codings to decode.
    void expect(std::optional<std::uint64_t> length, Decoding decoding);

    /// Whether the body has a coding, so that decoding a piece may take long.
    bool isCoded() const noexcept { return !stages_.empty(); }

    /// Takes the next piece, and decodes as much of it as `budget` allows. Must not be called while `hasMore()`.
    /// Returns a fault if the body is invalid.
    std::optional<TransportFault> add(std::string_view piece, std::size_t& budget);

    /// Whether part of the last piece is not decoded yet.
    bool hasMore() const noexcept;

    /// Whether another thread is decoding, so that `decode` has no effect until it has stopped.
    bool isBeingDecoded() const noexcept;

    /// Decodes more of the last piece.
    std::optional<TransportFault> decode(std::size_t& budget);

    /// Checks that the codings ended with the body. An empty body is always valid.
    std::optional<TransportFault> finish() const;

    /// The number of bytes received, as sent on the wire.
    std::uint64_t received() const noexcept { return received_; }

    /// Releases unused capacity, for a body that is kept for a long time.
    void fit() { body_.fit(); }

    /// The body. Called once.
    Data take();

private:
    /// One coding.
    struct Stage {
        std::unique_ptr<ContentDecoder> decoder;
        std::string_view input{};
        /// Whether the decoder may have more output: it filled the last buffer, or another thread is decoding for it.
        bool mayHaveMore = false;
        std::uint64_t written = 0;
        /// Its output, which is the input of the next stage. The last stage writes to the body.
        std::unique_ptr<char[]> output{};

        bool canContinue() const noexcept { return mayHaveMore || !input.empty(); }
    };

    std::vector<Stage>::const_reverse_iterator lastThatCanContinue() const noexcept;
    std::optional<TransportFault> advance(std::size_t stage, std::size_t& budget);
    std::span<char> outputOf(std::size_t stage);
    std::optional<TransportFault> wireSizeFault() const;
    std::optional<TransportFault> sizeFault(std::uint64_t size) const;

    const URLSessionLimits& limits_;
    std::vector<Stage> stages_;
    std::uint64_t length_ = 0;
    std::uint64_t received_ = 0;
    // The part of the last piece that the first stage has not used.
    std::string rest_;
    ByteBuffer body_;
};

}  // namespace VanticRestKit::detail
