#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// How tokens are issued; set by control requests.
struct TokenSettings {
    enum class Rotation { never, late, always };

    /// The lifetime of a token in seconds. If zero or negative, tokens are already expired when issued.
    double seconds = 3600;
    /// Whether answers contain new tokens: never, late (when less than half of the lifetime is left), or always.
    Rotation rotation = Rotation::late;
    /// The users who are refused tokens.
    std::set<std::string> refused;
};

/// Parses settings from a JSON object. Returns an error message if they are invalid.
std::optional<std::string> readTokenSettings(const JSON& json, TokenSettings& settings);
JSON written(const TokenSettings& settings);

/// A set of tokens of one user.
struct TokenSet {
    std::string access;
    std::string refresh;
    double expiry;  // seconds since 1970

    /// The JSON in answers.
    JSON written() const;
};

/// All issued tokens. Older sets stay valid until they expire, since several requests may be in progress with one.
class Tokens {
public:
    /// A new set for a user.
    const TokenSet& issue(const std::string& uid, double seconds);

    /// The set of a user with this access token, or with this refresh token; null if there is none.
    const TokenSet* byAccess(const std::string& uid, const std::string& token) const;
    const TokenSet* byRefresh(const std::string& uid, const std::string& token) const;

    /// Expires all access tokens; their refresh tokens stay valid.
    void expireAll();
    void clear();

private:
    std::multimap<std::string, TokenSet> byUser_;
    unsigned issued_ = 0;
};

/// Seconds since 1970.
double secondsNow();

}  // namespace VanticRestKit::sample
