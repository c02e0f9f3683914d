#pragma once

/// \file
/// `StoredResponse`: a response as a cache stores it.

#include <VanticRestKit/platform/data/Data.h>
#include <VanticRestKit/platform/http/cache/detail/CacheClock.h>
#include <VanticRestKit/platform/http/cache/detail/CacheControl.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace VanticRestKit::detail {

using HeaderFields = HTTPURLResponse::HeaderFields;

/// The parts of a response that a cache stores, and when it was received.
struct ResponseParts {
    std::int64_t status = 0;
    HeaderFields fields{};
    /// Decoded.
    Data body{};
    /// Whether its body was not read, such as that of a redirect which was followed.
    bool lacksBody = false;
    /// When the request was sent, and when the headers of the response had arrived.
    CacheTime requested{};
    CacheTime received{};
    /// The values of the request's fields that it depends on; see `variantOf`.
    std::string variant{};
};

/// A response that a cache stores. Immutable, so that it can be used without the cache's lock. Its freshness is
/// computed once, from its fields.
class StoredResponse {
public:
    /// Stores `parts` without the connection-specific fields, and adds a Date if there is none.
    explicit StoredResponse(ResponseParts parts);
    StoredResponse(const StoredResponse&) = delete;
    StoredResponse& operator=(const StoredResponse&) = delete;

    std::int64_t status() const noexcept { return parts_.status; }
    const HeaderFields& fields() const noexcept { return parts_.fields; }
    const Data& body() const noexcept { return parts_.body; }
    const std::string& variant() const noexcept { return parts_.variant; }
    const ResponseParts& parts() const noexcept { return parts_; }
    const CacheControl& control() const noexcept { return control_; }

    /// The value of a field; empty if there is none.
    std::string_view field(std::string_view name) const;

    /// The ETag, and the Last-Modified if it is a date; empty if there is none.
    std::string_view etag() const noexcept { return known_.etag; }
    std::string_view lastModified() const noexcept {
        return modified_ ? known_.lastModified : std::string_view();
    }
    bool hasValidator() const noexcept { return !etag().empty() || !lastModified().empty(); }
    /// Whether the response has an Expires or a max-age.
    bool declaresLifetime() const noexcept { return control_.maxAge || !known_.expires.empty(); }

    /// The freshness lifetime, from the time at which it was made. Zero or less: never fresh.
    std::chrono::milliseconds lifetime() const noexcept { return lifetime_; }
    /// Its age, as far as it is known.
    std::chrono::milliseconds age(CacheTime now) const;

    /// The bytes of memory that it takes, including its body and the overhead of its containers.
    std::size_t cost() const;

private:
    /// The values of the fields that a cache reads, found in one pass. Missing ones are empty.
    struct KnownFields {
        std::string_view age{};
        std::string_view cacheControl{};
        std::string_view date{};
        std::string_view etag{};
        std::string_view expires{};
        std::string_view lastModified{};
        bool hasExpires = false;
    };

    static KnownFields knownFieldsOf(const HeaderFields& fields);
    std::chrono::milliseconds computeLifetime() const;
    std::chrono::milliseconds computeInitialAge() const;

    ResponseParts parts_;
    KnownFields known_;
    CacheControl control_;
    /// The times of Date and Last-Modified; the time of receipt if Date cannot be parsed.
    std::chrono::seconds made_{};
    std::optional<std::chrono::seconds> modified_;
    std::chrono::milliseconds lifetime_{};
    std::chrono::milliseconds initialAge_{};
};

using StoredPointer = std::shared_ptr<const StoredResponse>;

/// Whether a response with this status may be stored for an estimated time.
bool isHeuristicallyCacheable(std::int64_t status);

/// `stored` updated with the fields `fresh` of a response that confirmed it. Fields that describe the received body are
/// not changed.
StoredPointer updated(const StoredResponse& stored, const HeaderFields& fresh, CacheTime requested,
                      CacheTime received);

}  // namespace VanticRestKit::detail
