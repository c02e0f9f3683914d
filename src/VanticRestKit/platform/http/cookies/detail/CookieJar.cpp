#include <VanticRestKit/platform/http/cookies/detail/CookieJar.h>

#include <VanticRestKit/platform/http/cookies/detail/CookieRules.h>
#include <VanticRestKit/platform/http/cookies/detail/PublicSuffix.h>

#include <chrono>
#include <condition_variable>
#include <utility>

namespace VanticRestKit::detail {

namespace {

// A server may renew its cookies with each response, and each write waits for the disk.
constexpr std::chrono::seconds writeDelay{1};

bool isAccepted(HTTPCookieAcceptPolicy policy, const CookieTarget& sender, const URL& mainURL) {
    switch (policy) {
        case HTTPCookieAcceptPolicy::always: return true;
        case HTTPCookieAcceptPolicy::never: return false;
        case HTTPCookieAcceptPolicy::onlyFromMainDocumentDomain: break;
    }
    const std::string mainHost = cookieTargetOf(mainURL).host;
    if (mainHost == sender.host) return true;
    if (isIPAddress(mainHost) || isIPAddress(sender.host)) return false;
    return registrableDomain(mainHost) == registrableDomain(sender.host);
}

}  // namespace

Date systemCookieClock() { return std::chrono::system_clock::now(); }

CookieJar::CookieJar(CookieClock clock, std::unique_ptr<CookieFile> file)
    : clock_(clock), file_(std::move(file)) {}

std::shared_ptr<HTTPCookieStorage> CookieJar::storage(CookieClock clock, std::optional<HTTPCookieFile> file) {
    auto opened = file ? std::make_unique<CookieFile>(*std::move(file)) : nullptr;
    std::vector<HTTPCookie> cookies = opened ? opened->read() : std::vector<HTTPCookie>();
    const auto jar = std::make_shared<CookieJar>(clock, std::move(opened));
    jar->load(std::move(cookies));
    return std::shared_ptr<HTTPCookieStorage>(new HTTPCookieStorage(jar));
}

void CookieJar::load(std::vector<HTTPCookie> cookies) {
    const std::lock_guard lock(mutex_);
    for (HTTPCookie& cookie : cookies) {
        if (auto canonical = canonicalCookie(std::move(cookie))) store_.set(*std::move(canonical), clock_());
    }
    // Cookies that were just read need not be written.
    static_cast<void>(store_.takePersistentChange());
    count_.store(store_.count());
}

std::vector<HTTPCookie> CookieJar::all() const {
    const std::lock_guard lock(mutex_);
    return store_.all(clock_());
}

std::vector<HTTPCookie> CookieJar::matching(const URL& url) {
    const CookieTarget target = cookieTargetOf(url);
    const std::lock_guard lock(mutex_);
    std::vector<HTTPCookie> cookies;
    for (const HTTPCookie* const cookie : store_.matching(target, clock_())) cookies.push_back(*cookie);
    return cookies;
}

std::string CookieJar::header(const URL& url) {
    std::string text;
    const CookieTarget target = cookieTargetOf(url);
    const std::lock_guard lock(mutex_);
    for (const HTTPCookie* const cookie : store_.matching(target, clock_())) {
        if (!text.empty()) text += "; ";
        text.append(cookie->name).append("=").append(cookie->value);
    }
    return text;
}

bool CookieJar::set(HTTPCookie cookie) {
    if (policy() == HTTPCookieAcceptPolicy::never) return false;
    auto canonical = canonicalCookie(std::move(cookie));
    if (!canonical) return false;
    const std::lock_guard lock(mutex_);
    const bool isKept = store_.set(*std::move(canonical), clock_());
    changed();
    return isKept;
}

void CookieJar::remove(const HTTPCookie& cookie) {
    const auto canonical = canonicalCookie(cookie);
    if (!canonical) return;
    const std::lock_guard lock(mutex_);
    store_.remove(*canonical);
    changed();
}

void CookieJar::clear() {
    const std::lock_guard lock(mutex_);
    store_.clear();
    changed();
}

void CookieJar::receive(const std::vector<std::string>& lines, const URL& url, const URL& mainURL,
                        HTTPCookieAcceptPolicy sessionPolicy) {
    const CookieTarget sender = cookieTargetOf(url);
    if (!isAccepted(sessionPolicy, sender, mainURL) || !isAccepted(policy(), sender, mainURL)) return;
    const Date now = clock_();
    const std::lock_guard lock(mutex_);
    for (const std::string& line : lines) {
        const auto parsed = readSetCookie(line);
        auto cookie = parsed ? acceptedCookie(*parsed, sender, now) : std::nullopt;
        if (!cookie || (!sender.isSecure && store_.wouldHideSecureCookie(*cookie, now))) continue;
        store_.set(*std::move(cookie), now);
    }
    changed();
}

// Called with the lock held.
void CookieJar::changed() {
    count_.store(store_.count());
    if (!store_.takePersistentChange() || !file_ || isWriteDue_) return;
    isWriteDue_ = true;
    file_->queue().asyncAfter(writeDelay, [jar = shared_from_this()] { jar->write(); });
}

// Called on the file's queue.
void CookieJar::write() {
    std::vector<HTTPCookie> cookies;
    {
        const std::lock_guard lock(mutex_);
        if (!std::exchange(isWriteDue_, false)) return;
        cookies = store_.all(clock_());
    }
    std::erase_if(cookies, [](const HTTPCookie& cookie) { return cookie.isSessionOnly(); });
    file_->write(cookies);
}

void CookieJar::flush() {
    if (!file_) return;
    if (file_->queue().isCurrent()) {
        write();
        return;
    }
    struct Signal {
        std::mutex mutex;
        std::condition_variable changed;
        bool isDone = false;
    };
    const auto signal = std::make_shared<Signal>();
    file_->queue().async([jar = shared_from_this(), signal] {
        jar->write();
        const std::lock_guard lock(signal->mutex);
        signal->isDone = true;
        signal->changed.notify_all();
    });
    std::unique_lock lock(signal->mutex);
    signal->changed.wait(lock, [&] { return signal->isDone; });
}

}  // namespace VanticRestKit::detail
