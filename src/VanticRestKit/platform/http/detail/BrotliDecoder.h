#pragma once

/// \file
/// Decodes the content coding `br`.

#include <VanticRestKit/platform/http/detail/ContentDecoder.h>

#include <memory>

namespace VanticRestKit::detail {

/// A decoder of one `br` body.
std::unique_ptr<ContentDecoder> makeBrotliDecoder();

}  // namespace VanticRestKit::detail
