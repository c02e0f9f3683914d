#pragma once

/// \file
/// `KeyTable`: finds the row of a key with one multiplication and one comparison.

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace VanticRestKit::mapping {

/// A perfect hash over the keys of one object: the constructor searches for a seed with which no two keys share a
/// bucket.
class KeyTable {
public:
    static constexpr std::uint8_t none = 0xFF;

    KeyTable() = default;
    /// The keys must all differ; at most 254.
    explicit KeyTable(std::vector<std::string_view> keys);

    /// The index of `key` among the keys, or `none`. Eight bytes at `key.data()` must be readable, as they are in every
    /// `Data` and every `std::string`.
    std::uint8_t find(std::string_view key) const noexcept {
        const std::uint8_t place = candidateIndex(key);
        return place != none && keys_[place] == key ? place : none;
    }

    /// The only index that `key` can have, or `none`; the caller must compare the key.
    std::uint8_t candidateIndex(std::string_view key) const noexcept {
        return buckets_[bucket(hashesWholeKeys_ ? wholeSignature(key) : signature(key))];
    }

private:
    // A mask for the first `count` of the eight bytes of a number in memory; `count` is at most eight.
    static std::uint64_t maskOfFirst(std::size_t count) noexcept {
        if constexpr (std::endian::native == std::endian::little) {
            return (std::uint64_t{1} << 4 * count << 4 * count) - 1;
        } else {
            return ~((std::uint64_t{1} << 4 * (8 - count) << 4 * (8 - count)) - 1);
        }
    }

    // The first and last eight bytes and the length distinguish the keys of most objects. Branch-free, because key
    // lengths are unpredictable.
    static std::uint64_t signature(std::string_view key) noexcept {
        const std::size_t ends = key.size() < 8 ? key.size() : 8;
        const std::uint64_t mask = maskOfFirst(ends);
        std::uint64_t first = 0;
        std::uint64_t last = 0;
        std::memcpy(&first, key.data(), 8);
        std::memcpy(&last, key.data() + key.size() - ends, 8);
        first &= mask;
        last &= mask;
        return first ^ (last << 29 | last >> 35) ^ (key.size() * 0x9E3779B97F4A7C15U);
    }

    // For objects with keys that have the same ends and the same length.
    static std::uint64_t wholeSignature(std::string_view key) noexcept {
        std::uint64_t hash = 0xCBF29CE484222325U;
        for (const char c : key) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
        return hash;
    }

    std::size_t bucket(std::uint64_t signature) const noexcept {
        return static_cast<std::size_t>((signature * seed_) >> shift_);
    }

    std::uint64_t seed_ = 1;
    unsigned shift_ = 63;
    bool hashesWholeKeys_ = false;
    std::vector<std::uint8_t> buckets_ = {none, none};
    std::vector<std::string_view> keys_;
};

}  // namespace VanticRestKit::mapping
