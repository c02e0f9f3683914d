#include <platform/http/cache/disk/DiskStore.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>
#include <support/Sanitized.h>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <csignal>
#include <random>

using namespace VanticRestKit;
using namespace VanticRestKit::test;
using testing::IsEmpty;

extern char** environ;

namespace {

#ifdef VRK_IS_SANITIZED
constexpr int kills = 40;
constexpr int roundsOfEach = 20;
#else
constexpr int kills = 200;
constexpr int roundsOfEach = 100;
#endif

/// A process that writes records.
class Writer {
public:
    explicit Writer(const std::string& folder, int seed, int rounds = 0) {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) std::abort();
        output_ = ends[0];
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], 1);
        std::string arguments[] = {VRK_DISK_CACHE_WRITER, folder, std::to_string(seed),
                                   std::to_string(rounds)};
        char* pointers[] = {arguments[0].data(), arguments[1].data(), arguments[2].data(),
                            rounds > 0 ? arguments[3].data() : nullptr, nullptr};
        EXPECT_EQ(posix_spawn(&pid_, VRK_DISK_CACHE_WRITER, &actions, nullptr, pointers, environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        ::close(ends[1]);
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    ~Writer() {
        if (pid_ > 0) kill();
        ::close(output_);
    }

    /// Waits until it has written its first records.
    [[nodiscard]] bool hasBegun() const {
        pollfd readable{output_, POLLIN, 0};
        return poll(&readable, 1, 30'000) == 1 && (readable.revents & POLLIN) != 0;
    }

    /// Kills it. Returns the last round that it reported as written, or 0.
    unsigned kill() {
        ::kill(pid_, SIGKILL);
        end();
        std::string said;
        char buffer[4096];
        for (ssize_t size = 0; (size = ::read(output_, buffer, sizeof buffer)) > 0;) {
            said.append(buffer, static_cast<std::size_t>(size));
        }
        // The pipe holds the whole output, a few bytes per round.
        unsigned last = 0;
        std::size_t start = 0;
        for (std::size_t line = said.find('\n'); line != std::string::npos; line = said.find('\n', start)) {
            last = static_cast<unsigned>(std::stoul(said.substr(start, line - start)));
            start = line + 1;
        }
        return last;
    }

    /// Waits for its end. Returns the exit code, or -1.
    int end() {
        int status = -1;
        waitpid(std::exchange(pid_, 0), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t pid_ = 0;
    int output_ = -1;
};

class DiskCacheProcesses : public DiskStore {
protected:
    /// The version of the only record of `key`, 0 if there is none. Fails if the record is not intact.
    unsigned versionIn(const std::string& key) {
        const auto records = recordsOf(*store_, key);
        EXPECT_LE(records.size(), 1U);
        if (records.empty()) return 0;
        const unsigned version = versionOf(records.front());
        EXPECT_NE(version, 0U) << key << " is not intact, or its head belongs to another version";
        return version;
    }
    int countIntact() {
        int count = 0;
        for (int i = 0; i < 40; ++i) count += versionIn("record " + std::to_string(i)) != 0 ? 1 : 0;
        return count;
    }

    /// The result of SQLite's integrity check.
    std::string integrity() const {
        sqlite3* database = nullptr;
        std::string found;
        sqlite3_open(file().c_str(), &database);
        sqlite3_exec(
            database, "PRAGMA integrity_check",
            [](void* to, int, char** values, char**) {
                *static_cast<std::string*>(to) += values[0];
                return 0;
            },
            &found, nullptr);
        sqlite3_close(database);
        return found;
    }
};

}  // namespace

TEST_F(DiskCacheProcesses, AWriterKilledAtAnyTimeLeavesOnlyIntactRecords) {
    std::mt19937 random(20'240'611);
    int found = 0;
    int killedEarly = 0;
    for (int round = 0; round < kills; ++round) {
        SCOPED_TRACE(round);
        if (round % 20 == 0) std::filesystem::remove_all(folder());
        Writer writer(folder(), round);
        // Every fourth is killed while it starts and opens or creates the file.
        if (round % 4 != 0) {
            ASSERT_TRUE(writer.hasBegun());
        }
        usleep(static_cast<useconds_t>(random() % 20'000));
        const unsigned written = writer.kill();
        killedEarly += written == 0 ? 1 : 0;
        open(1'000'000);
        found += countIntact();
        // Everything reported as written must be present, the next round may be.
        const unsigned mark = versionIn("mark");
        if (written > 0) {
            EXPECT_TRUE(mark == written || mark == written + 1) << mark << " after " << written;
        }
        close();
        ASSERT_THAT(reports_.codes(), IsEmpty()) << "the file was not damaged";
        if (testing::Test::HasFailure()) break;
    }
    EXPECT_EQ(integrity(), "ok");
    EXPECT_GT(found, kills * 5);
    EXPECT_LT(killedEarly, kills / 2);
    std::cout << kills << " writers were killed, " << killedEarly
              << " before their first records were written; " << found << " records were found, all whole\n";
}

TEST_F(DiskCacheProcesses, FourProcessesWriteToOneFolderAtOnce) {
    {
        Writer one(folder(), 1, roundsOfEach);
        Writer two(folder(), 2, roundsOfEach);
        Writer three(folder(), 3, roundsOfEach);
        Writer four(folder(), 4, roundsOfEach);
        for (Writer* writer : {&one, &two, &three, &four}) EXPECT_EQ(writer->end(), 0);
    }
    open(1'000'000);
    EXPECT_GT(countIntact(), 0);
    EXPECT_EQ(versionIn("mark"), static_cast<unsigned>(roundsOfEach));
    close();
    EXPECT_EQ(integrity(), "ok");
    EXPECT_THAT(reports_.codes(), IsEmpty());
}

TEST_F(DiskCacheProcesses, ARecordOfOneProcessIsFoundByAnother) {
    open(1'000'000);
    EXPECT_EQ(versionIn("mark"), 0U);
    Writer other(folder(), 5, 3);
    EXPECT_EQ(other.end(), 0);
    EXPECT_EQ(versionIn("mark"), 3U);
    EXPECT_GT(countIntact(), 0);
    EXPECT_THAT(reports_.codes(), IsEmpty());
}

TEST_F(DiskCacheProcesses, AStoreContinuesWithANewFileAfterAnotherProcessRemovedTheOld) {
    open(1'000'000);
    write("mine", "body");
    store_->flush();
    std::filesystem::remove(file());
    std::filesystem::remove(file() + "-wal");
    std::filesystem::remove(file() + "-shm");
    Writer other(folder(), 6, 3);
    EXPECT_EQ(other.end(), 0);
    EXPECT_EQ(versionIn("mark"), 3U);
    write("mine", "again");
    EXPECT_EQ(bodyIn(*store_, "mine"), "again");
    close();
    EXPECT_EQ(integrity(), "ok");
    EXPECT_THAT(reports_.codes(), IsEmpty());
}
