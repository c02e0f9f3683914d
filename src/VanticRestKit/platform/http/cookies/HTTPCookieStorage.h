#pragma once

/// \file
/// `HTTPCookieStorage`: the cookies of one or more sessions.

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
    /// Only cookies of the site of the original request: after a redirect to a host with another registered domain
    /// (that of "www.example.org" is "example.org"), that host's cookies are not accepted.
    onlyFromMainDocumentDomain = 2,
};

/// The file in which a storage keeps its cookies beyond the life of the process.
struct HTTPCookieFile {
    /// The absolute path of the file, in an existing folder. The file is created with mode 0600 and replaced as a whole
    /// by each write, so that a crash leaves either the old or the new one. Only one storage may use it at a time.
    std::string path{};
    /// Called for each problem with the file, on the storage's own queue; may be empty. The error has the domain
    /// "NSCocoaErrorDomain" and one of the codes 259 (the file was damaged; ".damaged" was appended to its name, and
    /// the storage is empty), 257 (it cannot be read and will not be written) and 512 (it cannot be written; the next
    /// change tries again).
    UniqueFunction<void(Error)> onProblem{};
};

/// Stores cookies and finds those for a request (RFC 6265). Used by sessions, and optionally by hosts.
///
/// A cookie is accepted if its domain is the host that sent it or a parent domain, but not a public suffix such as
/// "org" or "co.uk". Secure cookies are accepted only over https, and cookies whose names begin with "__Secure-" or
/// "__Host-" only if they fulfil the requirements of the prefix. A cookie received over http does not replace a Secure
/// one. Cookies whose name and value together exceed 4096 bytes are not accepted. A domain has at most 50 cookies and a
/// storage 3000; beyond that, the one that was sent or set longest ago is removed.
///
/// Thread-safe. A storage belongs to the process that made it, and must not be used in a child made by `fork`.
class VRK_EXPORT HTTPCookieStorage {
public:
    /// Makes an empty storage in memory.
    static std::shared_ptr<HTTPCookieStorage> make();

    /// Makes a storage that also keeps cookies with an `expiresDate` in `file`. Reads the file before it returns.
    /// Changes are collected and written about a second later, on a thread of the library; `flush` writes them at once.
    static std::shared_ptr<HTTPCookieStorage> make(HTTPCookieFile file);

    ~HTTPCookieStorage();
    HTTPCookieStorage(const HTTPCookieStorage&) = delete;
    HTTPCookieStorage& operator=(const HTTPCookieStorage&) = delete;

    /// All cookies that have not expired, the oldest first.
    std::vector<HTTPCookie> cookies() const;

    /// The cookies for a request of `forURL`, in the order in which they are sent: longer paths first, then older ones.
    /// Counts as a use of them.
    std::vector<HTTPCookie> cookies(const URL& forURL) const;

    /// Stores `cookie`, replacing the same cookie if there is one; an expired `cookie` only removes that one. Returns
    /// whether it was stored: not if it is expired, malformed or too large, is for all subdomains of a public suffix,
    /// or the policy is `never`.
    bool setCookie(HTTPCookie cookie);

    /// Removes the cookie with the same name, domain, `includesSubdomains` and path as `cookie`. Has no effect if there
    /// is none.
    void deleteCookie(const HTTPCookie& cookie);

    /// Removes all cookies, as a sign-out does.
    void removeAllCookies();

    /// Which cookies are accepted from now on, from any session; `always` by default. Stored cookies are still sent.
    HTTPCookieAcceptPolicy cookieAcceptPolicy() const;
    /// Replaces the policy.
    void setCookieAcceptPolicy(HTTPCookieAcceptPolicy policy);

    /// Blocks until all changes before this call are in the file, or a problem has been reported. Call it before the
    /// process ends. Returns at once for a storage in memory.
    void flush();

private:
    friend class detail::CookieJar;

    explicit HTTPCookieStorage(std::shared_ptr<detail::CookieJar> jar);

    const std::shared_ptr<detail::CookieJar> jar_;
};

}  // namespace VanticRestKit
