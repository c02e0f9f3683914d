#include <VanticRestKit/platform/http/cache/disk/detail/CacheFolder.h>

#include <gtest/gtest.h>
#include <platform/http/cache/disk/DiskStore.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <fstream>

using namespace VanticRestKit::test;
using VanticRestKit::detail::CacheFolder;

namespace fs = std::filesystem;

TEST(CacheFolder, IgnoresSlashesAtItsEnd) {
    EXPECT_EQ(CacheFolder("/a/b///").file(), "/a/b/cache.sqlite");
    EXPECT_EQ(CacheFolder("/a/b").file(), "/a/b/cache.sqlite");
}

TEST(CacheFolder, CannotBeMadeWithoutAName) { EXPECT_EQ(CacheFolder("").make(), ENOENT); }

TEST(CacheFolder, IsMadeWithItsParentsAndAnEmptyFile) {
    const TemporaryFolder temporary;
    const CacheFolder folder(temporary.at("a/b/c"));
    EXPECT_FALSE(folder.identity().isThere);
    EXPECT_EQ(folder.make(), 0);
    EXPECT_TRUE(folder.identity().isRegular);
    EXPECT_EQ(fs::file_size(folder.file()), 0U);
    std::ofstream(folder.file()) << "content";
    EXPECT_EQ(folder.make(), 0);
    EXPECT_EQ(fs::file_size(folder.file()), 7U) << "an existing file is kept";
}

TEST(CacheFolder, CannotBeMadeBelowAFile) {
    const TemporaryFolder temporary;
    std::ofstream(temporary.at("a")) << "content";
    EXPECT_EQ(CacheFolder(temporary.at("a")).make(), ENOTDIR);
    EXPECT_EQ(CacheFolder(temporary.at("a/b")).make(), ENOTDIR);
    EXPECT_EQ(CacheFolder(temporary.at("a/b/c")).make(), ENOTDIR);
}

TEST(CacheFolder, KnowsAnotherFileOfTheSameName) {
    const TemporaryFolder temporary;
    const CacheFolder folder(temporary.at("a"));
    ASSERT_EQ(folder.make(), 0);
    const auto first = folder.identity();
    EXPECT_EQ(folder.identity(), first);
    ASSERT_EQ(folder.setAside(".damaged", false), 0);
    EXPECT_NE(folder.identity(), first);
    ASSERT_EQ(folder.make(), 0);
    EXPECT_NE(folder.identity(), first);
}

TEST(CacheFolder, CannotSetAsideAMissingFile) {
    const TemporaryFolder temporary;
    EXPECT_EQ(CacheFolder(temporary.at("a")).setAside(".damaged", false), ENOENT);
}

TEST(CacheFolder, SetsTheLogAsideWithTheFile) {
    const TemporaryFolder temporary;
    const CacheFolder folder(temporary.at("a"));
    ASSERT_EQ(folder.make(), 0);
    std::ofstream(folder.file() + "-wal") << "log";
    ASSERT_EQ(folder.setAside(".damaged", false), 0);
    EXPECT_TRUE(fs::exists(folder.file() + ".damaged-wal"));
    EXPECT_FALSE(fs::exists(folder.file() + "-wal"));
    // The log of a file that was set aside earlier does not belong to the next one.
    ASSERT_EQ(folder.make(), 0);
    ASSERT_EQ(folder.setAside(".damaged", false), 0);
    EXPECT_FALSE(fs::exists(folder.file() + ".damaged-wal"));
}

TEST(CacheFolder, RestrictsOnlyRegularFiles) {
    const TemporaryFolder temporary;
    const CacheFolder folder(temporary.at("a"));
    ASSERT_EQ(folder.make(), 0);
    fs::create_directory(folder.file() + "-wal");
    const auto before = fs::status(folder.file() + "-wal").permissions();
    fs::permissions(folder.file(), fs::perms::all);
    folder.restrictModes();
    EXPECT_EQ(fs::status(folder.file()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_EQ(fs::status(folder.file() + "-wal").permissions(), before);
}

TEST(CacheFolder, ContinuesWithoutALockThatItCannotGet) {
    const TemporaryFolder temporary;
    const CacheFolder missing(temporary.at("missing"));
    { const CacheFolder::Lock lock(missing, std::chrono::hours(1)); }
    EXPECT_FALSE(fs::exists(temporary.at("missing")));
    const CacheFolder folder(temporary.at("a"));
    ASSERT_EQ(folder.make(), 0);
    const CacheFolder::Lock first(folder, std::chrono::hours(1));
    const CacheFolder::Lock second(folder, std::chrono::milliseconds(1));
}

TEST(CacheFolder, CanBeLockedAgainAfterTheLockEnds) {
    const TemporaryFolder temporary;
    const CacheFolder folder(temporary.at("a"));
    ASSERT_EQ(folder.make(), 0);
    { const CacheFolder::Lock lock(folder, std::chrono::hours(1)); }
    // Would take an hour.
    const CacheFolder::Lock again(folder, std::chrono::hours(1));
}
