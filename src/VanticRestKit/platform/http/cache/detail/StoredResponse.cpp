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

constexpr std::array<std::string_view, 9> ofOneConnection{"connection",
                                                          "keep-alive",
                                                          "proxy-authenticate",
                                                          "proxy-authentication-info",
                                                          "proxy-authorization",
                                                          "proxy-connection",
                                                          "te",
                                                          "transfer-encoding",
                                                          "upgrade"};

// They describe the body that came with the stored answer, which an update does not bring.
constexpr std::array<std::string_view, 3> ofTheBody{"content-length", "content-encoding", "content-range"};

// What a map takes for one field, apart from long texts.
constexpr std::size_t nodeCost = 4 * sizeof(void*) + sizeof(HeaderFields::value_type) + 16;
constexpr milliseconds longestEstimate = std::chrono::hours(24);

template <std::size_t count>
bool isOneOf(const std::array<std::string_view, count>& names, std::string_view name) {
    return std::any_of(names.begin(), names.end(),
                       [name](std::string_view known) { return sameHeaderName(name, known); });
}

seconds wholeSeconds(CacheTime time) { return std::chrono::floor<seconds>(time.wall); }

void removeFieldsOfOneConnection(HeaderFields& fields) {
    std::string listed;
    if (const auto found = findHeader(fields, "connection"); found != fields.end()) listed = found->second;
    const std::vector<std::string_view> named = listMembers(listed);
    std::erase_if(fields, [&](const auto& field) {
        return isOneOf(ofOneConnection, field.first) ||
               std::any_of(named.begin(), named.end(),
                           [&](std::string_view name) { return sameHeaderName(name, field.first); });
    });
}

void setField(HeaderFields& fields, std::string_view name, std::string_view value) {
    if (const auto found = findHeader(fields, name); found != fields.end()) {
        found->second = value;
    } else {
        fields.emplace(name, value);
    }
}

std::size_t textCost(const std::string& text) {
    constexpr std::size_t inPlace = 15;
    return text.capacity() > inPlace ? text.capacity() + 1 + sizeof(void*) : 0;
}

}  // namespace

StoredResponse::StoredResponse(ResponseParts parts) : parts_(std::move(parts)) {
    removeFieldsOfOneConnection(parts_.fields);
    if (field("date").empty()) {
        setField(parts_.fields, "Date", formatHTTPDate(wholeSeconds(parts_.received)));
    }
    control_ = CacheControl::parse(field("cache-control"));
    lifetime_ = computeLifetime();
    initialAge_ = computeInitialAge();
}

std::string_view StoredResponse::field(std::string_view name) const {
    const auto found = findHeader(parts_.fields, name);
    return found == parts_.fields.end() ? std::string_view() : std::string_view(found->second);
}

std::optional<seconds> StoredResponse::date(std::string_view name) const {
    return parseHTTPDate(field(name), wholeSeconds(parts_.received));
}

std::string_view StoredResponse::lastModified() const {
    return date("last-modified") ? field("last-modified") : std::string_view();
}

milliseconds StoredResponse::computeLifetime() const {
    if (control_.maxAge) return *control_.maxAge;
    const seconds made = date("date").value_or(wholeSeconds(parts_.received));
    if (findHeader(parts_.fields, "expires") != parts_.fields.end()) {
        // "0", and whatever else is no date, is a time that has passed.
        const auto expires = date("expires");
        return expires ? *expires - made : seconds(0);
    }
    if (!isHeuristicallyCacheable(parts_.status) && !control_.isPublic) return milliseconds(0);
    const auto modified = date("last-modified");
    if (!modified) return milliseconds(0);
    return std::clamp<milliseconds>(milliseconds(made - *modified) / 10, milliseconds(0), longestEstimate);
}

milliseconds StoredResponse::computeInitialAge() const {
    const milliseconds made = date("date").value_or(wholeSeconds(parts_.received));
    // A Date has no fractions of a second; one of this second is not older than it.
    const milliseconds apparent =
        std::max(milliseconds(wholeSeconds(parts_.received)) - made, milliseconds(0));
    // Of a list the first member counts.
    const std::string_view age = field("age");
    const auto told = parseDeltaSeconds(trimmed(age.substr(0, age.find(',')))).value_or(seconds(0));
    const milliseconds delay = std::max(parts_.received.steady - parts_.requested.steady, milliseconds(0));
    return std::max<milliseconds>(apparent, told + delay);
}

milliseconds StoredResponse::age(CacheTime now) const {
    const milliseconds wall = now.wall - parts_.received.wall;
    const milliseconds steady = now.steady - parts_.received.steady;
    // The steady clock misses what the device slept, and the other one goes back when it is set. An answer of an
    // earlier process has no steady time: if it seems to come from the future, nothing is known of its age.
    const bool isKnown = parts_.received.steady != milliseconds(0);
    if (!isKnown && wall < milliseconds(0)) return milliseconds(maxDeltaSeconds);
    return initialAge_ + std::max({wall, isKnown ? steady : milliseconds(0), milliseconds(0)});
}

std::size_t StoredResponse::cost() const {
    // With the counters that its owners and those of its body share.
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
    // These tell when one message was made, and that is now the update.
    std::erase_if(parts.fields, [](const auto& field) {
        return sameHeaderName(field.first, "age") || sameHeaderName(field.first, "date");
    });
    HeaderFields updates = fresh;
    removeFieldsOfOneConnection(updates);
    for (const auto& [name, value] : updates) {
        if (!isOneOf(ofTheBody, name)) setField(parts.fields, name, value);
    }
    return std::make_shared<const StoredResponse>(std::move(parts));
}

}  // namespace VanticRestKit::detail
