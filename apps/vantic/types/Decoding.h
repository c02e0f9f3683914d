#pragma once

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/DecodingError.h>
#include <VanticRestKit/platform/json/ValueText.h>
#include <VanticRestKit/platform/result/Result.h>

#include <string>

#include "types/Type.h"

namespace vantic {

/// Why and where decoding a document failed.
struct DecodeFailure {
    VanticRestKit::Error error;
    /// The coding path of a decoding error, or the path of the entity of another type.
    VanticRestKit::CodingPath path;
};

/// Decodes a document and returns the value as JSON.
VanticRestKit::Result<std::string, DecodeFailure> decode(const Type& type,
                                                         const VanticRestKit::Data& document,
                                                         VanticRestKit::ValueLayout layout);

/// {"error":{"kind":K,"path":[...],"message":"..."}}, with `addition` appended to the message.
std::string errorText(const DecodeFailure& failure, const std::string& addition = {});

/// ["items",0,"href"]
std::string pathText(const VanticRestKit::CodingPath& path);

}  // namespace vantic
