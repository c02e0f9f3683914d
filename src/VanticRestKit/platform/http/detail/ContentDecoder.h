#pragma once

/// \file
/// `ContentDecoder`: decodes one content coding of a body.

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// The supported codings, as the value of Accept-Encoding.
inline constexpr std::string_view acceptedCodings = "gzip, deflate, br";

/// Decodes one coding, piece by piece. Unlike libcurl's own decoding it detects a truncated body, and it never writes
/// more at a time than requested, however much its input expands.
class ContentDecoder {
public:
    ContentDecoder() = default;
    ContentDecoder(const ContentDecoder&) = delete;
    ContentDecoder& operator=(const ContentDecoder&) = delete;
    virtual ~ContentDecoder();

    /// Decodes the beginning of `coded` into the `size` bytes at `plain`, removes what it has used from `coded`, and
    /// returns the number of bytes written. If that is less than `size`, it has used all of `coded` and has no more
    /// output. If it is `size`, there may be more output, even if `coded` is now empty. No value: the coding is
    /// invalid, or there was no memory. Data after the end of the coding is discarded.
    ///
    /// If `hasMore` afterwards, the decoder has passed its input to another thread. While that thread `isWorking`,
    /// `decode` writes nothing; afterwards there is more output.
    virtual std::optional<std::size_t> decode(std::string_view& coded, char* plain, std::size_t size) = 0;

    virtual bool hasMore() const { return false; }
    virtual bool isWorking() const { return false; }

    /// Whether `decode` failed because there was no memory for its own state.
    bool isOutOfMemory() const noexcept { return isOutOfMemory_; }

    /// Whether the coding is complete, including its checksum.
    virtual bool hasEnded() const = 0;

protected:
    bool isOutOfMemory_ = false;
};

/// The maximum number of codings of one body; no server has a good reason for more.
inline constexpr std::size_t maxCodings = 4;

/// The decoders for a Content-Encoding.
struct Decoding {
    /// In the order in which they are applied to the body. Empty: the body is not coded.
    std::vector<std::unique_ptr<ContentDecoder>> decoders{};
    /// Whether every named coding is supported.
    bool isKnown = true;
};

/// Makes the decoders for the value of a Content-Encoding.
Decoding decodingFor(std::string_view contentEncoding);

}  // namespace VanticRestKit::detail
