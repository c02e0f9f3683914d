#include <VanticRestKit/platform/http/cookies/detail/CookieStore.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace VanticRestKit::detail {

namespace {

bool isExpired(const HTTPCookie& cookie, Date now) {
    return cookie.expiresDate && *cookie.expiresDate <= now;
}

bool isSameCookie(const HTTPCookie& a, const HTTPCookie& b) {
    // A host-only cookie does not replace one that includes subdomains: browsers keep both.
    return a.name == b.name && a.path == b.path && a.includesSubdomains == b.includesSubdomains;
}

}  // namespace

void CookieStore::note(const HTTPCookie& changed) noexcept {
    if (!changed.isSessionOnly()) hasPersistentChange_ = true;
}

bool CookieStore::takePersistentChange() noexcept { return std::exchange(hasPersistentChange_, false); }

void CookieStore::erase(Entries& entries, Entries::iterator entry) {
    note(entry->cookie);
    entries.erase(entry);
    --count_;
}

bool CookieStore::set(HTTPCookie cookie, Date now) {
    if (isExpired(cookie, now)) {
        remove(cookie);
        return false;
    }
    Entries& entries = domains_[cookie.domain];
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const Entry& entry) { return isSameCookie(entry.cookie, cookie); });
    note(cookie);
    const std::uint64_t use = ++counter_;
    if (found != entries.end()) {
        note(found->cookie);
        // An expired cookie that is still stored counts as a different one.
        if (isExpired(found->cookie, now)) found->created = use;
        found->cookie = std::move(cookie);
        found->used = use;
        return true;
    }
    entries.push_back({.cookie = std::move(cookie), .created = use, .used = use});
    ++count_;
    limitDomain(entries, now);
    const bool isKept = !entries.empty() && entries.back().created == use;
    limitTotal(now);
    return isKept;
}

bool CookieStore::wouldHideSecureCookie(const HTTPCookie& cookie, Date now) const {
    for (const auto& [domain, entries] : domains_) {
        if (!domainMatches(domain, cookie.domain) && !domainMatches(cookie.domain, domain)) continue;
        for (const Entry& entry : entries) {
            const HTTPCookie& other = entry.cookie;
            if (other.isSecure && other.name == cookie.name && pathMatches(cookie.path, other.path) &&
                !isExpired(other, now)) {
                return true;
            }
        }
    }
    return false;
}

void CookieStore::remove(const HTTPCookie& cookie) {
    const auto domain = domains_.find(cookie.domain);
    if (domain == domains_.end()) return;
    Entries& entries = domain->second;
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const Entry& entry) { return isSameCookie(entry.cookie, cookie); });
    if (found != entries.end()) erase(entries, found);
    if (entries.empty()) domains_.erase(domain);
}

void CookieStore::clear() {
    for (const auto& [domain, entries] : domains_) {
        for (const Entry& entry : entries) note(entry.cookie);
    }
    domains_.clear();
    count_ = 0;
}

std::vector<HTTPCookie> CookieStore::all(Date now) const {
    std::vector<const Entry*> valid;
    for (const auto& [domain, entries] : domains_) {
        for (const Entry& entry : entries) {
            if (!isExpired(entry.cookie, now)) valid.push_back(&entry);
        }
    }
    std::sort(valid.begin(), valid.end(),
              [](const Entry* a, const Entry* b) { return a->created < b->created; });
    std::vector<HTTPCookie> cookies;
    cookies.reserve(valid.size());
    for (const Entry* const entry : valid) cookies.push_back(entry->cookie);
    return cookies;
}

std::vector<const HTTPCookie*> CookieStore::matching(const CookieTarget& target, Date now) {
    std::vector<Entry*> found;
    std::string_view domain = target.host;
    // The host, then each parent domain.
    while (!domain.empty()) {
        const auto entries = domains_.find(domain);
        const bool isHost = domain.size() == target.host.size();
        if (entries != domains_.end()) {
            for (Entry& entry : entries->second) {
                const HTTPCookie& cookie = entry.cookie;
                if ((isHost || cookie.includesSubdomains) && (target.isSecure || !cookie.isSecure) &&
                    pathMatches(target.path, cookie.path) && !isExpired(cookie, now)) {
                    found.push_back(&entry);
                }
            }
        }
        const auto dot = domain.find('.');
        if (dot == std::string_view::npos) break;
        domain.remove_prefix(dot + 1);
    }
    std::sort(found.begin(), found.end(), [](const Entry* a, const Entry* b) {
        const std::size_t sizeOfA = a->cookie.path.size();
        const std::size_t sizeOfB = b->cookie.path.size();
        return sizeOfA != sizeOfB ? sizeOfA > sizeOfB : a->created < b->created;
    });
    std::vector<const HTTPCookie*> cookies;
    cookies.reserve(found.size());
    for (Entry* const entry : found) {
        entry->used = ++counter_;
        cookies.push_back(&entry->cookie);
    }
    return cookies;
}

void CookieStore::removeExpired(Entries& entries, Date now) {
    for (auto entry = entries.begin(); entry != entries.end();) {
        if (isExpired(entry->cookie, now)) {
            const auto index = entry - entries.begin();
            erase(entries, entry);
            entry = entries.begin() + index;
        } else {
            ++entry;
        }
    }
}

void CookieStore::limitDomain(Entries& entries, Date now) {
    if (entries.size() <= limits_.perDomain) return;
    removeExpired(entries, now);
    while (entries.size() > limits_.perDomain) {
        // Cookies received over http must not displace Secure ones.
        const auto least =
            std::min_element(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) {
                return std::tuple(a.cookie.isSecure, a.used) < std::tuple(b.cookie.isSecure, b.used);
            });
        erase(entries, least);
    }
}

void CookieStore::limitTotal(Date now) {
    if (count_ <= limits_.total) return;
    for (auto& [domain, entries] : domains_) removeExpired(entries, now);
    while (count_ > limits_.total) {
        Entries* from = nullptr;
        std::size_t index = 0;
        for (auto& [domain, entries] : domains_) {
            for (std::size_t i = 0; i < entries.size(); ++i) {
                if (from != nullptr && entries[i].used >= (*from)[index].used) continue;
                from = &entries;
                index = i;
            }
        }
        erase(*from, from->begin() + static_cast<std::ptrdiff_t>(index));
    }
    dropEmptyDomains();
}

void CookieStore::dropEmptyDomains() {
    std::erase_if(domains_, [](const auto& domain) { return domain.second.empty(); });
}

}  // namespace VanticRestKit::detail
