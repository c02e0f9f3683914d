#include <VanticRestKit/platform/http/cache/detail/CacheKey.h>

#include <openssl/evp.h>

#include <array>
#include <atomic>

namespace VanticRestKit::detail {

namespace {

/// The first half of the SHA-256 of `text` in hexadecimal, which is enough to rule out collisions.
std::string digestOf(std::string_view text) {
    if (text.empty()) return "-";
    std::array<unsigned char, EVP_MAX_MD_SIZE> digest{};
    unsigned size = 0;
    if (EVP_Digest(text.data(), text.size(), digest.data(), &size, EVP_sha256(), nullptr) != 1) {
        // A unique value, so that a response stored under it is never found.
        static std::atomic<unsigned> failures = 0;
        return '!' + std::to_string(++failures);
    }
    constexpr std::string_view digits = "0123456789abcdef";
    std::string hex;
    for (std::size_t i = 0; i < size / 2; ++i) {
        hex += digits[digest[i] >> 4U];
        hex += digits[digest[i] & 15U];
    }
    return hex;
}

/// The user and password of a URL's beginning, with the "@", as written. They are sent as an Authorization.
std::string_view userInfoOf(std::string_view beginning) {
    const auto at = beginning.rfind('@');
    if (at == std::string_view::npos) return {};
    const auto authority = beginning.find("://") + 3;
    return beginning.substr(authority, at + 1 - authority);
}

/// The URL part of a key: `origin`, followed by `rest` without the fragment.
std::string cacheUrlOf(std::string_view origin, std::string_view rest) {
    rest = rest.substr(0, rest.find('#'));
    std::string key;
    key.reserve(origin.size() + rest.size() + 1);
    key = origin;
    if (!rest.starts_with('/')) key += '/';
    key += rest;
    return key;
}

}  // namespace

CachePartition::CachePartition(std::string_view authorization, std::string_view cookie)
    : text_(digestOf(authorization) + '.' + digestOf(cookie)) {}

std::string CachePartition::prefixOf(std::string_view authorization) { return digestOf(authorization) + '.'; }

CacheKey CacheKeys::of(const CacheRequest& request, const URL& url) {
    const std::string& origin = origins_.of(url);
    const std::string_view beginning = origins_.beginning();
    const std::string_view userInfo = userInfoOf(beginning);
    const std::string_view authorization = request.authorization.empty() ? userInfo : request.authorization;
    if (authorization_ != authorization || cookie_ != request.cookie) {
        authorization_ = authorization;
        cookie_ = request.cookie;
        partition_ = CachePartition(authorization_, cookie_);
    }
    return {.partition = partition_,
            .url = cacheUrlOf(origin, std::string_view(url.absoluteString()).substr(beginning.size()))};
}

}  // namespace VanticRestKit::detail
