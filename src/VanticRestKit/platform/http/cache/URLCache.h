#pragma once

/// \file
/// `URLCache`: keeps answers of HTTP for sessions.

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

/// An answer that a cache holds.
struct CachedURLResponse {
    /// Its head.
    std::shared_ptr<const HTTPURLResponse> response{};
    /// Its body.
    Data data{};
};

/// A private cache of HTTP (RFC 9111), for one or several sessions. Any thread may call.
///
/// An answer is used only for requests with the same Authorization and the same Cookie, or without them if its own
/// request had none. What the answers take in memory stays below a capacity; those used least recently go first. In a
/// child made by `fork` a cache of the parent is empty and stays so.
class VRK_EXPORT URLCache {
public:
    /// In bytes: 16 MB.
    static constexpr std::size_t defaultMemoryCapacity = 16 * 1024 * 1024;

    /// A cache in memory, for `memoryCapacity` bytes.
    static std::shared_ptr<URLCache> make(std::size_t memoryCapacity = defaultMemoryCapacity);

    /// The arguments of `makeOnDisk`.
    struct DiskArguments {
        /// Made with the first answer that is written, and the folders above it, for the user alone.
        std::string folder{};
        /// The bytes that the file in it may take.
        std::uint64_t diskCapacity = 0;
        /// The bytes that answers may take in memory.
        std::size_t memoryCapacity = defaultMemoryCapacity;
        /// Gets the faults of the disk, of the domain `DiskCacheErrorDomain`, on a thread of the cache's. May be empty.
        UniqueFunction<void(const Error&)> report{};
    };
    /// A cache that keeps answers in a file as well, for later processes, and for others at the same time. If the
    /// library was built without SQLite, `report` gets `DiskCacheErrorCode::unsupported` and it keeps them in memory
    /// only. No disk keeps a session's thread waiting, and a
    /// load that the disk keeps waiting for a second goes to the server.
    static std::shared_ptr<URLCache> makeOnDisk(DiskArguments arguments);

    /// The cache that sessions use if their configuration names no other: in memory, of the default capacity. It is
    /// made on first use and lives as long as the process. A child made by `fork` has one of its own.
    static const std::shared_ptr<URLCache>& shared();

    ~URLCache();
    URLCache(const URLCache&) = delete;
    URLCache& operator=(const URLCache&) = delete;

    /// How many bytes the answers in memory may take. A single answer may take half of it.
    std::size_t memoryCapacity() const;
    /// Sets the capacity; answers that are too many for it go at once.
    void setMemoryCapacity(std::size_t bytes);
    /// How many bytes the answers in memory take, with their header fields and what the cache itself needs for them.
    std::size_t currentMemoryUsage() const;

    /// How many bytes the answers on disk take; 0 without a disk.
    std::uint64_t currentDiskUsage() const;
    /// Blocks until everything is on disk that was stored until now: for the end of a process.
    void flush();

    /// How many requests were answered by a stored answer, those included that the server had said are unchanged.
    std::uint64_t hits() const;
    /// How many requests that asked the cache were answered by the server, or by nothing.
    std::uint64_t misses() const;

    /// The answer in memory that fits `request`, whether it is fresh or not; empty if there is none. It is not counted
    /// as a hit.
    std::optional<CachedURLResponse> cachedResponse(const URLRequest& forRequest) const;
    /// Removes all answers to the URL of `request` for a request with its Authorization and Cookie.
    void removeCachedResponse(const URLRequest& forRequest);
    /// Removes the answers to all requests that bore this value of Authorization.
    void removeCachedResponses(std::string_view forAuthorization);
    /// Removes everything. Any thread.
    void removeAllCachedResponses();

private:
    friend struct detail::CacheAccess;

    explicit URLCache(std::shared_ptr<detail::CacheCore> core);

    const std::shared_ptr<detail::CacheCore> core_;
};

}  // namespace VanticRestKit
