#include <VanticRestKit/platform/http/cache/detail/StoredResponse.h>

#include <VanticRestKit/platform/date/detail/HTTPDate.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>

#include <algorithm>
#include <array>
#include <utility>

namespace VanticRestKit::detail {

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

/// Whether the field is connection-specific. Checking the first letter rules out most names.
bool isConnectionSpecific(std::string_view name) {
    const auto is = [name](std::string_view known) { return sameHeaderName(name, known); };
    switch (name.empty() ? ' ' : asciiLower(name.front())) {
        case 'c': return is("connection");
        case 'k': return is("keep-alive");
        case 'p':
            return is("proxy-authenticate") || is("proxy-authentication-info") || is("proxy-authorization") ||
                   is("proxy-connection");
        case 't': return is("te") || is("transfer-encoding");
        case 'u': return is("upgrade");
        default: return false;
    }
}

// These describe the body of the stored response, which an update does not contain.
constexpr std::array<std::string_view, 3> bodyFields{"content-length", "content-encoding", "content-range"};

// The memory that a map takes for one field, apart from long strings.
constexpr std::size_t nodeCost = 4 * sizeof(void*) + sizeof(HeaderFields::value_type) + 16;
constexpr milliseconds maxEstimate = std::chrono::hours(24);

template <std::size_t count>
bool isOneOf(const std::array<std::string_view, count>& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(),
                       [name](std::string_view known) { return sameHeaderName(name, known); });
}

seconds wholeSeconds(CacheTime time) { return std::chrono::floor<seconds>(time.wall); }

/// The field of that name. Tries the exact spelling first, which usually matches.
HeaderFields::iterator fieldNamed(HeaderFields& fields, const std::string& name) {
    const auto exact = fields.find(name);
    return exact != fields.end() ? exact : findHeader(fields, name);
}

/// The fields that the Connection field of `fields` lists.
std::vector<std::string_view> namedByConnection(const HeaderFields& fields) {
    const auto found = findHeader(fields, "connection");
    return found == fields.end() ? std::vector<std::string_view>() : listMembers(found->second);
}

bool isAmong(const std::vector<std::string_view>& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(),
                       [name](std::string_view each) { return sameHeaderName(each, name); });
}

void removeConnectionFields(HeaderFields& fields) {
    const bool hasAny = std::any_of(fields.begin(), fields.end(),
                                    [](const auto& field) { return isConnectionSpecific(field.first); });
    if (!hasAny) return;
    std::string listed;
    if (const auto found = findHeader(fields, "connection"); found != fields.end()) listed = found->second;
    const std::vector<std::string_view> named = listMembers(listed);
    std::erase_if(fields, [&named](const auto& field) {
        return isConnectionSpecific(field.first) || isAmong(named, field.first);
    });
}

std::size_t textCost(const std::string& text) {
    constexpr std::size_t inPlace = 15;
    return text.capacity() > inPlace ? text.capacity() + 1 + sizeof(void*) : 0;
}

}  // namespace

StoredResponse::StoredResponse(ResponseParts parts) : parts_(std::move(parts)) {
    removeConnectionFields(parts_.fields);
    known_ = knownFieldsOf(parts_.fields);
    const seconds received = wholeSeconds(parts_.received);
    if (known_.date.empty()) {
        const auto present = findHeader(parts_.fields, "date");
        auto& date = present != parts_.fields.end() ? present->second : parts_.fields["Date"];
        known_.date = date = formatHTTPDate(received);
        made_ = received;
    } else {
        made_ = parseHTTPDate(known_.date, received).value_or(received);
    }
    if (!known_.lastModified.empty()) modified_ = parseHTTPDate(known_.lastModified, received);
    control_ = CacheControl::parse(known_.cacheControl);
    lifetime_ = computeLifetime();
    initialAge_ = computeInitialAge();
}

StoredResponse::KnownFields StoredResponse::knownFieldsOf(const HeaderFields& fields) {
    KnownFields known;
    for (const auto& [name, value] : fields) {
        const auto is = [&field = name](std::string_view other) { return sameHeaderName(field, other); };
        switch (name.empty() ? ' ' : asciiLower(name.front())) {
            case 'a':
                if (is("age")) known.age = value;
                break;
            case 'c':
                if (is("cache-control")) known.cacheControl = value;
                break;
            case 'd':
                if (is("date")) known.date = value;
                break;
            case 'e':
                if (is("etag")) known.etag = value;
                if (is("expires")) {
                    known.expires = value;
                    known.hasExpires = true;
                }
                break;
            case 'l':
                if (is("last-modified")) known.lastModified = value;
                break;
            default: break;
        }
    }
    return known;
}

