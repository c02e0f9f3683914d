#pragma once

/// \file
/// `DecodingError`: why a JSON document could not be decoded, and where in the document.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// One step of a coding path: a key of an object, or an index in an array.
class VRK_EXPORT CodingKey {
public:
    /// A key of an object.
    CodingKey(std::string key);
    /// A key of an object.
    CodingKey(const char* key);
    /// An array index, from 0.
    CodingKey(std::size_t index) : index_(index) {}

    /// The key, or null if this step is an array index.
    const std::string* key() const noexcept { return key_ ? &*key_ : nullptr; }
    /// The array index, from 0, or null if this step is a key.
    const std::size_t* index() const noexcept { return key_ ? nullptr : &index_; }

    friend bool operator==(const CodingKey&, const CodingKey&) = default;

private:
    std::optional<std::string> key_;
    std::size_t index_ = 0;
};

/// The path from the root of a document to a value in it; empty for the root itself.
using CodingPath = std::vector<CodingKey>;

/// The platform's decoding error. `generalDescription()` is the platform's message for its kind.
class VRK_EXPORT DecodingError {
public:
    /// What is wrong with the document.
    enum class Kind {
        keyNotFound,    ///< A required key is missing.
        valueNotFound,  ///< Null was found where a value is required.
        typeMismatch,   ///< The value has a different JSON type.
        dataCorrupted,  ///< The document is not JSON, or a value cannot be converted.
    };

    /// Made by decoders; hosts may make one in a test.
    DecodingError(Kind kind, CodingPath path, std::string debugDescription);

    /// What kind of error it is.
    Kind kind() const noexcept { return kind_; }
    /// The path to the value at fault, ending with the missing key if one is missing; empty if the document is
    /// malformed.
    const CodingPath& codingPath() const noexcept { return path_; }
    /// What was found and what was expected, for developers.
    const std::string& debugDescription() const noexcept { return debugDescription_; }
    /// The platform's message for end users.
    std::string localizedDescription() const;

    /// Identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// The domain of the error.
    std::string errorDomain() const { return "NSCocoaErrorDomain"; }
    /// The code of the error within its domain.
    std::int64_t errorCode() const;
    /// The description that `Error` gives.
    std::string generalDescription() const { return localizedDescription(); }

    /// Whether both have the same kind.
    friend bool operator==(const DecodingError& a, const DecodingError& b) noexcept {
        return a.kind_ == b.kind_;
    }

private:
    Kind kind_;
    CodingPath path_;
    std::string debugDescription_;
};

/// "keyNotFound", "valueNotFound", "typeMismatch" or "dataCorrupted".
VRK_EXPORT const char* nameOf(DecodingError::Kind kind) noexcept;

}  // namespace VanticRestKit
