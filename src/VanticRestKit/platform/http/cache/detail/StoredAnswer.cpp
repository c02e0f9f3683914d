#include <VanticRestKit/platform/http/cache/detail/StoredAnswer.h>

#include <VanticRestKit/platform/date/detail/HTTPDate.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

namespace VanticRestKit::detail {

namespace {

struct Part {
    std::size_t first = 0;
    std::size_t size = 0;
};

// Of 64 bits on every system: a range may end after more bytes than a 32-bit process can address.
std::optional<std::uint64_t> numberOf(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

/// The part of a body of `size` bytes that a Range selects; empty if it selects several or none, or is malformed.
std::optional<Part> partOf(std::string_view range, std::size_t size) {
    constexpr std::string_view unit = "bytes=";
    if (!sameHeaderName(range.substr(0, unit.size()), unit)) return std::nullopt;
    const std::string_view positions = trimmed(range.substr(unit.size()));
    const auto dash = positions.find('-');
    if (dash == std::string_view::npos) return std::nullopt;
    const std::string_view lastText = positions.substr(dash + 1);
    const auto last = numberOf(lastText);
    if (dash == 0) {
        if (!last || *last == 0 || size == 0) return std::nullopt;
        const auto length = static_cast<std::size_t>(std::min<std::uint64_t>(*last, size));
        return Part{size - length, length};
    }
    const auto first = numberOf(positions.substr(0, dash));
    if (!first || *first >= size || (!last && !lastText.empty())) return std::nullopt;
    if (last && *last < *first) return std::nullopt;
    const std::uint64_t end = std::min<std::uint64_t>(last.value_or(size - 1), size - 1) + 1;
    return Part{static_cast<std::size_t>(*first), static_cast<std::size_t>(end - *first)};
}

void removeField(HeaderFields& fields, std::string_view name) {
    std::erase_if(fields, [name](const auto& field) { return sameHeaderName(field.first, name); });
}

void replaceField(HeaderFields& fields, const char* name, std::string value) {
    if (const auto present = findHeader(fields, name); present != fields.end()) {
        present->second = std::move(value);
    } else {
        fields.emplace(name, std::move(value));
    }
}

std::string_view opaquePart(std::string_view tag) {
    if (tag.starts_with("W/")) tag.remove_prefix(2);
    return tag;
}

/// `stored` reduced to what `request` asks for.
CachedAnswer shaped(const StoredResponse& stored, const CacheRequest& request, HeaderFields fields) {
    CachedAnswer answer{.status = stored.status(), .fields = std::move(fields), .body = stored.body()};
    const auto received = std::chrono::floor<std::chrono::seconds>(stored.parts().received.wall);
    if (request.isConditional() && stored.status() == 200 && isNotModified(stored, request, received)) {
        answer.status = 304;
        answer.body = Data();
        for (const char* name : {"content-length", "content-encoding", "content-type"}) {
            removeField(answer.fields, name);
        }
    } else if (request.isHead) {
        answer.body = Data();
    } else if (!request.range.empty() && stored.status() == 200) {
        const std::size_t size = stored.body().size();
        const Part part = partOf(request.range, size).value_or(Part{0, size});
        answer.status = 206;
        answer.body = Data(stored.body().view().substr(part.first, part.size));
        replaceField(answer.fields, "Content-Length", std::to_string(part.size));
        replaceField(answer.fields, "Content-Range",
                     "bytes " + std::to_string(part.first) + '-' +
                         std::to_string(part.first + part.size - 1) + '/' + std::to_string(size));
    }
    return answer;
}

}  // namespace

bool hasRequestedPart(const StoredResponse& stored, const CacheRequest& request) {
    if (request.range.empty() || request.isHead) return true;
    // A range counts bytes of the coded body, but bodies are stored decoded.
    return stored.status() == 200 && stored.field("content-encoding").empty() &&
           partOf(request.range, stored.body().size()).has_value();
}

CachedAnswer answerOf(const StoredResponse& stored, const CacheRequest& request, CacheTime now) {
    HeaderFields fields = stored.fields();
    for (const std::string& name : stored.control().noCacheFields) removeField(fields, name);
    const auto age = std::chrono::floor<std::chrono::seconds>(stored.age(now));
    replaceField(fields, "Age", std::to_string(std::min(age, maxDeltaSeconds).count()));
    return shaped(stored, request, std::move(fields));
}

CachedAnswer confirmedAnswerOf(const StoredResponse& stored, const CacheRequest& request) {
    return shaped(stored, request, stored.fields());
}

bool isNotModified(const StoredResponse& stored, const CacheRequest& request, std::chrono::seconds now) {
    if (!request.ifNoneMatch.empty()) {
        const auto tags = listMembers(request.ifNoneMatch);
        const std::string_view own = opaquePart(stored.etag());
        return std::any_of(tags.begin(), tags.end(), [own](std::string_view tag) {
            return tag == "*" || (!own.empty() && opaquePart(tag) == own);
        });
    }
    const auto since = parseHTTPDate(request.ifModifiedSince, now);
    if (!since) return false;
    const bool isDated = !stored.lastModified().empty();
    const auto modified = parseHTTPDate(isDated ? stored.lastModified() : stored.field("date"), now);
    return modified && *modified <= *since;
}

void addConditions(URLRequest& request, const StoredResponse& stored) {
    if (!stored.etag().empty()) request.setValue(stored.etag(), "If-None-Match");
    if (!stored.lastModified().empty()) request.setValue(stored.lastModified(), "If-Modified-Since");
}

bool describesSame(const StoredResponse& stored, const HeaderFields& head) {
    for (const char* name : {"etag", "last-modified", "content-length"}) {
        const auto found = findHeader(head, name);
        const std::string_view own = stored.field(name);
        if (found != head.end() && !own.empty() && found->second != own) return false;
    }
    return true;
}

}  // namespace VanticRestKit::detail
