#pragma once

/// \file
/// `ContentDecoder`: undoes one content coding of a body.

#include <cstddef>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// The codings that a session asks for, as the value of Accept-Encoding.
inline constexpr std::string_view acceptedCodings = "gzip, deflate, br";

/// Undoes one coding, piece by piece. Unlike the transport's own decoding it knows whether the end came, and it writes
/// no more at a time than it is asked for, however much its input expands to.
class ContentDecoder {
public:
    ContentDecoder() = default;
    ContentDecoder(const ContentDecoder&) = delete;
    ContentDecoder& operator=(const ContentDecoder&) = delete;
    virtual ~ContentDecoder();

    /// Decodes the beginning of `coded` into the `size` bytes at `plain`, takes off `coded` what it has used, and returns
    /// how many bytes it has written. Fewer than `size`: it has used all of `coded`, and there is no more to write for
    /// it. `size`: there may be more, also if `coded` is empty now. Empty: the coding is broken, or there was no memory.
    /// What follows the end of the coding is dropped.
    ///
    /// A decoder that `hasMore` afterwards has handed what it was given to another thread. As long as that thread
    /// `isWorking`, `decode` writes nothing; after that there is more.
    virtual std::optional<std::size_t> decode(std::string_view& coded, char* plain, std::size_t size) = 0;

    virtual bool hasMore() const { return false; }
    virtual bool isWorking() const { return false; }

    /// Whether `decode` could not because there was no memory for its own state.
    bool isOutOfMemory() const noexcept { return isOutOfMemory_; }

    /// Whether the coding, checksum included, came to its end.
    virtual bool hasEnded() const = 0;

protected:
    bool isOutOfMemory_ = false;
};

/// How many codings one body may have; no server has a good reason for so many.
inline constexpr std::size_t maxCodings = 4;

/// What a Content-Encoding asks for.
struct Decoding {
    /// In the order in which they are to be applied to the body. Empty: the body is plain.
    std::vector<std::unique_ptr<ContentDecoder>> decoders{};
    /// Whether every coding named is known here.
    bool isKnown = true;
};

/// The decoders for the value of a Content-Encoding.
Decoding decodingFor(std::string_view contentEncoding);

}  // namespace VanticRestKit::detail
