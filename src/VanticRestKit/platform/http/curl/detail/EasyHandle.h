#pragma once

/// \file
/// `EasyHandle`: one of libcurl's easy handles with what stays set from request to request, and `EasyPool`.

#include <VanticRestKit/platform/http/curl/detail/Connections.h>
#include <VanticRestKit/platform/http/curl/detail/TlsContext.h>
#include <VanticRestKit/platform/http/URLSessionConfiguration.h>
#include <VanticRestKit/platform/url/URL.h>

#include <curl/curl.h>

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::detail {

struct Attempt;

/// What all requests of a session have in common.
struct EasySettings {
    /// Outlives the handles.
    const URLSessionConfiguration* configuration = nullptr;
    Connections* connections = nullptr;
    TlsSettings* tls = nullptr;
    /// What the handles share: the TLS sessions that new connections resume. Outlives them.
    CURLSH* shared = nullptr;
    /// Addresses of hosts that are not to be looked up, in libcurl's form.
    std::vector<std::string> addresses{};
};

/// An easy handle, for requests over TLS or for those without. Everything that is the same for all of them in a
/// session is set once, when it is made; it is ready for a GET without a body then.
class EasyHandle {
public:
    EasyHandle(const EasySettings& settings, bool isSecure);
    ~EasyHandle();
    EasyHandle(const EasyHandle&) = delete;
    EasyHandle& operator=(const EasyHandle&) = delete;

    CURL* get() const noexcept { return easy_; }
    bool isSecure() const noexcept { return isSecure_; }
    /// Whether libcurl made the handle and took every setting.
    bool isGood() const noexcept { return isGood_; }
    /// What libcurl has to say about the error that ended the request.
    const char* errorText() const noexcept { return errorText_.data(); }

    /// The attempt that the callbacks of this handle work for; null between two.
    Attempt* attempt = nullptr;
    /// Whether a request has set more than an address and header lines, so that the next must not find it.
    bool isUsedUp = false;

    /// Has the next request go to `url`. Returns false where libcurl cannot read its beginning.
    bool goTo(const URL& url);
    /// Has libcurl look up the host of `url` for the next request, also if it still keeps an address of it.
    void forgetAddressOf(const URL& url);

private:
    struct AddressDeleter {
        void operator()(CURLU* address) const { curl_url_cleanup(address); }
    };

    bool readBeginning(const URL& url);
    bool setAddresses(const std::string& first);

    struct ListDeleter {
        void operator()(curl_slist* list) const { curl_slist_free_all(list); }
    };

    const bool isSecure_;
    // The session's.
    const std::vector<std::string>* const fixedAddresses_;
    // The session's; null if it has none.
    const URLSessionProxy* const proxy_;
    // Whether requests of `beginning_` go through it.
    bool goesThroughProxy_ = false;
    std::unique_ptr<curl_slist, ListDeleter> addresses_;
    // Scheme and authority of the request before, as they are written and as libcurl reads them. Most requests
    // have the same, and to read an address and write it anew would be a sixth of libcurl's work for one.
    std::string beginning_;
    std::unique_ptr<CURLU, AddressDeleter> address_;
    CURL* const easy_;
    bool isGood_ = false;
    std::array<char, CURL_ERROR_SIZE> errorText_{};
};

/// Keeps some handles, so that not every request makes one, but not those that a request has used up: libcurl would
/// set them back in part only. For one thread.
class EasyPool {
public:
    explicit EasyPool(EasySettings settings) : settings_(std::move(settings)) {}

    /// A handle that is ready for a GET without a body, over TLS or without.
    std::unique_ptr<EasyHandle> take(bool isSecure);

    /// Takes back a handle that is in no multi handle.
    void give(std::unique_ptr<EasyHandle> handle);

private:
    static constexpr std::size_t mostIdle = 64;

    using Handles = std::vector<std::unique_ptr<EasyHandle>>;

    const EasySettings settings_;
    Handles secure_;
    Handles plain_;
};

}  // namespace VanticRestKit::detail
