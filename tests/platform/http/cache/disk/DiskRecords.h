#pragma once

/// \file
/// Records whose content shows whether they are intact.

#include <VanticRestKit/platform/http/cache/detail/CacheStore.h>

#include <cstdint>
#include <string>

namespace VanticRestKit::test {

/// The body of a version of a record. It begins with a description from which the rest is generated.
inline std::string bodyOf(const std::string& key, const std::string& variant, unsigned version,
                          std::size_t size) {
    std::string body = key + "/" + variant + "/" + std::to_string(version) + "/" + std::to_string(size) + "/";
    std::uint32_t state = 2166136261U;
    for (const char c : body) state = (state ^ static_cast<unsigned char>(c)) * 16777619U;
    body.reserve(body.size() + size);
    for (std::size_t i = 0; i < size; ++i) {
        state = state * 1664525U + 1013904223U;
        body.push_back(static_cast<char>(state >> 24U));
    }
    return body;
}

/// The head of a version after `renewals` renewals.
inline std::string headOf(const std::string& key, const std::string& variant, unsigned version,
                          unsigned renewals) {
    return key + "/" + variant + "/" + std::to_string(version) + "/" + std::to_string(renewals);
}

inline detail::CacheRecord recordOf(const std::string& key, const std::string& variant, unsigned version,
                                    std::size_t size) {
    return {key, variant, Data(headOf(key, variant, version, 0)), Data(bodyOf(key, variant, version, size))};
}

/// The version of a record, or 0 if the record is not intact or its head belongs to another version.
inline unsigned versionOf(const detail::CacheRecord& record) {
    const std::string start = record.key + "/" + record.variant + "/";
    const std::string body(record.body.view());
    if (body.compare(0, start.size(), start) != 0) return 0;
    std::size_t position = start.size();
    const auto number = [&body, &position] {
        std::size_t value = 0;
        for (; position < body.size() && body[position] != '/'; ++position) {
            value = value * 10 + static_cast<std::size_t>(body[position] - '0');
        }
        ++position;
        return value;
    };
    const auto version = static_cast<unsigned>(number());
    const std::size_t size = number();
    if (size > body.size() || body != bodyOf(record.key, record.variant, version, size)) return 0;
    const std::string head = start + std::to_string(version) + "/";
    return record.head.view().substr(0, head.size()) == head ? version : 0;
}

}  // namespace VanticRestKit::test
