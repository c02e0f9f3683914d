#pragma once

/// \file
/// `HTTPCookieStorage`: the cookies of one or several sessions.

#include <VanticRestKit/platform/dispatch/UniqueFunction.h>
#include <VanticRestKit/platform/error/Error.h>
#include <VanticRestKit/platform/http/cookies/HTTPCookie.h>
#include <VanticRestKit/platform/url/URL.h>
#include <VanticRestKit/Visibility.h>

#include <memory>
#include <string>
#include <vector>

namespace VanticRestKit {

namespace detail {
class CookieJar;
}

/// Which cookies are accepted.
enum class HTTPCookieAcceptPolicy {
    always = 0,
    never = 1,
    /// Only those of the site that the request was made for: after a redirect to a host of another registered domain
    /// ("example.org" is the one of "www.example.org"), that host's cookies are not accepted.
    onlyFromMainDocumentDomain = 2,
};

/// Where a storage keeps its cookies beyond the life of the process.
struct HTTPCookieFile {
    /// The absolute path of the file, in a folder that exists. It is created for the user alone (mode 0600) and replaced
    /// as a whole by each write, so that a crash leaves the old or the new one. One storage has it at a time.
    std::string path{};
    /// Called for each problem with the file, on a queue of the storage's own; may be empty. The error has the domain
    /// "NSCocoaErrorDomain" and one of the codes 259 (the file was damaged; it was renamed to its name with ".damaged"
    /// at the end, and the storage began empty), 257 (it cannot be read and will not be written) and 512 (it cannot be
    /// written; the next change tries again).
    UniqueFunction<void(Error)> onProblem{};
};

/// Keeps cookies and finds those of a request (RFC 6265). Sessions fill and ask it; a host may too.
///
/// A cookie is accepted if its domain is the host that sent it or a domain above that host, but no public suffix such
/// as "org" or "co.uk"; Secure cookies only over https, and cookies whose names begin with "__Secure-" or "__Host-" only
/// with what those promise. A cookie of http does not replace a Secure one. A cookie of more than 4096 bytes, name and
/// value together, is not accepted. A domain has at most 50 cookies and a storage 3000: above it, the one that was
/// sent or set longest ago is removed.
///
/// Any thread may call. A storage belongs to the process that made it, and is not to be used in a child made by `fork`.
class VRK_EXPORT HTTPCookieStorage {
public:
    /// A storage in memory, empty.
    static std::shared_ptr<HTTPCookieStorage> make();

    /// A storage whose cookies that have an `expiresDate` are in `file` too. Reads the file before it returns. Changes
    /// are written about a second later, on a thread of the library, several at once; `flush` writes them now.
    static std::shared_ptr<HTTPCookieStorage> make(HTTPCookieFile file);

    ~HTTPCookieStorage();
    HTTPCookieStorage(const HTTPCookieStorage&) = delete;
    HTTPCookieStorage& operator=(const HTTPCookieStorage&) = delete;

    /// All cookies that have not expired, the oldest first.
    std::vector<HTTPCookie> cookies() const;

    /// The cookies that a request of `forURL` gets, in the order in which it gets them: longer paths first, then the
    /// older ones. Counts as a use of them.
    std::vector<HTTPCookie> cookies(const URL& forURL) const;

    /// Stores `cookie` in place of the same one of earlier, if there is one; one that has expired only removes that one.
    /// Returns whether the storage has it then: not if it is malformed or too large, is for all hosts below a public
    /// suffix, or the policy is `never`.
    bool setCookie(HTTPCookie cookie);

    /// Removes the cookie with the name, domain, `includesSubdomains` and path of `cookie`. Does nothing if there is none.
    void deleteCookie(const HTTPCookie& cookie);

    /// Removes all cookies, as a sign-out does.
    void removeAllCookies();

    /// Which cookies are accepted from now on, whatever session they come from; `always` at first. Those that are
    /// stored already are still sent.
    HTTPCookieAcceptPolicy cookieAcceptPolicy() const;
    /// Replaces which cookies are kept. Any thread.
    void setCookieAcceptPolicy(HTTPCookieAcceptPolicy policy);

    /// Blocks until all changes before this call are in the file, or a problem was reported. Call it before the process
    /// ends. Returns at once for a storage in memory.
    void flush();

private:
    friend class detail::CookieJar;

    explicit HTTPCookieStorage(std::shared_ptr<detail::CookieJar> jar);

    const std::shared_ptr<detail::CookieJar> jar_;
};

}  // namespace VanticRestKit
