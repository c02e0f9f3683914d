// Writes records to a store until it is killed:
//
//   disk_cache_writer FOLDER SEED [ROUNDS]
//
// Prints the number of each round after it is written. With ROUNDS it ends after that many, with exit code 1 if
// anything was reported.

#include <VanticRestKit/platform/http/cache/detail/DiskCacheStore.h>

#include <platform/http/cache/disk/DiskRecords.h>

#include <unistd.h>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::test;

namespace {

constexpr unsigned keys = 40;

/// The writes of one process: a few records, heads and removals per round, and then a mark that ends the round.
class Writer {
public:
    Writer(detail::CacheStore& store, unsigned seed) : store_(store), state_(seed) {}

    void write(unsigned round) {
        for (unsigned i = 0; i < 6; ++i) writeSome(round * 10 + i);
        // The head belongs to the last version that this process has written.
        if (next(3) == 0) {
            store_.writeHead({lastKey_, "v", Data(headOf(lastKey_, "v", lastVersion_, round)),
                              Data(bodyOf(lastKey_, "v", lastVersion_, lastSize_))});
        }
        if (next(20) == 0) store_.remove(key());
        if (next(50) == 0) store_.removeAll("record 1");
        store_.write(recordOf("mark", "v", round, 10));
        store_.flush();
    }

private:
    void writeSome(unsigned version) {
        // Mostly a few pages, sometimes more than the page cache holds.
        const std::size_t size = next(40) == 0 ? 300'000 : next(20'000);
        lastKey_ = key();
        lastVersion_ = version;
        lastSize_ = size;
        store_.write(recordOf(lastKey_, "v", version, size));
    }
    std::string key() { return "record " + std::to_string(next(keys)); }
    unsigned next(unsigned below) {
        state_ = state_ * 1664525U + 1013904223U;
        return (state_ >> 8U) % below;
    }

    detail::CacheStore& store_;
    unsigned state_;
    std::string lastKey_{};
    unsigned lastVersion_ = 0;
    std::size_t lastSize_ = 0;
};

}  // namespace

int main(int count, char** arguments) {
    if (count < 3) return 2;
    const auto seed = static_cast<unsigned>(std::strtoul(arguments[2], nullptr, 10));
    const auto rounds =
        count > 3 ? static_cast<unsigned>(std::strtoul(arguments[3], nullptr, 10)) : 1'000'000U;
    std::atomic<bool> isReported = false;
    {
        const auto store =
            detail::openDiskCacheStore(arguments[1], 1'000'000, [&isReported](const Error& error) {
                std::fprintf(stderr, "%s\n", error.localizedDescription().c_str());
                isReported = true;
            });
        Writer writer(*store, seed * 2654435761U + 1);
        for (unsigned round = 1; round <= rounds; ++round) {
            writer.write(round);
            const std::string line = std::to_string(round) + "\n";
            if (write(1, line.data(), line.size()) < 0) return 3;
        }
        store->flush();
    }
    return isReported ? 1 : 0;
}
