#pragma once

/// \file
/// `EasyHandle`: a libcurl easy handle with the options that stay the same between requests, and `EasyPool`.

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

/// The settings that all requests of a session share.
struct EasySettings {
    /// Must outlive the handles.
    const URLSessionConfiguration* configuration = nullptr;
    Connections* connections = nullptr;
    TlsSettings* tls = nullptr;
    /// Shared by the handles: the TLS sessions that new connections resume. Must outlive the handles.
    CURLSH* shared = nullptr;
    /// Fixed addresses of hosts, which are not looked up, in libcurl's format.
    std::vector<std::string> addresses{};
};

/// An easy handle, for either https or http requests. Options that are the same for all requests of a session are set
/// once, by the constructor; the handle is then ready for a GET without a body.
class EasyHandle {
public:
    EasyHandle(const EasySettings& settings, bool isSecure);
    ~EasyHandle();
    EasyHandle(const EasyHandle&) = delete;
    EasyHandle& operator=(const EasyHandle&) = delete;

    CURL* get() const noexcept { return easy_; }
    bool isSecure() const noexcept { return isSecure_; }
    /// Whether libcurl made the handle and accepted every option.
    bool isGood() const noexcept { return isGood_; }
    /// libcurl's message about the error that ended the request.
    const char* errorText() const noexcept { return errorText_.data(); }

    /// The attempt that the callbacks of this handle work for; null between attempts.
    Attempt* attempt = nullptr;
    /// Whether a request has set more options than URL and header lines, so that the handle must not be reused.
    bool isUsedUp = false;

    /// Sets the URL of the next request. Returns false if libcurl cannot parse its scheme and authority.
    bool goTo(const URL& url);
    /// Makes libcurl look up the host of `url` for the next request, even if it has an address cached.
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
    // Owned by the session.
    const std::vector<std::string>* const fixedAddresses_;
    // Owned by the session; null if it has none.
    const URLSessionProxy* const proxy_;
    // Whether requests of `beginning_` go through the proxy.
    bool goesThroughProxy_ = false;
    std::unique_ptr<curl_slist, ListDeleter> addresses_;
    // The scheme and authority of the previous request, as written and as parsed by libcurl. Most requests have the
    // same, and parsing them again would be a sixth of libcurl's work for a request.
    std::string beginning_;
    std::unique_ptr<CURLU, AddressDeleter> address_;
    CURL* const easy_;
    bool isGood_ = false;
    std::array<char, CURL_ERROR_SIZE> errorText_{};
};

/// Keeps handles for reuse, except those that are used up: libcurl can reset them only in part. For one thread.
class EasyPool {
public:
    explicit EasyPool(EasySettings settings) : settings_(std::move(settings)) {}

    /// A handle that is ready for a GET without a body, over TLS or without.
    std::unique_ptr<EasyHandle> take(bool isSecure);

    /// Takes back a handle, which must not be in a multi handle.
    void give(std::unique_ptr<EasyHandle> handle);

private:
    static constexpr std::size_t maxIdle = 64;

    using Handles = std::vector<std::unique_ptr<EasyHandle>>;

    const EasySettings settings_;
    Handles secure_;
    Handles plain_;
};

}  // namespace VanticRestKit::detail
