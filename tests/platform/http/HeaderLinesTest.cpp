// A separate program, since it replaces a function of libcurl.

#include <VanticRestKit/platform/http/curl/detail/HeaderLines.h>

#include <gtest/gtest.h>

#include <curl/curl.h>
#include <dlfcn.h>

namespace {

/// The number of lines that libcurl can still append. Then it has no memory left.
int linesLeft = 0;

}  // namespace

extern "C" curl_slist* curl_slist_append(curl_slist* list, const char* line) {
    static auto* const real =
        reinterpret_cast<curl_slist* (*)(curl_slist*, const char*)>(dlsym(RTLD_NEXT, "curl_slist_append"));
    return linesLeft-- == 0 ? nullptr : real(list, line);
}

namespace VanticRestKit::detail {

namespace {

class HeaderLinesTest : public testing::Test {
protected:
    HeaderLinesTest() : request(*URL::make("http://host.test/")) {
        request.setValue("Bearer t", "Authorization");
    }

    static constexpr int allLines = 3;
    URLRequest request;
};

TEST_F(HeaderLinesTest, ContainTheHeadersOfTheRequestAndTheSession) {
    linesLeft = allLines;
    const HeaderLines lines = headerLinesOf(request);
    ASSERT_NE(lines, nullptr);
    EXPECT_STREQ(lines->data, "Authorization: Bearer t");
    EXPECT_EQ(linesLeft, 0) << "every line counts";
}

TEST_F(HeaderLinesTest, AreNullIfMemoryRunsOutAtAnyLine) {
    for (int line = 0; line < allLines; ++line) {
        linesLeft = line;
        EXPECT_EQ(headerLinesOf(request), nullptr) << line;
    }
}

TEST_F(HeaderLinesTest, AreBuiltAgainAfterMemoryRanOut) {
    HeaderLinesMemo memo;
    linesLeft = 0;
    EXPECT_EQ(memo.of(request, ""), nullptr);
    linesLeft = allLines;
    EXPECT_NE(memo.of(request, ""), nullptr);
}

}  // namespace

}  // namespace VanticRestKit::detail
