#include <VanticRestKit/platform/http/URLRequest.h>

#include <gtest/gtest.h>
#include <support/Vectors.h>

#include <algorithm>
#include <cctype>
#include <chrono>

using namespace VanticRestKit;

namespace {

URLRequest request() { return URLRequest(*URL::make("http://host/path")); }

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

}  // namespace

TEST(URLRequest, HasThePlatformsDefaults) {
    const URLRequest made = request();
    EXPECT_EQ(made.url()->absoluteString(), "http://host/path");
    EXPECT_EQ(made.httpMethod(), "GET");
    EXPECT_TRUE(made.allHTTPHeaderFields().empty());
    EXPECT_EQ(made.httpBody(), std::nullopt);
    EXPECT_EQ(made.timeoutInterval(), std::chrono::seconds(60));
    EXPECT_EQ(made.cachePolicy(), URLRequestCachePolicy::useProtocolCachePolicy);
    EXPECT_EQ(made.attribution(), URLRequestAttribution::developer);
    EXPECT_EQ(static_cast<int>(URLRequestCachePolicy::useProtocolCachePolicy), 0);
    EXPECT_EQ(static_cast<int>(URLRequestAttribution::user), 1);
}

TEST(URLRequest, AddedHeadersMatchTheVectors) {
    for (const auto& line : test::vectors("request_headers.jsonl")) {
        URLRequest made = request();
        for (const auto& pair : line["in"]["pairs"]) {
            made.addValue(pair[1].get<std::string>(), pair[0].get<std::string>());
        }
        if (test::isFree(line)) continue;
        std::map<std::string, std::string> fields;
        for (const auto& [name, value] : made.allHTTPHeaderFields()) fields[lowered(name)] = value;
        EXPECT_EQ(fields, line["out"].get<decltype(fields)>()) << line["in"].dump();
    }
}

TEST(URLRequest, AHeaderKeepsItsFirstSpelling) {
    URLRequest made = request();
    made.addValue("1", "X-Name");
    made.addValue("2", "x-nAME");
    ASSERT_EQ(made.allHTTPHeaderFields().size(), 1U);
    EXPECT_EQ(made.allHTTPHeaderFields().begin()->first, "X-Name");
    EXPECT_EQ(made.value("X-NAME"), "1,2");
}

TEST(URLRequest, AHeaderIsSetReplacedAndRemovedByNameInAnyCase) {
    URLRequest made = request();
    made.setValue("1", "X-Name");
    EXPECT_EQ(made.value("x-name"), "1");
    made.setValue("2", "X-NAME");
    EXPECT_EQ(made.allHTTPHeaderFields(), (std::map<std::string, std::string>{{"X-Name", "2"}}));
    made.setValue(std::nullopt, "x-NAME");
    made.setValue(std::nullopt, "x-other");
    EXPECT_TRUE(made.allHTTPHeaderFields().empty());
}

TEST(URLRequest, RemembersTheNameOfAMalformedHeaderUntilItIsSetAgain) {
    URLRequest made = request();
    EXPECT_EQ(made.malformedHeaderField(), std::nullopt);
    made.addValue("good", "Accept");
    made.addValue("a secret\r\n", "Authorization");
    made.setValue("value", "a b");
    EXPECT_EQ(made.malformedHeaderField(), "Authorization");
    EXPECT_NE(made, request());
    made.setValue("good", "authorization");
    EXPECT_EQ(made.malformedHeaderField(), "a b");
    made.setValue(std::nullopt, "A B");
    EXPECT_EQ(made.malformedHeaderField(), std::nullopt);
    made.setValue("bad\n", "X");
    EXPECT_EQ(made.malformedHeaderField(), "X");
    EXPECT_EQ(made.allHTTPHeaderFields().size(), 2U);
}

TEST(URLRequest, AHeaderThatWouldBreakTheMessageIsOmitted) {
    using namespace std::string_view_literals;
    URLRequest made = request();
    for (const auto value : {"a\r\nX: b"sv, "a\nb"sv, "a\rb"sv, "a\0b"sv}) {
        made.addValue(value, "Name");
        made.setValue(value, "Name");
    }
    for (const auto name : {""sv, "a b"sv, "a:"sv, "a\r\nb"sv, "\xC3\xA9"sv, "a\0"sv}) {
        made.addValue("value", name);
        made.setValue("value", name);
    }
    EXPECT_TRUE(made.allHTTPHeaderFields().empty());
}

TEST(URLRequest, SettingAHeaderReplacesItsValuesAndNulloptRemovesIt) {
    URLRequest made = request();
    made.addValue("1", "X");
    made.addValue("2", "x");
    made.setValue("3", "X");
    EXPECT_EQ(made.value("x"), "3");
    made.setValue("", "x");
    EXPECT_EQ(made.value("x"), "") << "an empty string is a value";
    made.setValue(std::nullopt, "x");
    EXPECT_EQ(made.value("X"), std::nullopt);
    EXPECT_TRUE(made.allHTTPHeaderFields().empty());
}

TEST(URLRequest, TheDefaultMethodIsGetEvenWithABody) {
    URLRequest made = request();
    made.setHTTPMethod("POST");
    EXPECT_EQ(made.httpMethod(), "POST");
    made.setHTTPBody(Data("x"));
    made.setHTTPMethod(std::nullopt);
    EXPECT_EQ(made.httpMethod(), "GET");
}

TEST(URLRequest, AnEmptyBodyIsNotAnAbsentBody) {
    URLRequest made = request();
    made.setHTTPBody(Data());
    EXPECT_NE(made, request());
    ASSERT_TRUE(made.httpBody().has_value());
    EXPECT_TRUE(made.httpBody()->empty());
}

TEST(URLRequest, CopiesAreEqualAndIndependent) {
    URLRequest first = request();
    first.addValue("1", "X");
    URLRequest second = first;
    EXPECT_EQ(first, second);
    second.addValue("2", "X");
    EXPECT_NE(first, second);
    EXPECT_EQ(first.value("X"), "1");
}

TEST(URLRequest, HandlesCookiesByDefault) {
    const URLRequest handles(URL("http://example.org/"));
    EXPECT_TRUE(handles.httpShouldHandleCookies());
    URLRequest other = handles;
    other.setHTTPShouldHandleCookies(false);
    EXPECT_FALSE(other.httpShouldHandleCookies());
    EXPECT_NE(handles, other);
}
