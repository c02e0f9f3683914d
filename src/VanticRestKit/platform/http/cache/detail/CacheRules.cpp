#include <VanticRestKit/platform/http/cache/detail/CacheRules.h>

#include <VanticRestKit/platform/http/detail/HeaderName.h>

namespace VanticRestKit::detail {

namespace {

using std::chrono::milliseconds;

// The statuses that this cache understands: those that are cacheable by default, and some redirects.
bool isUnderstood(std::int64_t status) {
    return isHeuristicallyCacheable(status) || status == 302 || status == 303 || status == 307;
}

/// Whether `passed` is within `duration`; the maximum duration never ends.
bool isWithin(milliseconds passed, std::optional<std::chrono::seconds> duration) {
    return duration && (*duration >= maxDeltaSeconds || passed <= milliseconds(*duration));
}

}  // namespace

bool mayStore(const CacheRequest& request, const StoredResponse& response) {
    const CacheControl& control = response.control();
    const std::int64_t status = response.status();
    // Partial responses and 304 are not complete responses.
    if (!request.isStorable() || status < 200 || status == 206 || status == 304) return false;
    if (!request.range.empty() && status != 200) return false;
    if (control.mustUnderstand) {
        if (!isUnderstood(status)) return false;
    } else if (control.noStore) {
        return false;
    }
    return control.isPublic || control.isPrivate || response.declaresLifetime() ||
           isHeuristicallyCacheable(status);
}

bool isWorthStoring(const StoredResponse& response) {
    return response.lifetime() > milliseconds(0) || response.hasValidator();
}

Reuse reuseOf(const StoredResponse& stored, const CacheRequest& request, CacheTime now) {
    const CacheControl& wanted = request.control;
    const CacheControl& control = stored.control();
    if (control.noCache || wanted.noCache) return Reuse::validate;
    const milliseconds age = stored.age(now);
    // A max-age of zero requires validation even within the second in which the response was made.
    if (wanted.maxAge && (age > *wanted.maxAge || wanted.maxAge->count() == 0)) return Reuse::validate;
    const milliseconds left = stored.lifetime() - age;
    if (wanted.minFresh && left < *wanted.minFresh) return Reuse::validate;
    if (left > milliseconds(0)) return Reuse::fresh;
    if (control.mustRevalidate) return Reuse::validate;
    if (isWithin(-left, wanted.maxStale)) return Reuse::stale;
    if (isWithin(-left, control.staleWhileRevalidate)) return Reuse::staleWhileRevalidate;
    return Reuse::validate;
}

bool isFresh(const StoredResponse& stored, CacheTime now) {
    return !stored.control().noCache && stored.age(now) < stored.lifetime();
}

bool isUsableOffline(const StoredResponse& stored, const CacheRequest& request, CacheTime now) {
    const CacheControl& control = stored.control();
    if (control.mustRevalidate || control.noCache || request.control.noCache) return false;
    // The request limits the age itself.
    if (request.control.maxAge || request.control.minFresh) return isUsableOnError(stored, request, now);
    const milliseconds staleness = stored.age(now) - stored.lifetime();
    return (stored.declaresLifetime() && staleness <= stored.lifetime()) ||
           isUsableOnError(stored, request, now);
}

bool isUsableOnError(const StoredResponse& stored, const CacheRequest& request, CacheTime now) {
    const CacheControl& control = stored.control();
    if (control.mustRevalidate || control.noCache) return false;
    const milliseconds staleness = stored.age(now) - stored.lifetime();
    return isWithin(staleness, control.staleIfError) || isWithin(staleness, request.control.staleIfError);
}

}  // namespace VanticRestKit::detail
