#pragma once

/// \file
/// `KeyTable`: finds the row of a key by one multiplication and one comparison.

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace VanticRestKit {

/// A perfect hash over the keys of one object: the seed is searched for when the table is made, so that no
/// two keys share a bucket.
class KeyTable {
public:
    static constexpr std::uint8_t none = 0xFF;

    KeyTable() = default;
    /// The keys must differ from each other; fewer than 255.
    explicit KeyTable(std::vector<std::string_view> keys);

    /// The place of `key` among the keys, or `none`. At least 8 bytes before the end of `key`'s buffer or
    /// behind its end must be readable, as in every `Data`.
    std::uint8_t find(std::string_view key) const noexcept {
        const std::uint8_t place = buckets_[bucket(signature(key))];
        return place != none && keys_[place] == key ? place : none;
    }

private:
    // The first and the last eight bytes and the length tell the keys of one object apart.
    static std::uint64_t signature(std::string_view key) noexcept {
        std::uint64_t first = 0;
        std::uint64_t last = 0;
        const std::size_t size = key.size();
        if (size >= 8) {
            std::memcpy(&first, key.data(), 8);
            std::memcpy(&last, key.data() + size - 8, 8);
        } else {
            for (std::size_t i = 0; i < size; ++i) {
                first |= static_cast<std::uint64_t>(static_cast<unsigned char>(key[i])) << (8 * i);
            }
        }
        return first ^ (last << 29 | last >> 35) ^ (size * 0x9E3779B97F4A7C15U);
    }

    std::size_t bucket(std::uint64_t signature) const noexcept {
        return static_cast<std::size_t>((signature * seed_) >> shift_);
    }

    std::uint64_t seed_ = 1;
    unsigned shift_ = 63;
    std::vector<std::uint8_t> buckets_ = {none, none};
    std::vector<std::string_view> keys_;
};

}  // namespace VanticRestKit
