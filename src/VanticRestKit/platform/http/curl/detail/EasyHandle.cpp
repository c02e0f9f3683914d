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

// The headers of an HTTP/2 answer that are larger than libcurl's buffer are garbage to it while other answers are under
// way. Plain HTTP has no such limit, and is faster with the usual buffer.
constexpr long largestSecureHead = 64 * 1024;

void setConduct(Options& options) {
    options.set(CURLOPT_NOSIGNAL, 1L);
    // A lookup that is still under way must not hold up the I/O thread when its request is cancelled.
    options.set(CURLOPT_QUICK_EXIT, 1L);
    options.set(CURLOPT_PROTOCOLS_STR, "http,https");
    // Empty texts, not null: null would have the environment's proxies count. Whether a request goes through the proxy
    // of the session is decided here, not by libcurl's list.
    options.set(CURLOPT_PROXY, "");
    options.set(CURLOPT_NOPROXY, "");
    options.set(CURLOPT_NETRC, static_cast<long>(CURL_NETRC_IGNORED));
    // Redirects and content codings are ours: libcurl keeps a method where it must not, and takes a body for
    // whole whose coding is not.
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
    setConduct(options);
    setSessionOptions(options, *settings.configuration);
    setTlsContext(options, *settings.tls);
    options.set(CURLOPT_SHARE, settings.shared);
    if (isSecure) options.set(CURLOPT_BUFFERSIZE, largestSecureHead);
    if (!setAddresses({})) return;
    options.set(CURLOPT_PRIVATE, this);
    options.set(CURLOPT_ERRORBUFFER, errorText_.data());
    setCallbacks(options, *this, *settings.connections);
    isGood_ = options.areTaken();
}

// libcurl reads the list with the next request, and keeps what stands there for all handles.
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
    // The target as it stands: a path goes out as it was built, dot segments included.
    const bool isWhole = goesThroughProxy_ && !isSecure_;
    options.set(CURLOPT_REQUEST_TARGET, (isWhole ? absoluteTarget(url) : url.requestTarget()).c_str());
    return options.areTaken();
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
    return options.areTaken();
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
    if (!handle->isGood() || handle->isUsedUp || idle.size() == mostIdle) return;
    handle->attempt = nullptr;
    idle.push_back(std::move(handle));
}

}  // namespace VanticRestKit::detail
