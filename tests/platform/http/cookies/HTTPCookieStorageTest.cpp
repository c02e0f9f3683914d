#include <VanticRestKit/platform/http/cookies/detail/CookieJar.h>
#include <VanticRestKit/platform/http/cookies/HTTPCookieStorage.h>

#include <gtest/gtest.h>
#include <support/Event.h>

#include <sys/stat.h>

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using detail::CookieJar;

namespace {

const URL url{"http://www.example.org/a/b"};

HTTPCookie cookie(const std::string& name) {
    return {.name = name, .value = "1", .domain = "www.example.org"};
}

HTTPCookie persistent(const std::string& name) {
    HTTPCookie made = cookie(name);
    made.expiresDate = detail::systemCookieClock() + std::chrono::hours(1);
    return made;
}

std::string names(const std::vector<HTTPCookie>& cookies) {
    std::string text;
    for (const HTTPCookie& each : cookies) text += each.name + ' ';
    return text;
}

void receive(HTTPCookieStorage& storage, const std::string& line, const URL& from, const URL& mainURL = url) {
    CookieJar::of(storage)->receive({line}, from, mainURL, HTTPCookieAcceptPolicy::always);
}

std::atomic<std::int64_t> movedSeconds = 0;
Date movedClock() { return Date(std::chrono::seconds(movedSeconds.load())); }

/// A folder that is removed after the test.
class Folder {
public:
    Folder() {
        std::string pattern = std::filesystem::temp_directory_path() / "cookies-XXXXXX";
        path_ = mkdtemp(pattern.data());
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string file(const std::string& name = "cookies") const { return path_ + "/" + name; }
    std::size_t count() const {
        return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(path_), {}));
    }

private:
    std::string path_;
};

std::string content(const std::string& path) {
    std::ifstream input(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(input), {}};
}

void put(const std::string& path, const std::string& text) { std::ofstream(path, std::ios::binary) << text; }

/// The codes of the problems that a storage reported for its file.
class Problems {
public:
    HTTPCookieFile of(const std::string& path) const {
        return {.path = path, .onProblem = [state = state_, event = event_](const Error& error) {
                    {
                        const std::lock_guard lock(state->mutex);
                        state->codes += error.domain() + " " + std::to_string(error.code()) + ";";
                    }
                    event.signal();
                }};
    }
    /// Waits for the first one.
    std::string codes() const {
        EXPECT_TRUE(event_.wait());
        return soFar();
    }
    std::string soFar() const {
        const std::lock_guard lock(state_->mutex);
        return state_->codes;
    }

private:
    struct State {
        std::mutex mutex;
        std::string codes;
    };
    std::shared_ptr<State> state_ = std::make_shared<State>();
    Event event_;
};

}  // namespace

TEST(HTTPCookieStorage, ListsSetsAndDeletes) {
    const auto storage = HTTPCookieStorage::make();
    EXPECT_TRUE(storage->cookies().empty());
    EXPECT_TRUE(storage->setCookie(cookie("a")));
    EXPECT_TRUE(storage->setCookie(cookie("b")));
    EXPECT_EQ(names(storage->cookies()), "a b ");
    storage->deleteCookie(cookie("a"));
    EXPECT_EQ(names(storage->cookies()), "b ");
    storage->removeAllCookies();
    EXPECT_TRUE(storage->cookies().empty());
    EXPECT_EQ(CookieJar::of(*storage)->header(url), "");
}

TEST(HTTPCookieStorage, ReturnsTheCookiesForAURL) {
    const auto storage = HTTPCookieStorage::make();
    HTTPCookie deep = cookie("deep");
    deep.path = "/a";
    HTTPCookie other = cookie("other");
    other.domain = "example.com";
    storage->setCookie(cookie("root"));
    storage->setCookie(deep);
    storage->setCookie(other);
    EXPECT_EQ(names(storage->cookies(url)), "deep root ");
    EXPECT_EQ(CookieJar::of(*storage)->header(url), "deep=1; root=1");
}

TEST(HTTPCookieStorage, RejectsACookieThatCannotBeSent) {
    const auto storage = HTTPCookieStorage::make();
    HTTPCookie malformed = cookie("a");
    malformed.value = "x\r\nInjected: 1";
    EXPECT_FALSE(storage->setCookie(malformed));
    malformed = cookie("a");
    malformed.domain = ".co.uk";
    EXPECT_FALSE(storage->setCookie(malformed));
    storage->deleteCookie(malformed);
    EXPECT_TRUE(storage->cookies().empty());
}

