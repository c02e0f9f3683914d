#include <gtest/gtest.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/error/ErrorCategory.h>

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

#include "support/Vectors.h"

namespace VanticRestKit {
namespace {

/// The minimum that a host's own error must provide.
struct HostError {
    std::int64_t place{};

    static const ErrorTag& errorTag() {
        static const ErrorTag tag;
        return tag;
    }
    std::string errorDomain() const { return "Host.HostError"; }
    std::int64_t errorCode() const { return place; }
};

struct ErrorWithCategory : HostError {
    ErrorCategory errorCategory() const { return ErrorCategory::forbidden; }
};

/// Another host error type with the same members.
struct OtherHostError {
    std::int64_t place{};

    static const ErrorTag& errorTag() {
        static const ErrorTag tag;
        return tag;
    }
    std::string errorDomain() const { return "Host.HostError"; }
    std::int64_t errorCode() const { return place; }
};

struct ErrorWithUserInfo : HostError {
    Dictionary values{};

    static const ErrorTag& errorTag() {
        static const ErrorTag tag;
        return tag;
    }
    Dictionary errorUserInfo() const { return values; }
};

struct ErrorWithItsOwnDescription : ErrorWithUserInfo {
    static const ErrorTag& errorTag() {
        static const ErrorTag tag;
        return tag;
    }
    std::string generalDescription() const { return "own text"; }
};

struct NoError {};

TEST(ComposedErrorDescription, MatchesEveryVector) {
    for (const auto& line : test::vectors("error_text.jsonl")) {
        const auto domain = line.at("in").at("domain").get<std::string>();
        const auto code = line.at("in").at("code").get<std::int64_t>();
        const auto sentence = line.at("out").get<std::string>();
        EXPECT_EQ(composedErrorDescription(domain, code), sentence);
        EXPECT_EQ(Error(NSError(domain, code)).localizedDescription(), sentence);
    }
}

TEST(ComposedErrorDescription, SupportsEveryCode) {
    EXPECT_EQ(composedErrorDescription("", std::numeric_limits<std::int64_t>::min()),
              "The operation couldn\u2019t be completed. ( error -9223372036854775808.)");
}

TEST(Error, HasTheDomainCodeAndDescriptionOfAHostError) {
    const Error error = HostError{3};
    EXPECT_EQ(error.domain(), "Host.HostError");
    EXPECT_EQ(error.code(), 3);
    EXPECT_TRUE(error.userInfo().empty());
    EXPECT_EQ(error.localizedDescription(),
              "The operation couldn\u2019t be completed. (Host.HostError error 3.)");
}

TEST(Error, ReturnsTheConcreteError) {
    const Error error = HostError{3};
    ASSERT_NE(error.as<HostError>(), nullptr);
    EXPECT_EQ(error.as<HostError>()->place, 3);
}

TEST(Error, ReturnsNoOtherTypeThanTheConcreteOne) {
    const Error error = HostError{3};
    EXPECT_EQ(error.as<OtherHostError>(), nullptr);
    EXPECT_EQ(error.as<NSError>(), nullptr);
    EXPECT_EQ(Error(ErrorWithUserInfo{}).as<HostError>(), nullptr);
    EXPECT_EQ(Error(NSError("D", 1)).as<HostError>(), nullptr);
}

TEST(Error, CopiesShareTheConcreteError) {
    const Error error = HostError{3};
    const Error copy = error;
    EXPECT_EQ(copy.as<HostError>(), error.as<HostError>());
    EXPECT_EQ(copy, error);
    EXPECT_FALSE(Error(HostError{3}) == error);
}

TEST(Error, OutlivesTheOriginalHandle) {
    Error error = HostError{3};
    const Error copy = error;
    error = HostError{4};
    EXPECT_EQ(copy.code(), 3);
    EXPECT_EQ(error.code(), 4);
}

TEST(Error, UsesTheDescriptionInItsUserInformation) {
    const ErrorWithUserInfo error{{3}, {{"NSLocalizedDescription", "told"}}};
    EXPECT_EQ(Error(error).localizedDescription(), "told");
    EXPECT_EQ(*Error(error).userInfo().at("NSLocalizedDescription").text(), "told");
}

TEST(Error, AcceptsAnEmptyDescriptionInItsUserInformation) {
    const ErrorWithUserInfo error{{3}, {{"NSLocalizedDescription", ""}}};
    EXPECT_EQ(Error(error).localizedDescription(), "");
}

TEST(Error, ComposesItsDescriptionIfTheEntryIsNotAString) {
    const ErrorWithUserInfo error{{3}, {{"NSLocalizedDescription", 5}}};
    EXPECT_EQ(Error(error).localizedDescription(), composedErrorDescription("Host.HostError", 3));
}

TEST(Error, PrefersTheDescriptionOfItsTypeToItsUserInformation) {
    ErrorWithItsOwnDescription error;
    error.values = {{"NSLocalizedDescription", "told"}};
    EXPECT_EQ(Error(error).localizedDescription(), "own text");
}

TEST(Error, CanContainAnotherError) {
    const Error cause = HostError{9};
    const Error error = NSError("D", 1, {{std::string(NSUnderlyingErrorKey), cause}});
    const Dictionary userInfo = error.userInfo();
    const Error* const found = userInfo.at("NSUnderlyingError").error();
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(*found, cause);
    EXPECT_EQ(found->as<HostError>()->place, 9);
}

TEST(Error, ReturnsTheUnderlyingErrorOfAnNSErrorAsItsCause) {
    const Error cause = HostError{9};
    const Error error = NSError("D", 1, {{std::string(NSUnderlyingErrorKey), cause}});
    EXPECT_EQ(error.underlyingError(), cause);
    EXPECT_FALSE(Error(NSError("D", 1, {{std::string(NSUnderlyingErrorKey), "text"}})).underlyingError());
    EXPECT_FALSE(cause.underlyingError());
}

TEST(Error, HasACategoryOnlyIfItsTypeStatesOne) {
    EXPECT_FALSE(Error(HostError{9}).errorCategory());
    EXPECT_EQ(Error(ErrorWithCategory{}).errorCategory(), ErrorCategory::forbidden);
    EXPECT_STREQ(nameOf(ErrorCategory::forbidden), "forbidden");
}

TEST(Error, CanOnlyBeConstructedFromErrorTypes) {
    static_assert(std::is_convertible_v<HostError, Error>);
    static_assert(!std::is_constructible_v<Error, NoError>);
    static_assert(!std::is_constructible_v<Error, const char*>);
    static_assert(!std::is_default_constructible_v<Error>);
}

}  // namespace
}  // namespace VanticRestKit
