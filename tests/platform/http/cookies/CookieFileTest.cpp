#include <VanticRestKit/platform/http/cookies/detail/CookieFile.h>
#include <VanticRestKit/platform/http/cookies/detail/CookieFileText.h>
#include <VanticRestKit/platform/http/cookies/detail/CookieJar.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using detail::CookieFile;

namespace {

namespace fs = std::filesystem;

class CookieFileTest : public testing::Test {
protected:
    using Codes = std::pair<std::int64_t, std::int64_t>;

    CookieFileTest() {
        std::string pattern = fs::temp_directory_path() / "cookies-XXXXXX";
        folder_ = mkdtemp(pattern.data());
    }
    ~CookieFileTest() override { fs::remove_all(folder_); }

    std::string path(const char* name = "cookies") const { return (folder_ / name).string(); }

    std::vector<std::string> names() const {
        std::vector<std::string> found;
        for (const auto& entry : fs::directory_iterator(folder_)) found.push_back(entry.path().filename());
        return found;
    }

    CookieFile open() const {
        return CookieFile(
            {.path = path(), .onProblem = [problem = problem_, reported = reported_](Error error) {
                 *problem = std::move(error);
                 reported.signal();
             }});
    }

    /// The code of the first problem and that of its cause, 0 if it has none.
    Codes problem() const {
        if (!reported_.wait()) return {};
        const auto userInfo = (*problem_)->userInfo();
        const auto cause = userInfo.find(std::string(NSUnderlyingErrorKey));
        return {(*problem_)->code(), cause == userInfo.end() ? 0 : cause->second.error()->code()};
    }

    /// The description of that problem.
    std::string description() const {
        return reported_.wait() ? (*problem_)->localizedDescription() : "no problem";
    }

    static HTTPCookie cookie(const std::string& name, const std::string& domain = "www.example.org") {
        return {.name = name,
                .value = "1",
                .domain = domain,
                .expiresDate = detail::systemCookieClock() + std::chrono::hours(1)};
    }

private:
    fs::path folder_;
    std::shared_ptr<std::optional<Error>> problem_ = std::make_shared<std::optional<Error>>();
    Event reported_;
};

}  // namespace

TEST_F(CookieFileTest, ReadsWhatItWrites) {
    const std::vector<HTTPCookie> cookies{cookie("a"), cookie("b")};
    open().write(cookies);
    EXPECT_EQ(open().read(), cookies);
    EXPECT_EQ(names(), std::vector<std::string>{"cookies"});
}

TEST_F(CookieFileTest, RemovesItsTemporaryFileIfItCannotBeRenamed) {
    CookieFile file = open();
    EXPECT_TRUE(file.read().empty());
    fs::create_directory(path());
    file.write({cookie("a")});
    EXPECT_EQ(problem(), Codes(512, EISDIR));
    EXPECT_EQ(names(), std::vector<std::string>{"cookies"});
    EXPECT_TRUE(fs::is_directory(path()));
}

TEST_F(CookieFileTest, ReportsWhyADamagedFileCouldNotBeSetAside) {
    std::ofstream(path()) << "not cookies";
    fs::create_directory(path("cookies.damaged"));
    EXPECT_TRUE(open().read().empty());
    EXPECT_EQ(problem(), Codes(259, EISDIR));
    EXPECT_EQ(description(), "The file of the cookies is damaged, but could not be set aside.");
}

TEST_F(CookieFileTest, IsDamagedIfItIsLargerThanAnyFileOfCookies) {
    std::ofstream(path()) << detail::cookieFileText({cookie("a")});
    EXPECT_EQ(open().read().size(), 1U);
    fs::resize_file(path(), 64ULL * 1024 * 1024 + 1);
    EXPECT_TRUE(open().read().empty());
    EXPECT_EQ(problem(), Codes(259, 0));
    EXPECT_EQ(description(), "The file of the cookies is damaged and was set aside.");
    EXPECT_EQ(fs::file_size(path("cookies.damaged")), 64ULL * 1024 * 1024 + 1);
}

TEST_F(CookieFileTest, LosesOnlyTheCookiesThatCannotBeSent) {
    std::ofstream(path()) << detail::cookieFileText({cookie("", "a.test"), cookie("a"), cookie("c", "")});
    const auto storage = HTTPCookieStorage::make({.path = path()});
    ASSERT_EQ(storage->cookies().size(), 1U);
    EXPECT_EQ(storage->cookies()[0].name, "a");
}

TEST_F(CookieFileTest, IsNotNeededToFlush) {
    const auto storage = HTTPCookieStorage::make();
    storage->setCookie(cookie("a"));
    storage->flush();
    EXPECT_EQ(storage->cookies().size(), 1U);
    EXPECT_TRUE(names().empty());
}
