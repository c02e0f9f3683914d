#pragma once

/// \file
/// `StoredResponse`: an answer as a cache keeps it.

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

/// The parts of an answer that a cache keeps, and when it came.
struct ResponseParts {
    std::int64_t status = 0;
    HeaderFields fields{};
    /// With its codings undone.
    Data body{};
    /// Whether it had a body that was not looked at, as that of a redirect which is followed.
    bool lacksBody = false;
    /// When the request went out and when the head of the answer was there.
    CacheTime requested{};
    CacheTime received{};
    /// The values of the request that it depends on; see `variantOf`.
    std::string variant{};
};

/// An answer that a cache keeps. Immutable, so that it can be used without the cache's lock. What its freshness
/// depends on is read once.
class StoredResponse {
public:
    /// `parts` without the fields that are for one connection only, and with a Date.
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
    /// Whether the answer has an Expires or a max-age.
    bool declaresLifetime() const noexcept { return control_.maxAge || !known_.expires.empty(); }

    /// How long it may be used without asking the server, from the moment in which it was made. Zero or less: not at
    /// all.
    std::chrono::milliseconds lifetime() const noexcept { return lifetime_; }
    /// How long ago it was made, as far as that is known.
    std::chrono::milliseconds age(CacheTime now) const;

    /// The bytes of memory that it takes, the blocks of its containers and its body included.
    std::size_t cost() const;

private:
    /// The values of the fields that a cache reads, found in one pass. Empty for those that are not there.
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
    /// What Date and Last-Modified say; the time of receipt for a Date that is none.
    std::chrono::seconds made_{};
    std::optional<std::chrono::seconds> modified_;
    std::chrono::milliseconds lifetime_{};
    std::chrono::milliseconds initialAge_{};
};

using StoredPointer = std::shared_ptr<const StoredResponse>;

/// Whether an answer of this status may be kept for a time that the cache estimates.
bool isHeuristicallyCacheable(std::int64_t status);

/// `stored` with the fields of `fresh`, the answer to a question about it that came at `requested` and `received`.
/// What describes the body as it was received stays as it is.
StoredPointer updated(const StoredResponse& stored, const HeaderFields& fresh, CacheTime requested,
                      CacheTime received);

}  // namespace VanticRestKit::detail