TEST(HTTPCookieStorage, DeletesACookieWhoseDomainIsSpelledDifferently) {
    const auto storage = HTTPCookieStorage::make();
    HTTPCookie made = cookie("a");
    made.domain = "Bücher.Example";
    storage->setCookie(made);
    EXPECT_EQ(storage->cookies().front().domain, "xn--bcher-kva.example");
    storage->deleteCookie(made);
    EXPECT_TRUE(storage->cookies().empty());
}

TEST(HTTPCookieStorage, ThePolicyNeverAcceptsNothingAndKeepsExistingCookies) {
    const auto storage = HTTPCookieStorage::make();
    EXPECT_EQ(storage->cookieAcceptPolicy(), HTTPCookieAcceptPolicy::always);
    storage->setCookie(cookie("a"));
    storage->setCookieAcceptPolicy(HTTPCookieAcceptPolicy::never);
    EXPECT_EQ(storage->cookieAcceptPolicy(), HTTPCookieAcceptPolicy::never);
    EXPECT_FALSE(storage->setCookie(cookie("b")));
    receive(*storage, "c=1", url);
    EXPECT_EQ(names(storage->cookies(url)), "a ");
}

TEST(HTTPCookieStorage, ThePolicyOfTheMainDocumentComparesRegisteredDomains) {
    const auto storage = HTTPCookieStorage::make();
    storage->setCookieAcceptPolicy(HTTPCookieAcceptPolicy::onlyFromMainDocumentDomain);
    receive(*storage, "same=1", url);
    receive(*storage, "sibling=1", URL("http://other.example.org/"));
    receive(*storage, "foreign=1", URL("http://example.com/"));
    receive(*storage, "suffix=1", URL("http://a.co.uk/"), URL("http://b.co.uk/"));
    receive(*storage, "address=1", URL("http://10.0.0.1/"), URL("http://10.1.0.1/"));
    EXPECT_EQ(names(storage->cookies()), "same sibling ");
}

TEST(HTTPCookieStorage, AnHttpCookieDoesNotReplaceASecureOne) {
    const auto storage = HTTPCookieStorage::make();
    receive(*storage, "a=safe; secure; path=/", URL("https://www.example.org/"));
    receive(*storage, "a=forged; path=/", URL("http://www.example.org/"));
    receive(*storage, "a=gone; path=/; max-age=0", URL("http://www.example.org/"));
    ASSERT_EQ(storage->cookies().size(), 1U);
    EXPECT_EQ(storage->cookies()[0].value, "safe");
    receive(*storage, "a=new; path=/", URL("https://www.example.org/"));
    EXPECT_EQ(storage->cookies()[0].value, "new");
}

TEST(HTTPCookieStorage, CookiesExpireByTheStoragesClock) {
    movedSeconds = 1000;
    const auto storage = CookieJar::storage(movedClock);
    receive(*storage, "a=1; max-age=10", url);
    movedSeconds = 1009;
    EXPECT_EQ(names(storage->cookies()), "a ");
    EXPECT_EQ(CookieJar::of(*storage)->header(url), "a=1");
    movedSeconds = 1010;
    EXPECT_EQ(names(storage->cookies()), "");
    EXPECT_EQ(CookieJar::of(*storage)->header(url), "");
}

