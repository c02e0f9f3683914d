#pragma once

/// \file
/// `CacheControl`: the directives of a Cache-Control field, of a request or a response.

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// A parsed Cache-Control field. Unknown directives are ignored, and so is `s-maxage`, which is for shared caches.
///
/// The first of several equal directives is used. An argument may be quoted or not. Malformed arguments get the
/// stricter meaning: a `max-age` that is not a number is 0, and a permission to use stale responses is ignored.
struct CacheControl {
    using Seconds = std::chrono::seconds;

    bool noStore = false;
    /// `no-cache` without field names.
    bool noCache = false;
    bool mustRevalidate = false;
    bool mustUnderstand = false;
    bool isPublic = false;
    bool isPrivate = false;
    bool isImmutable = false;
    bool onlyIfCached = false;
    std::optional<Seconds> maxAge{};
    /// The maximum value if the directive has no argument.
    std::optional<Seconds> maxStale{};
    std::optional<Seconds> minFresh{};
    std::optional<Seconds> staleWhileRevalidate{};
    std::optional<Seconds> staleIfError{};
    /// The fields that `no-cache="..."` names, as written.
    std::vector<std::string> noCacheFields{};

    static CacheControl parse(std::string_view value);
};

/// The largest number of seconds in an HTTP field; larger ones are reduced to it.
inline constexpr std::chrono::seconds maxDeltaSeconds{2147483648};

/// Parses a number of seconds: only digits. Empty if `text` has another form.
std::optional<std::chrono::seconds> parseDeltaSeconds(std::string_view text);

/// The members of a comma-separated list, trimmed; commas in quoted strings do not separate. Empty members are left
/// out. The views refer to `value`.
std::vector<std::string_view> listMembers(std::string_view value);

}  // namespace VanticRestKit::detail
