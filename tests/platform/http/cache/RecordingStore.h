#pragma once

/// \file
/// `RecordingStore`: a store of a cache that records its calls and answers reads when the test says so.

#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::test {

/// For one thread.
class RecordingStore final : public detail::CacheStore {
public:
    /// What `currentUsage` returns.
    static constexpr std::uint64_t usage = 5'000'000'000;

    void read(std::string key, Found found) override {
        calls.push_back("read " + key);
        reads_.push_back(std::move(found));
    }
    void write(detail::CacheRecord record) override { calls.push_back("write " + record.key); }
    void writeHead(detail::CacheRecord record) override { calls.push_back("write head " + record.key); }
    void remove(std::string key) override { calls.push_back("remove " + key); }
    void removeAll(std::string prefix) override { calls.push_back("remove all " + prefix); }
    std::uint64_t currentUsage() const override { return usage; }
    void flush() override { calls.emplace_back("flush"); }

    /// Answers all unanswered reads with these records.
    void answer(const std::vector<detail::CacheRecord>& records) {
        for (Found& found : std::exchange(reads_, {})) found(records);
    }

    /// The calls in their order, with the key or prefix.
    std::vector<std::string> calls;

private:
    std::vector<Found> reads_;
};

}  // namespace VanticRestKit::test