TEST(HTTPCookieStorage, CanBeUsedByManyThreadsAtOnce) {
    const Folder folder;
    const auto storage = HTTPCookieStorage::make({.path = folder.file()});
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([storage, number] {
            for (int i = 0; i < 200; ++i) {
                storage->setCookie(persistent("n" + std::to_string(number) + "-" + std::to_string(i % 10)));
                receive(*storage, "r" + std::to_string(number) + "=1", url);
                static_cast<void>(CookieJar::of(*storage)->header(url));
                static_cast<void>(storage->cookies());
                if (i % 50 == 0) storage->flush();
                if (i % 10 < 7) {
                    storage->deleteCookie(
                        cookie("n" + std::to_string(number) + "-" + std::to_string(i % 10)));
                }
            }
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(storage->cookies().size(), 4U * (3 + 1));
}

TEST(HTTPCookieStorage, LoadsItsPersistentCookiesFromTheFile) {
    const Folder folder;
    const HTTPCookie kept = persistent("kept");
    {
        const auto storage = HTTPCookieStorage::make({.path = folder.file()});
        storage->setCookie(kept);
        storage->setCookie(cookie("session"));
        storage->setCookie(persistent("second"));
        storage->flush();
    }
    const auto again = HTTPCookieStorage::make({.path = folder.file()});
    EXPECT_EQ(names(again->cookies()), "kept second ");
    EXPECT_EQ(again->cookies()[0], kept);
    EXPECT_EQ(folder.count(), 1U);
}

TEST(HTTPCookieStorage, WritesItsFileWithoutAFlush) {
    const Folder folder;
    const auto storage = HTTPCookieStorage::make({.path = folder.file()});
    storage->setCookie(persistent("a"));
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
    while (content(folder.file()).empty() && std::chrono::steady_clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_EQ(names(HTTPCookieStorage::make({.path = folder.file()})->cookies()), "a ");
}

TEST(HTTPCookieStorage, RemovesDeletedCookiesFromTheFile) {
    const Folder folder;
    const auto storage = HTTPCookieStorage::make({.path = folder.file()});
    storage->setCookie(persistent("a"));
    storage->setCookie(persistent("b"));
    storage->flush();
    storage->deleteCookie(persistent("a"));
    storage->flush();
    EXPECT_EQ(names(HTTPCookieStorage::make({.path = folder.file()})->cookies()), "b ");
    storage->removeAllCookies();
    storage->flush();
    EXPECT_EQ(names(HTTPCookieStorage::make({.path = folder.file()})->cookies()), "");
}

TEST(HTTPCookieStorage, WritesNoFileBeforeTheFirstPersistentCookie) {
    const Folder folder;
    const auto storage = HTTPCookieStorage::make({.path = folder.file()});
    storage->setCookie(cookie("session"));
    storage->flush();
    EXPECT_EQ(folder.count(), 0U);
}

TEST(HTTPCookieStorage, TheFileIsForTheUserOnly) {
    const Folder folder;
    const auto storage = HTTPCookieStorage::make({.path = folder.file()});
    storage->setCookie(persistent("a"));
    storage->flush();
    struct stat status {};
    ASSERT_EQ(::stat(folder.file().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST(HTTPCookieStorage, SetsADamagedFileAsideAndReportsIt) {
    const Folder folder;
    put(folder.file(), "not cookies");
    const Problems problems;
    const auto storage = HTTPCookieStorage::make(problems.of(folder.file()));
    EXPECT_TRUE(storage->cookies().empty());
    EXPECT_EQ(problems.codes(), "NSCocoaErrorDomain 259;");
    EXPECT_EQ(content(folder.file("cookies.damaged")), "not cookies");
    storage->setCookie(persistent("a"));
    storage->flush();
    EXPECT_EQ(names(HTTPCookieStorage::make(problems.of(folder.file()))->cookies()), "a ");
    EXPECT_EQ(problems.soFar(), "NSCocoaErrorDomain 259;");
}

TEST(HTTPCookieStorage, DoesNotTouchAFileItCannotRead) {
    const Folder folder;
    std::filesystem::create_directory(folder.file());
    const Problems problems;
    const auto storage = HTTPCookieStorage::make(problems.of(folder.file()));
    EXPECT_EQ(problems.codes(), "NSCocoaErrorDomain 257;");
    storage->setCookie(persistent("a"));
    storage->flush();
    EXPECT_TRUE(std::filesystem::is_directory(folder.file()));
    EXPECT_EQ(folder.count(), 1U);
    EXPECT_EQ(names(storage->cookies()), "a ");
}

TEST(HTTPCookieStorage, ReportsAFailedWriteAndTriesAgain) {
    const Folder folder;
    const Problems problems;
    const std::string inner = folder.file("missing") + "/cookies";
    const auto storage = HTTPCookieStorage::make(problems.of(inner));
    storage->setCookie(persistent("a"));
    storage->flush();
    EXPECT_EQ(problems.codes(), "NSCocoaErrorDomain 512;");
    std::filesystem::create_directory(folder.file("missing"));
    storage->setCookie(persistent("b"));
    storage->flush();
    EXPECT_EQ(names(HTTPCookieStorage::make({.path = inner})->cookies()), "a b ");
}

TEST(HTTPCookieStorage, CanBeFlushedInItsProblemHandler) {
    const Folder folder;
    put(folder.file(), "not cookies");
    const Event flushed;
    std::shared_ptr<HTTPCookieStorage> storage;
    const Event ready;
    storage = HTTPCookieStorage::make(
        {.path = folder.file(), .onProblem = [&storage, &ready, flushed](const Error&) {
             if (!ready.wait()) return;
             storage->flush();
             flushed.signal();
         }});
    ready.signal();
    EXPECT_TRUE(flushed.wait());
}
