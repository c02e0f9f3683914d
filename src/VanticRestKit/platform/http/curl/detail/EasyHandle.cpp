#include <VanticRestKit/platform/http/curl/detail/Callbacks.h>
#include <VanticRestKit/platform/http/curl/detail/EasyHandle.h>
#include <VanticRestKit/platform/http/curl/detail/Options.h>
#include <VanticRestKit/platform/http/curl/detail/SessionOptions.h>
#include <VanticRestKit/platform/http/detail/Origin.h>
#include <VanticRestKit/platform/http/detail/ProxyRule.h>

#include <algorithm>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// libcurl corrupts HTTP/2 response headers that are larger than its buffer while other responses are being received.
// Plain HTTP has no such limit, and is faster with the usual buffer.
constexpr long secureBufferSize = 64 * 1024;

void setCommonOptions(Options& options) {
    options.set(CURLOPT_NOSIGNAL, 1L);
    // A lookup that is still under way must not hold up the I/O thread when its request is cancelled.
    options.set(CURLOPT_QUICK_EXIT, 1L);
    options.set(CURLOPT_PROTOCOLS_STR, "http,https");
    // Empty strings, not null: with null, libcurl would use proxies from the environment. Whether a request goes
    // through the session's proxy is decided by this library, not by libcurl's list.
    options.set(CURLOPT_PROXY, "");
    options.set(CURLOPT_NOPROXY, "");
    options.set(CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    // Redirects and content codings are handled by this library: libcurl keeps the method on some redirects where it
    // must not, and accepts truncated codings.
    options.set(CURLOPT_FOLLOWLOCATION, 0L);
    options.set(CURLOPT_HTTP_CONTENT_DECODING, 0L);
}

}  // namespace

EasyHandle::EasyHandle(const EasySettings& settings, bool isSecure)
    : isSecure_(isSecure),
      fixedAddresses_(&settings.addresses),
      proxy_(settings.configuration->proxy ? &*settings.configuration->proxy : nullptr),
      easy_(curl_easy_init()) {
    if (easy_ == nullptr) return;
    Options options(easy_);
    setCommonOptions(options);
    setSessionOptions(options, *settings.configuration);
    setTlsContext(options, *settings.tls);
    options.set(CURLOPT_SHARE, settings.shared);
    if (isSecure) options.set(CURLOPT_BUFFERSIZE, secureBufferSize);
    if (!setAddresses({})) return;
    options.set(CURLOPT_PRIVATE, this);
    options.set(CURLOPT_ERRORBUFFER, errorText_.data());
    setCallbacks(options, *this, *settings.connections);
    isGood_ = options.areAccepted();
}

// libcurl reads the list with the next request, and then uses its entries for all handles.
bool EasyHandle::setAddresses(const std::string& first) {
    std::unique_ptr<curl_slist, ListDeleter> made;
    const auto append = [&made](const std::string& address) {
        curl_slist* const longer = curl_slist_append(made.get(), address.c_str());
        if (longer == nullptr) return false;
        static_cast<void>(made.release());
        made.reset(longer);
        return true;
    };
    if (!first.empty() && !append(first)) return false;
    if (!std::all_of(fixedAddresses_->begin(), fixedAddresses_->end(), append)) return false;
    if (made) curl_easy_setopt(easy_, CURLOPT_RESOLVE, made.get());
    addresses_ = std::move(made);
    return true;
}

void EasyHandle::forgetAddressOf(const URL& url) {
    const std::string origin = originOf(url);
    const auto begin = origin.find("://");
    if (begin != std::string::npos) setAddresses("-" + origin.substr(begin + 3));
}

EasyHandle::~EasyHandle() { curl_easy_cleanup(easy_); }

bool EasyHandle::goTo(const URL& url) {
    if (!beginsWith(url, beginning_) && !readBeginning(url)) return false;
    Options options(easy_);
    // The unmodified target: a path is sent as it was built, including dot segments.
    const bool isWhole = goesThroughProxy_ && !isSecure_;
    options.set(CURLOPT_REQUEST_TARGET, (isWhole ? absoluteTarget(url) : url.requestTarget()).c_str());
    return options.areAccepted();
}

bool EasyHandle::readBeginning(const URL& url) {
    beginning_ = beginningOf(url);
    address_.reset(curl_url());
    const std::string root = beginning_ + '/';
    if (curl_url_set(address_.get(), CURLUPART_URL, root.c_str(), 0) != CURLUE_OK) {
        beginning_.clear();
        return false;
    }
    Options options(easy_);
    options.set(CURLOPT_CURLU, address_.get());
    if (proxy_ != nullptr) {
        goesThroughProxy_ = goesThrough(*proxy_, url);
        setProxy(options, *proxy_, goesThroughProxy_);
    }
    return options.areAccepted();
}

std::unique_ptr<EasyHandle> EasyPool::take(bool isSecure) {
    Handles& idle = isSecure ? secure_ : plain_;
    if (idle.empty()) return std::make_unique<EasyHandle>(settings_, isSecure);
    std::unique_ptr<EasyHandle> handle = std::move(idle.back());
    idle.pop_back();
    return handle;
}

void EasyPool::give(std::unique_ptr<EasyHandle> handle) {
    Handles& idle = handle->isSecure() ? secure_ : plain_;
    if (!handle->isGood() || handle->isUsedUp || idle.size() == maxIdle) return;
    handle->attempt = nullptr;
    idle.push_back(std::move(handle));
}

}  // namespace VanticRestKit::detail
