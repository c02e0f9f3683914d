#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// How tokens are given out; set from outside.
struct TokenSettings {
    enum class Rotation { never, late, always };

    /// How long a token is good for, in seconds. A token of no or a negative length has expired at once.
    double seconds = 3600;
    /// Whether answers bring new tokens: never, late (when less than half of a new token's time is left), or always.
    Rotation rotation = Rotation::late;
    /// The users who get no tokens at all.
    std::set<std::string> refused;
};

/// Reads the settings that a JSON object names; an error's text where they are none.
std::optional<std::string> readTokenSettings(const JSON& json, TokenSettings& settings);
JSON written(const TokenSettings& settings);

/// A set of tokens of one user.
struct TokenSet {
    std::string access;
    std::string refresh;
    double expiry;  // seconds since 1970

    /// As answers carry it.
    JSON written() const;
};

/// All tokens given out. A new set leaves the older ones good until they end, since several requests may be
/// under way with one of them.
class Tokens {
public:
    /// A new set for a user.
    const TokenSet& issue(const std::string& uid, double seconds);

    /// The set of a user with this access token, or with this refresh token; null where there is none.
    const TokenSet* byAccess(const std::string& uid, const std::string& token) const;
    const TokenSet* byRefresh(const std::string& uid, const std::string& token) const;

    /// Ends the time of all access tokens; their refresh tokens stay good.
    void expireAll();
    void clear();

private:
    std::multimap<std::string, TokenSet> byUser_;
    unsigned issued_ = 0;
};

/// Seconds since 1970.
double secondsNow();

}  // namespace VanticRestKit::sample
