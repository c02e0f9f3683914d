#pragma once

/// \file
/// Decodes the content codings `gzip` and `deflate`.

#include <VanticRestKit/platform/http/detail/ContentDecoder.h>

#include <memory>

namespace VanticRestKit::detail {

/// Makes a decoder of one `gzip` body, which may consist of several gzip members.
std::unique_ptr<ContentDecoder> makeGzipDecoder();

/// Makes a decoder of one `deflate` body, with the zlib header that it should have, or without, as some servers send
/// it.
std::unique_ptr<ContentDecoder> makeDeflateDecoder();

}  // namespace VanticRestKit::detail
