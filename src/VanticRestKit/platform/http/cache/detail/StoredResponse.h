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

    std::int64_t status() const noexcept { return parts_.status; }
    const HeaderFields& fields() const noexcept { return parts_.fields; }
    const Data& body() const noexcept { return parts_.body; }
    const std::string& variant() const noexcept { return parts_.variant; }
    const ResponseParts& parts() const noexcept { return parts_; }
    const CacheControl& control() const noexcept { return control_; }

    /// The value of a field; empty if there is none.
    std::string_view field(std::string_view name) const;

    /// The ETag, and the Last-Modified if it is a date; empty if there is none.
    std::string_view etag() const { return field("etag"); }
    std::string_view lastModified() const;
    bool hasValidator() const { return !etag().empty() || !lastModified().empty(); }

    /// How long it may be used without asking the server, from the moment in which it was made. Zero or less: not at
    /// all.
    std::chrono::milliseconds lifetime() const noexcept { return lifetime_; }
    /// How long ago it was made, as far as that is known.
    std::chrono::milliseconds age(CacheTime now) const;

    /// The bytes of memory that it takes, the blocks of its containers and its body included.
    std::size_t cost() const;

private:
    std::chrono::milliseconds computeLifetime() const;
    std::chrono::milliseconds computeInitialAge() const;
    std::optional<std::chrono::seconds> date(std::string_view name) const;

    ResponseParts parts_;
    CacheControl control_;
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
