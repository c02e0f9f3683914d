#pragma once

/// \file
/// Decodes with both engines and sees to it that they agree.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/json/detail/DiagnosingEngine.h>
#include <VanticRestKit/platform/json/detail/FastEngine.h>
#include <VanticRestKit/platform/json/JSONDecoder.h>

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::test {

/// The value, or nothing and the error. Fails the running test where the engines differ.
template <class T>
std::optional<T> decoded(std::string_view json, std::optional<Error>* error = nullptr) {
    const Data document(json);
    T fast{};
    const bool fastDecoded = json::FastEngine(document).decode(planOf<T>(), &fast);
    T slow{};
    const Diagnosis diagnosis =
        json::DiagnosingEngine(document, json::DiagnosingEngine::Report::everything).run(planOf<T>(), &slow);
    EXPECT_EQ(fastDecoded, !diagnosis.error.has_value()) << "the engines differ on " << json;
    if (error != nullptr) *error = diagnosis.error;
    if (diagnosis.error) return std::nullopt;
    if constexpr (requires { fast == slow; }) {
        EXPECT_TRUE(fast == slow) << "the engines read different values from " << json;
    }
    return fast;
}

/// "typeMismatch [\"a\",0]", or "" where the document decodes.
template <class T>
std::string failureOf(std::string_view json) {
    std::optional<Error> error;
    (void)decoded<T>(json, &error);
    if (!error) return "";
    const DecodingError* fault = error->as<DecodingError>();
    if (fault == nullptr) return error->localizedDescription();
    std::string text = nameOf(fault->kind());
    text += " [";
    const char* separator = "";
    for (const CodingKey& step : fault->codingPath()) {
        text += separator;
        text += step.key() != nullptr ? '"' + *step.key() + '"' : std::to_string(*step.index());
        separator = ",";
    }
    return text + "]";
}

}  // namespace VanticRestKit::test
