#pragma once

/// \file
/// Types of fields that only the user data service has.

#include <platform/json/FieldRules.h>

#include <string>

namespace VanticRestKit::test {

/// JSON that is not accepted as a number.
inline std::vector<Unfit> noNumbers() {
    return {{"\"7\""},
            {"\"\""},
            {"true"},
            {"false"},
            {"{}"},
            {"[]"},
            {"[7]"},
            {"01", "dataCorrupted"},
            {"1e400", "dataCorrupted"}};
}

/// A signed 64-bit integer.
inline Shape wholeNumber() {
    Shape shape{.empty = "0",
                .fits = {{"-7", "-7"},
                         {"0", "0"},
                         {"1.2e2", "120"},
                         {"9223372036854775807", "9223372036854775807"},
                         {"-9223372036854775808", "-9223372036854775808"}},
                .unfit = noNumbers()};
    for (const char* const json : {"1.5", "9223372036854775808", "-9223372036854775809", "1e20"}) {
        shape.unfit.push_back({json, "dataCorrupted"});
    }
    return shape;
}

/// A date sent as the number of seconds since 1970.
inline Shape secondsSince1970() {
    return {.empty = "\"1970-01-01T00:00:00Z\"",
            .fits = {{"1577934245", "\"2020-01-02T03:04:05Z\""},
                     {"1577934245.25", "\"2020-01-02T03:04:05.25Z\""},
                     {"0", "\"1970-01-01T00:00:00Z\""},
                     {"-1", "\"1969-12-31T23:59:59Z\""},
                     {"1e300", "1e+300"}},
            .unfit = noNumbers()};
}

/// A date in the format of records, with or without a fraction of a second.
inline Shape apiDateText() {
    Shape shape{.empty = "null",
                .fits = {{"\"2020-01-02T03:04:05+0000\"", "\"2020-01-02T03:04:05Z\""},
                         {"\"2020-01-02T03:04:05.678+0000\"", "\"2020-01-02T03:04:05Z\""},
                         {"\"2020-01-02T03:04:05+1000\"", "\"2020-01-01T17:04:05Z\""},
                         {"\"2020-01-02T03:04:05Z\"", "\"2020-01-02T03:04:05Z\""}},
                .unfit = {}};
    for (const char* const json :
         {"1577934245", "true", "{}", "[]", "[\"2020-01-02T03:04:05Z\"]", "\"\"", "\"\\ud800\"",
          "\"2020-01-02 03:04:05\"", "\"2020-01-02 03:04:05+0000\"", "\"2020-01-02T03:04:05\"",
          "\"2020-02-30T03:04:05+0000\"", "\"2020-01-02\"", "\"1577934245\""}) {
        shape.unfit.push_back({json});
    }
    return shape;
}

/// A date in the format of datasets, which does not allow a fraction of a second.
inline Shape isoDateText() {
    Shape shape{.empty = "null",
                .fits = {{"\"2020-01-02T03:04:05Z\"", "\"2020-01-02T03:04:05Z\""},
                         {"\"2020-01-02T03:04:05+10:00\"", "\"2020-01-01T17:04:05Z\""}},
                .unfit = {}};
    for (const char* const json :
         {"1577934245", "true", "{}", "[]", "[\"2020-01-02T03:04:05Z\"]", "\"\"", "\"\\ud800\"",
          "\"2020-01-02T03:04:05.678Z\"", "\"2020-01-02T03:04:05.0Z\"", "\"2020-01-02 03:04:05\"",
          "\"2020-01-02\"", "\"2020-01-02T03:04:05\"", "\"2020-13-02T03:04:05Z\""}) {
        shape.unfit.push_back({json});
    }
    return shape;
}

/// The metadata of a response.
inline Shape metaObject() {
    return objectOf(
        {{R"({"count":3,"data":"$","status_code":200})", R"({"count":3,"data":"$","statusCode":200})"},
         {"{}", R"({"count":null,"data":null,"statusCode":null})"},
         {R"({"count":null,"data":null,"status_code":null,"statusCode":"x"})",
          R"({"count":null,"data":null,"statusCode":null})"}},
        {{R"({"count":"3"})", "typeMismatch", "/count"},
         {R"({"count":-1})", "dataCorrupted", "/count"},
         {R"({"data":7})", "typeMismatch", "/data"},
         {R"({"data":[]})", "typeMismatch", "/data"},
         {R"({"status_code":"200"})", "typeMismatch", "/status_code"},
         {R"({"status_code":200.5})", "dataCorrupted", "/status_code"}});
}

/// A set of tokens, all of them required.
inline Shape authObject() {
    return objectOf(
        {{R"({"access_token":"$","expiry":1577934245.5,"refresh_token":"r","token_type":"t"})",
          R"({"accessToken":"$","expiry":"2020-01-02T03:04:05.5Z","refreshToken":"r","tokenType":"t"})"}},
        {{"{}"},
         {R"({"expiry":1,"refresh_token":"r","token_type":"t"})"},
         {R"({"access_token":"a","refresh_token":"r","token_type":"t"})"},
         {R"({"access_token":"a","expiry":1,"token_type":"t"})"},
         {R"({"access_token":"a","expiry":1,"refresh_token":"r"})"},
         {R"({"access_token":"a","expiry":"1","refresh_token":"r","token_type":"t"})"},
         {R"({"access_token":"a","expiry":null,"refresh_token":"r","token_type":"t"})"},
         {R"({"access_token":7,"expiry":1,"refresh_token":"r","token_type":"t"})"},
         {R"({"accessToken":"a","expiry":1,"refreshToken":"r","tokenType":"t"})"}});
}

}  // namespace VanticRestKit::test
