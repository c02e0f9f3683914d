#pragma once

/// \file
/// `RawText`, a body as text, and how the body of an answer becomes a value.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>
#include <VanticRestKit/platform/result/Result.h>

#include <optional>
#include <string>
#include <type_traits>
#include <utility>

namespace VanticRestKit {

/// A body as it came, byte for byte: what `Resource<RawText>` loads. A `Resource<std::string>` reads a JSON string.
struct RawText {
    std::string text{};

    friend bool operator==(const RawText&, const RawText&) = default;
};

namespace detail {

/// Reads a body into a value: `Data` and `RawText` take it as it came, all else is decoded.
struct BodyReader {
    JSONDecoder decoder{};

    template <class T>
    Result<T, Error> decode(const Data& body) const {
        if constexpr (std::is_same_v<T, Data> || std::is_same_v<T, std::optional<Data>>) {
            return T(body);
        } else if constexpr (std::is_same_v<T, RawText> || std::is_same_v<T, std::optional<RawText>>) {
            return T(RawText{std::string(body.view())});
        } else {
            return decoder.template decode<T>(body);
        }
    }
};

}  // namespace detail
}  // namespace VanticRestKit
