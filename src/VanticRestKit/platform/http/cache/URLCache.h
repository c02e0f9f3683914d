#pragma once

/// \file
/// `URLCache`: caches HTTP responses for sessions.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>
#include <VanticRestKit/platform/http/URLRequest.h>
#include <VanticRestKit/Visibility.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit {

namespace detail {
class CacheCore;
struct CacheAccess;
}  // namespace detail

/// A cached response.
struct CachedURLResponse {
    /// Its status and headers.
    std::shared_ptr<const HTTPURLResponse> response{};
    /// Its body.
    Data data{};
};

/// A private HTTP cache (RFC 9111) for one or more sessions. Thread-safe.
///
/// A response is used only for requests whose Authorization and Cookie are the same as those of its own request; a
/// missing header matches only a missing one. The responses in memory are limited to a capacity; the least recently
/// used are removed first. In a child made by `fork`, a cache of the parent is empty and stays empty.
class VRK_EXPORT URLCache {
public:
    /// In bytes: 16 MB.
    static constexpr std::size_t defaultMemoryCapacity = 16 * 1024 * 1024;

    /// Makes a cache in memory for `memoryCapacity` bytes.
    static std::shared_ptr<URLCache> make(std::size_t memoryCapacity = defaultMemoryCapacity);

    /// The arguments of `makeOnDisk`.
    struct DiskArguments {
        /// The folder. It and its parents are created when the first response is written, accessible only by the user.
        std::string folder{};
        /// The maximum size of the file in it, in bytes.
        std::uint64_t diskCapacity = 0;
        /// The maximum size of the responses in memory, in bytes.
        std::size_t memoryCapacity = defaultMemoryCapacity;
        /// Receives errors of the domain `DiskCacheErrorDomain`, on a thread of the cache. May be empty.
        UniqueFunction<void(const Error&)> report{};
    };
    /// Makes a cache that also stores responses in a file, which later processes can use and several processes can
    /// share. If the library was built without SQLite, `report` gets `DiskCacheErrorCode::unsupported` and responses
    /// are kept only in memory. The session's thread never waits for the disk, and a load for which the disk takes
    /// longer than a second goes to the server.
    static std::shared_ptr<URLCache> makeOnDisk(DiskArguments arguments);

    /// The default cache of sessions: in memory, with the default capacity. It is made on first use and lives as long
    /// as the process. A child made by `fork` has its own.
    static const std::shared_ptr<URLCache>& shared();

    ~URLCache();
    URLCache(const URLCache&) = delete;
    URLCache& operator=(const URLCache&) = delete;

    /// The capacity in memory, in bytes. A single response may take half of it.
    std::size_t memoryCapacity() const;
    /// Sets the capacity in memory; responses that exceed it are removed at once.
    void setMemoryCapacity(std::size_t bytes);
    /// How many bytes the responses in memory take, including their headers and the cache's own overhead.
    std::size_t currentMemoryUsage() const;

    /// How many bytes the responses on disk take; 0 without a disk cache.
    std::uint64_t currentDiskUsage() const;
    /// Blocks until everything stored so far is on disk. Call it before the process ends.
    void flush();

    /// How many requests got a stored response, including those that the server confirmed as unchanged.
    std::uint64_t hits() const;
    /// How many requests that could use the cache got no stored response.
    std::uint64_t misses() const;

    /// The response in memory that matches the request, whether fresh or not; empty if there is none. Does not count as
    /// a hit.
    std::optional<CachedURLResponse> cachedResponse(const URLRequest& forRequest) const;
    /// Removes all responses for the URL of the request and for its Authorization and Cookie.
    void removeCachedResponse(const URLRequest& forRequest);
    /// Removes the responses to all requests with this value of Authorization.
    void removeCachedResponses(std::string_view forAuthorization);
    /// Removes all responses.
    void removeAllCachedResponses();

private:
    friend struct detail::CacheAccess;

    explicit URLCache(std::shared_ptr<detail::CacheCore> core);

    const std::shared_ptr<detail::CacheCore> core_;
};

}  // namespace VanticRestKit
