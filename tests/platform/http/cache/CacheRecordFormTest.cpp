#include "StoredResponses.h"

#include <VanticRestKit/platform/http/cache/detail/CacheRecordForm.h>

#include <gtest/gtest.h>

namespace VanticRestKit::test {

namespace {

using namespace std::chrono_literals;

detail::CacheRecord record() {
    auto parts = partsOf({{"Cache-Control", "max-age=60"}, {"ETag", "\"a\""}}, "the body", 203);
    parts.received = after(2s);
    parts.variant = "accept:a\n";
    return detail::recordOf("key", detail::StoredResponse(parts));
}

TEST(CacheRecordForm, ReadsWhatItWrites) {
    const auto read = detail::responseOf(record());
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->status(), 203);
    EXPECT_EQ(read->body().view(), "the body");
    EXPECT_EQ(read->variant(), "accept:a\n");
    EXPECT_EQ(read->etag(), "\"a\"");
    EXPECT_EQ(read->lifetime(), 60s);
    // The age includes the delay of the response and the time since then by the wall clock.
    EXPECT_EQ(read->age({.wall = receivedAt + 7s, .steady = 1s}), 7s);
}

TEST(CacheRecordForm, KeepsWhetherTheBodyWasRead) {
    for (const bool lacksBody : {false, true}) {
        auto parts = partsOf({{"Location", "/there"}}, "", 301);
        parts.lacksBody = lacksBody;
        const auto read = detail::responseOf(detail::recordOf("key", detail::StoredResponse(parts)));
        ASSERT_NE(read, nullptr);
        EXPECT_EQ(read->parts().lacksBody, lacksBody);
    }
}

TEST(CacheRecordForm, RejectsEveryTruncationAndOtherFormats) {
    const detail::CacheRecord whole = record();
    for (std::size_t size = 0; size < whole.head.size(); ++size) {
        detail::CacheRecord cut = whole;
        cut.head = Data(whole.head.view().substr(0, size));
        EXPECT_EQ(detail::responseOf(cut), nullptr) << size;
    }
    detail::CacheRecord other = whole;
    other.head = Data("VRC9" + std::string(whole.head.view().substr(4)));
    EXPECT_EQ(detail::responseOf(other), nullptr);
    other.head = Data(std::string(whole.head.view()) + "x");
    EXPECT_EQ(detail::responseOf(other), nullptr);
}

TEST(CacheRecordForm, SurvivesEveryChangedByte) {
    const detail::CacheRecord whole = record();
    for (std::size_t i = 0; i < whole.head.size(); ++i) {
        for (const char change : {'\x7f', '\xff', '\0'}) {
            std::string head(whole.head.view());
            head[i] = change;
            detail::CacheRecord damaged = whole;
            damaged.head = Data(std::move(head));
            if (const auto read = detail::responseOf(damaged)) {
                EXPECT_GE(read->status(), 200);
                static_cast<void>(read->age(after(5s)));
            }
        }
    }
}

}  // namespace

}  // namespace VanticRestKit::test
