#pragma once

/// \file
/// `BodyCollector`: gathers the body of an answer.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/data/detail/ByteBuffer.h>
#include <VanticRestKit/platform/http/detail/ContentDecoder.h>
#include <VanticRestKit/platform/http/detail/URLErrors.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// Gathers the pieces of one body, decoded, in one buffer that becomes the `Data` without another copy.
class BodyCollector {
public:
    /// Says what will come, before the first piece: the length on the wire, if known, and the codings to
    /// undo.
    void expect(std::optional<std::uint64_t> length, Decoding decoding);

    /// Takes the next piece. What is wrong with it, if anything is.
    std::optional<TransportFault> add(std::string_view piece);

    /// Whether the body ended where its coding does. A body without any byte is no coded one.
    std::optional<TransportFault> finish() const;

    /// The body; once.
    Data take();

private:
    std::vector<std::unique_ptr<ContentDecoder>> decoders_;
    std::uint64_t received_ = 0;
    ByteBuffer body_;
};

}  // namespace VanticRestKit::detail
