#pragma once

/// \file
/// `DecodingError`: why a JSON document did not become a value, and where in the document.

#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/Visibility.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

/// One step on the way from the root of a document to a value in it: a key of an object or a place in an array.
class VRK_EXPORT CodingKey {
public:
    /// A key of an object.
    CodingKey(std::string key);
    /// A key of an object.
    CodingKey(const char* key);
    /// A place in an array, counted from 0.
    CodingKey(std::size_t index) : index_(index) {}

    /// The key, or null where this step is a place in an array.
    const std::string* key() const noexcept { return key_ ? &*key_ : nullptr; }
    /// The place, counted from 0, or null where this step is a key.
    const std::size_t* index() const noexcept { return key_ ? nullptr : &index_; }

    friend bool operator==(const CodingKey&, const CodingKey&) = default;

private:
    std::optional<std::string> key_;
    std::size_t index_ = 0;
};

/// The way from the root of a document to a value in it; empty for the root itself.
using CodingPath = std::vector<CodingKey>;

/// The platform's decoding error. Its general description is the platform's sentence for its kind.
class VRK_EXPORT DecodingError {
public:
    /// What is wrong with the document.
    enum class Kind {
        keyNotFound,    ///< A key that must be there is not.
        valueNotFound,  ///< There is a null where a value must be.
        typeMismatch,   ///< The value is of another JSON type.
        dataCorrupted,  ///< The document is no JSON, or a value cannot be what it must be.
    };

    /// For decoders; a host may make one in a test.
    DecodingError(Kind kind, CodingPath path, std::string debugDescription);

    /// What kind of error it is.
    Kind kind() const noexcept { return kind_; }
    /// Down to the key at fault, the missing key included; empty for a fault of the document's structure.
    const CodingPath& codingPath() const noexcept { return path_; }
    /// What was found and what was expected, for developers.
    const std::string& debugDescription() const noexcept { return debugDescription_; }
    /// The platform's sentence for people.
    std::string localizedDescription() const;

    /// What identifies errors of this type; see `Error`.
    static const ErrorTag& errorTag();
    /// The domain of the error.
    std::string errorDomain() const { return "NSCocoaErrorDomain"; }
    /// The code of the error within its domain.
    std::int64_t errorCode() const;
    /// The description that `Error` gives.
    std::string generalDescription() const { return localizedDescription(); }

    /// Whether both are of one kind.
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
