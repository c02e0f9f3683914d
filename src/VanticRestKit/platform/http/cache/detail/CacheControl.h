#pragma once

/// \file
/// `CacheControl`: the directives of Cache-Control, of a request or of an answer.

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace VanticRestKit::detail {

/// What a Cache-Control field says. Unknown directives are ignored, and so is `s-maxage`, which is for shared caches.
///
/// Of a directive that comes more than once the first one counts. An argument may be quoted or not. What cannot be
/// read is taken as the stricter meaning: a `max-age` that is no number is 0, and a permission to use what is stale is
/// none.
struct CacheControl {
    using Seconds = std::chrono::seconds;

    bool noStore = false;
    /// `no-cache` without names of fields.
    bool noCache = false;
    bool mustRevalidate = false;
    bool mustUnderstand = false;
    bool isPublic = false;
    bool isPrivate = false;
    bool isImmutable = false;
    bool onlyIfCached = false;
    std::optional<Seconds> maxAge{};
    /// The largest value if the directive has no argument.
    std::optional<Seconds> maxStale{};
    std::optional<Seconds> minFresh{};
    std::optional<Seconds> staleWhileRevalidate{};
    std::optional<Seconds> staleIfError{};
    /// The fields that `no-cache="..."` names, as they are written.
    std::vector<std::string> noCacheFields{};

    static CacheControl parse(std::string_view value);
};

/// The largest number of seconds that a field of HTTP can say; larger ones are taken as this one.
inline constexpr std::chrono::seconds maxDeltaSeconds{2147483648};

/// A number of seconds as HTTP writes it: digits and nothing else. Empty if `text` is not that.
std::optional<std::chrono::seconds> parseDeltaSeconds(std::string_view text);

/// The parts of a list that commas separate, without blanks around them; commas in quoted strings separate nothing.
/// Empty parts are left out. The views lie in `value`.
std::vector<std::string_view> listMembers(std::string_view value);

}  // namespace VanticRestKit::detail
