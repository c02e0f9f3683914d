#pragma once

/// \file
/// A store whose file a test damages or locks.

#include <platform/http/cache/disk/DiskStore.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace VanticRestKit::test {

class DiskFaults : public DiskStore {
protected:
    /// Creates a file with twenty records and closes it.
    void prepare() {
        open();
        for (int i = 0; i < 20; ++i) store_->write(recordOf(std::to_string(i), "v", 1, 20'000));
        close();
        ASSERT_THAT(reports_.codes(), testing::IsEmpty());
    }

    static std::string read(const std::string& path) {
        std::ifstream in(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    static void put(const std::string& path, const std::string& bytes) {
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }

    /// Flips one bit at the position of `bytes` in the file.
    void flipBitOf(const std::string& bytes) const {
        std::string content = read(file());
        const std::size_t at = content.find(bytes);
        ASSERT_NE(at, std::string::npos);
        content[at] = static_cast<char>(content[at] ^ 4);
        put(file(), content);
    }

    /// Runs SQL on the file like another program would.
    void execute(const char* statements) const {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(file().c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, statements, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }

    /// Returns how many of the twenty records are found. Fails if one of them is not intact.
    int countIntact() {
        int count = 0;
        for (int i = 0; i < 20; ++i) {
            for (const auto& record : recordsOf(*store_, std::to_string(i))) {
                EXPECT_NE(versionOf(record), 0U) << i;
                ++count;
            }
        }
        return count;
    }

    void expectItWorks() {
        write("after", "body");
        EXPECT_EQ(bodyIn(*store_, "after"), "body");
    }
};

}  // namespace VanticRestKit::test
