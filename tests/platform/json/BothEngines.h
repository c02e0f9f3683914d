#pragma once

/// \file
/// Decodes with both engines and checks that they agree.

#include <platform/json/Decoding.h>
#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::test {

/// The outcome of decoding a document. Fails the current test if the engines differ.
Outcome outcomeOf(const DecodableType& type, std::string_view json);

/// The value, or nothing and the error. Fails the current test if the engines differ.
template <class T>
std::optional<T> decoded(std::string_view json, std::optional<Error>* error = nullptr) {
    const Outcome outcome = outcomeOf(decodable<T>, json);
    Result<T, Error> result = JSONDecoder().decode<T>(Data(json));
    EXPECT_EQ(result.has_value(), outcome.failure.empty()) << json;
    if (result) return *std::move(result);
    if (error != nullptr) *error = result.error();
    return std::nullopt;
}

/// "typeMismatch [\"a\",0]", or the description of an entity's own error, or "" if the document decodes.
template <class T>
std::string failureOf(std::string_view json) {
    return outcomeOf(decodable<T>, json).failure;
}

/// The value as compact JSON with its declared field names, or the failure.
template <class T>
std::string shown(std::string_view json) {
    const Outcome outcome = outcomeOf(decodable<T>, json);
    return outcome.failure.empty() ? outcome.value : outcome.failure;
}

}  // namespace VanticRestKit::test
