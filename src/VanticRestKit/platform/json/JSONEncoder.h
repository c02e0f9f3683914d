#pragma once

/// \file
/// `JSONEncoder`: encodes a value as the bytes of a JSON document.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/json/EncodingError.h>
#include <VanticRestKit/platform/json/RawText.h>
#include <VanticRestKit/platform/result/Result.h>
#include <VanticRestKit/Visibility.h>

#include <concepts>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit {

/// Writes the members of one JSON object, in the order of the calls. Duplicate keys are not detected: write each key
/// once.
///
/// The first value that JSON cannot represent makes the encoding fail; whatever is written after it is discarded.
class VRK_EXPORT JSONObjectWriter {
public:
    /// Writes a string.
    void write(std::string_view key, std::string_view text);
    /// Writes a string.
    void write(std::string_view key, const std::string& text) { write(key, std::string_view(text)); }
    /// Writes a string.
    void write(std::string_view key, const char* text) { write(key, std::string_view(text)); }
    /// Writes a boolean.
    void write(std::string_view key, bool truth);
    /// Writes a number; the encoding fails if it is not finite.
    void write(std::string_view key, double number);
    /// Writes an integer.
    void write(std::string_view key, std::int64_t number);
    /// Writes an integer.
    void write(std::string_view key, std::uint64_t number);
    /// Writes an array of strings.
    void write(std::string_view key, const std::vector<std::string>& texts);
    /// Writes the raw text of an enumeration case.
    template <RawEnumeration E>
    void write(std::string_view key, E value) {
        write(key, rawValue(value));
    }

    /// Writes the member only if it has a value.
    template <class T>
    void writeIfPresent(std::string_view key, const std::optional<T>& value) {
        if (value) write(key, *value);
    }

    /// Writes a nested object, whose members `fill` writes.
    template <std::invocable<JSONObjectWriter&> Fill>
    void object(std::string_view key, Fill fill) {
        beginMember(key);
        JSONObjectWriter inner(text_, fault_);
        fill(inner);
        inner.end();
    }

private:
    friend class JSONEncoder;

    JSONObjectWriter(std::string& text, std::optional<EncodingError>& fault);
    void beginMember(std::string_view key);
    void end();
    void quote(std::string_view key, std::string_view text);

    std::string& text_;
    std::optional<EncodingError>& fault_;
    bool isFirst_ = true;
};

/// Encodes values as JSON documents, without whitespace, and with `/` escaped as `\/`. It has no settings. Thread-safe.
class VRK_EXPORT JSONEncoder {
public:
    /// Encodes a value that offers `void encode(JSONObjectWriter&) const`, as an object.
    ///
    /// Errors: an `EncodingError` if a number is not finite or a string is not UTF-8.
    template <class T>
    requires requires(const T& value, JSONObjectWriter& writer) { value.encode(writer); }
    Result<Data, Error> encode(const T& value) const {
        std::string text;
        std::optional<EncodingError> fault;
        JSONObjectWriter writer(text, fault);
        value.encode(writer);
        writer.end();
        if (fault) return Failure(Error(*std::move(fault)));
        return Data(std::move(text));
    }

    /// Encodes a case of an enumeration as its raw text. Never fails.
    template <RawEnumeration E>
    Result<Data, Error> encode(E value) const {
        return document(rawValue(value));
    }

private:
    /// A document that is a single string.
    static Data document(std::string_view text);
};

}  // namespace VanticRestKit
