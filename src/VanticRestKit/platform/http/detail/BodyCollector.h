#pragma once

/// \file
/// `BodyCollector`: gathers the body of an answer.

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

/// Gathers the pieces of one body, decoded, in one buffer that becomes the `Data` without another copy.
///
/// A piece can expand to any size, so it is decoded in slices: a caller gives the number of bytes that may be written in
/// one go, over all codings of the body, and gets back what is left of that number.
class BodyCollector {
public:
    /// `limits` must outlive the collector.
    explicit BodyCollector(const URLSessionLimits& limits = defaultLimits) : limits_(limits) {}

    /// Says what will come, before the first piece: the length on the wire, if known, and the codings to
    /// undo.
    void expect(std::optional<std::uint64_t> length, Decoding decoding);

    /// Whether the body has a coding, so that a piece may take long.
    bool isCoded() const noexcept { return !stages_.empty(); }

    /// Takes the next piece, and decodes as much of it as `budget` allows. Not while `hasMore()`. What is wrong with the
    /// body, if anything is.
    std::optional<TransportFault> add(std::string_view piece, std::size_t& budget);

    /// Whether something of the last piece is not decoded yet.
    bool hasMore() const noexcept;

    /// Whether another thread is at work on it, and `decode` can do nothing until that has stopped.
    bool isBeingDecoded() const noexcept;

    /// Decodes more of the last piece.
    std::optional<TransportFault> decode(std::size_t& budget);

    /// Whether the body ended where its coding does. A body without any byte is no coded one.
    std::optional<TransportFault> finish() const;

    /// How many bytes came, as they were sent.
    std::uint64_t received() const noexcept { return received_; }

    /// Gives back memory that was got for more than came. For a body that is kept for long.
    void fit() { body_.fit(); }

    /// The body; once.
    Data take();

private:
    /// One coding.
    struct Stage {
        std::unique_ptr<ContentDecoder> decoder;
        std::string_view input{};
        /// Whether the decoder filled all that it was given the last time, or another thread is at work for it.
        bool mayHaveMore = false;
        std::uint64_t written = 0;
        /// What it has written, for the next stage. The last one writes to the body.
        std::unique_ptr<char[]> output{};

        bool canGoOn() const noexcept { return mayHaveMore || !input.empty(); }
    };

    std::vector<Stage>::const_reverse_iterator lastThatCanGoOn() const noexcept;
    std::optional<TransportFault> advance(std::size_t stage, std::size_t& budget);
    std::span<char> outputOf(std::size_t stage);
    std::optional<TransportFault> faultOfWire() const;
    std::optional<TransportFault> faultOfSize(std::uint64_t size) const;

    const URLSessionLimits& limits_;
    std::vector<Stage> stages_;
    std::uint64_t length_ = 0;
    std::uint64_t received_ = 0;
    // What of the last piece the first stage has not used.
    std::string rest_;
    ByteBuffer body_;
};

}  // namespace VanticRestKit::detail