std::string_view StoredResponse::field(std::string_view name) const {
    const auto found = findHeader(parts_.fields, name);
    return found == parts_.fields.end() ? std::string_view() : std::string_view(found->second);
}

milliseconds StoredResponse::computeLifetime() const {
    if (control_.maxAge) return *control_.maxAge;
    if (known_.hasExpires) {
        // "0" and any other value that is not a date means a time in the past.
        const auto expires = parseHTTPDate(known_.expires, wholeSeconds(parts_.received));
        return expires ? *expires - made_ : seconds(0);
    }
    if (!isHeuristicallyCacheable(parts_.status) && !control_.isPublic) return milliseconds(0);
    if (!modified_) return milliseconds(0);
    return std::clamp<milliseconds>(milliseconds(made_ - *modified_) / 10, milliseconds(0), maxEstimate);
}

milliseconds StoredResponse::computeInitialAge() const {
    // A Date has no fractions of a second, so compare whole seconds.
    const milliseconds apparent =
        std::max<milliseconds>(wholeSeconds(parts_.received) - made_, milliseconds(0));
    // The first member of a list is used.
    const std::string_view age = known_.age.substr(0, known_.age.find(','));
    const auto declared = parseDeltaSeconds(trimmed(age)).value_or(seconds(0));
    const milliseconds delay = std::max(parts_.received.steady - parts_.requested.steady, milliseconds(0));
    return std::max<milliseconds>(apparent, declared + delay);
}

milliseconds StoredResponse::age(CacheTime now) const {
    const milliseconds wall = now.wall - parts_.received.wall;
    const milliseconds steady = now.steady - parts_.received.steady;
    // The steady clock stops while the device sleeps, and the wall clock may be set back. A response of an earlier
    // process has no steady time: if it seems to come from the future, its age is unknown.
    const bool isKnown = parts_.received.steady != milliseconds(0);
    if (!isKnown && wall < milliseconds(0)) return milliseconds(maxDeltaSeconds);
    return initialAge_ + std::max({wall, isKnown ? steady : milliseconds(0), milliseconds(0)});
}

std::size_t StoredResponse::cost() const {
    // Including the reference counts of this object and of its body.
    std::size_t cost = sizeof(StoredResponse) + 4 * sizeof(void*) + textCost(parts_.variant);
    for (const auto& [name, value] : parts_.fields) cost += nodeCost + textCost(name) + textCost(value);
    for (const std::string& name : control_.noCacheFields) cost += sizeof(std::string) + textCost(name);
    if (!parts_.body.empty()) cost += parts_.body.size() + Data::padding + 8 * sizeof(void*);
    return cost;
}

bool isHeuristicallyCacheable(std::int64_t status) {
    constexpr std::array<std::int64_t, 11> statuses{200, 203, 204, 300, 301, 308, 404, 405, 410, 414, 501};
    return std::find(statuses.begin(), statuses.end(), status) != statuses.end();
}

StoredPointer updated(const StoredResponse& stored, const HeaderFields& fresh, CacheTime requested,
                      CacheTime received) {
    ResponseParts parts = stored.parts();
    parts.requested = requested;
    parts.received = received;
    // These refer to when a message was made; the update has its own.
    std::erase_if(parts.fields, [](const auto& field) {
        return sameHeaderName(field.first, "age") || sameHeaderName(field.first, "date");
    });
    const std::vector<std::string_view> named = namedByConnection(fresh);
    for (const auto& [name, value] : fresh) {
        if (isConnectionSpecific(name) || isOneOf(bodyFields, name) || isAmong(named, name)) continue;
        if (const auto present = fieldNamed(parts.fields, name); present != parts.fields.end()) {
            present->second = value;
        } else {
            parts.fields.emplace(name, value);
        }
    }
    return std::make_shared<const StoredResponse>(std::move(parts));
}

}  // namespace VanticRestKit::detail
