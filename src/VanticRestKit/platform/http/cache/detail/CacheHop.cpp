#include <VanticRestKit/platform/http/cache/detail/CacheHop.h>

#include <VanticRestKit/platform/http/cache/detail/CacheRules.h>
#include <VanticRestKit/platform/http/cache/detail/Vary.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>
#include <VanticRestKit/platform/http/detail/Origin.h>

#include <algorithm>
#include <utility>

namespace VanticRestKit::detail {

namespace {

using Policy = URLRequestCachePolicy;
using Source = HTTPCacheStatus::Source;
using Forwarding = HTTPCacheStatus::Forwarding;

std::string_view fieldOf(const HeaderFields& fields, std::string_view name) {
    const auto found = findHeader(fields, name);
    return found == fields.end() ? std::string_view() : std::string_view(found->second);
}

bool isLossOfNetwork(URLErrorCode code) {
    return code == URLErrorCode::timedOut || code == URLErrorCode::cannotFindHost ||
           code == URLErrorCode::cannotConnectToHost || code == URLErrorCode::networkConnectionLost;
}

}  // namespace

CacheHop::CacheHop(std::shared_ptr<CacheCore> core, CacheKeys& keys, const URLRequest& request,
                   std::string cookie, Policy policy)
    : core_(std::move(core)),
      keys_(keys),
      request_(request),
      policy_(policy),
      cookie_(std::move(cookie)),
      wanted_(request) {
    if (!cookie_.empty()) wanted_.cookie = cookie_;
    status_.hasCache = core_ != nullptr;
    if (core_) begun_ = core_->moment();
}

CacheHop::~CacheHop() {
    if (revalidated_) core_->endRevalidation(revalidated_);
    if (wantsRevalidation_) core_->endRevalidation(stored_);
}

bool CacheHop::isNeeded(const CacheCore* core, Policy policy) {
    return core != nullptr || policy == Policy::returnCacheDataDontLoad ||
           policy == Policy::reloadIgnoringLocalAndRemoteCacheData ||
           policy == Policy::reloadRevalidatingCacheData;
}

bool CacheHop::ignoresStored() const {
    return policy_ == Policy::reloadIgnoringLocalCacheData ||
           policy_ == Policy::reloadIgnoringLocalAndRemoteCacheData;
}

bool CacheHop::acceptsAnyAge() const {
    return policy_ == Policy::returnCacheDataElseLoad || policy_ == Policy::returnCacheDataDontLoad;
}

const CacheKey& CacheHop::key() {
    if (!key_) key_ = keys_.of(wanted_, *request_.url());
    return *key_;
}

CacheHop::Step CacheHop::ask() {
    if (!core_ || ignoresStored()) return load(Forwarding::bypass);
    if (!wanted_.isAnswerable()) {
        return load(wanted_.isGet || wanted_.isHead ? Forwarding::bypass : Forwarding::method);
    }
    return lookUp();
}

CacheHop::Step CacheHop::lookUp() {
    bool hasOthers = false;
    changesSeen_ = core_->changes();
    if (!core_->isEmpty()) stored_ = core_->find(key(), request_, &hasOthers);
    if (!stored_ && core_->hasStore() && !hasRead_) return Step::read;
    if (!stored_) {
        // Responses from the store may be too large for memory.
        for (const StoredPointer& read : read_) {
            if (!fitsVariant(read->variant(), request_)) continue;
            const bool isLater = !stored_ || read->parts().received.wall > stored_->parts().received.wall;
            if (isLater) stored_ = read;
        }
        read_.clear();
    }
    if (!stored_) return load(hasOthers ? Forwarding::varyMiss : Forwarding::uriMiss);
    if (!hasRequestedPart(*stored_, wanted_)) return load(Forwarding::partial);
    return use();
}

// Another load may have stored a response since the last lookup.
void CacheHop::lookUpAgain() {
    if (!stored_ && !core_->isEmpty() && core_->changes() != changesSeen_) {
        stored_ = core_->find(key(), request_);
    }
}

CacheHop::Step CacheHop::use() {
    const CacheTime now = core_->now();
    const bool fresh = isFresh(*stored_, now);
    if (acceptsAnyAge()) return answerStored(fresh ? Source::cache : Source::stale);
    Reuse reuse = reuseOf(*stored_, wanted_, now);
    if (policy_ == Policy::reloadRevalidatingCacheData) {
        reuse = fresh && stored_->control().isImmutable ? Reuse::fresh : Reuse::validate;
    }
    switch (reuse) {
        case Reuse::fresh: return answerStored(Source::cache);
        case Reuse::staleWhileRevalidate:
            wantsRevalidation_ = !wanted_.control.onlyIfCached && core_->beginRevalidation(stored_);
            return answerStored(Source::stale);
        case Reuse::stale: return answerStored(Source::stale);
        case Reuse::validate: break;
    }
    askIfChanged();
    return load(fresh ? Forwarding::request : Forwarding::stale);
}

CacheHop::Step CacheHop::load(Forwarding reason) {
    if (policy_ == Policy::returnCacheDataDontLoad) return Step::refuse;
    if (core_ && wanted_.control.onlyIfCached && !ignoresStored()) return answerUnavailable(reason);
    status_.forwarding = reason;
    if (wanted_.hasControl) return Step::load;
    if (policy_ == Policy::reloadIgnoringLocalAndRemoteCacheData) {
        addControl("no-cache");
        outgoing_->setValue("no-cache", "Pragma");
    } else if (policy_ == Policy::reloadRevalidatingCacheData) {
        addControl("max-age=0");
    }
    return Step::load;
}

void CacheHop::addControl(const char* value) {
    if (!outgoing_) outgoing_ = request_;
    outgoing_->setValue(value, "Cache-Control");
}

void CacheHop::askIfChanged() {
    // If the request has its own range or conditions, the response to them belongs to the client.
    const bool isPlain = wanted_.isGet && wanted_.range.empty() && !wanted_.isConditional();
    if (!isPlain || !stored_->hasValidator()) return;
    if (!outgoing_) outgoing_ = request_;
    addConditions(*outgoing_, *stored_);
    asksIfChanged_ = true;
}

HopAnswer CacheHop::storedAnswer(Source source) {
    core_->countHit();
    const CacheTime now = core_->now();
    status_.source = source;
    status_.timeToLive = std::chrono::floor<std::chrono::seconds>(stored_->lifetime() - stored_->age(now));
    return {.answer = answerOf(*stored_, wanted_, now),
            .status = status_,
            .lacksBody = stored_->parts().lacksBody};
}

CacheHop::Step CacheHop::answerStored(Source source) {
    status_.forwarding = Forwarding::none;
    answer_ = storedAnswer(source);
    return Step::answer;
}

// HTTP prescribes this response for `only-if-cached`.
CacheHop::Step CacheHop::answerUnavailable(Forwarding reason) {
    constexpr std::int64_t gatewayTimeout = 504;
    core_->countMiss();
    status_.source = Source::cache;
    status_.forwarding = reason;
    answer_ = HopAnswer{.answer = {.status = gatewayTimeout}, .status = status_};
    return Step::answer;
}

void CacheHop::read(CacheCore::Found done) { core_->read(key(), std::move(done)); }

void CacheHop::found(std::vector<StoredPointer> stored) {
    hasRead_ = true;
    read_ = std::move(stored);
}

HopAnswer CacheHop::takeAnswer() { return *std::exchange(answer_, std::nullopt); }

void CacheHop::revalidate(CacheHop& other) {
    other.wantsRevalidation_ = false;
    stored_ = revalidated_ = other.stored_;
    status_.forwarding = Forwarding::stale;
    askIfChanged();
}

void CacheHop::noteSent(const std::string& cookie) {
    if (cookie != cookie_) {
        // A response that arrived while this request waited has changed the session's cookies.
        cookie_ = cookie;
        wanted_.cookie = cookie_.empty() ? CacheRequest(request_).cookie : std::string_view(cookie_);
        key_.reset();
        changesSeen_.reset();
        if (stored_) forgetStored();
    }
    if (core_) requested_ = core_->now();
    received_ = {};
}

void CacheHop::noteHead() {
    if (core_) received_ = core_->now();
}

bool CacheHop::mayKeep(const HeaderFields& fields) const {
    if (!core_ || !wanted_.isStorable()) return false;
    if (stored_ || acceptsAnyAge()) return true;
    // This runs for each response, and most have none of these fields. Comparing lengths first rules out most names.
    return std::any_of(fields.begin(), fields.end(), [](const auto& field) {
        const std::string_view name = field.first;
        switch (name.size()) {
            case 4: return sameHeaderName(name, "etag");
            case 7: return sameHeaderName(name, "expires");
            case 13: return sameHeaderName(name, "cache-control") || sameHeaderName(name, "last-modified");
            default: return false;
        }
    });
}

HopAnswer CacheHop::finish(std::int64_t status, HeaderFields fields, std::optional<Data> body) {
    constexpr std::int64_t notModified = 304;
    status_.forwardedStatus = status;
    if (core_) {
        if (status == notModified && asksIfChanged_) return confirmed(fields);
        if (isServerError(status) && stored_ && isUsableOnError(*stored_, wanted_, core_->now()) &&
            hasRequestedPart(*stored_, wanted_)) {
            return storedAnswer(Source::stale);
        }
        if (!revalidated_) core_->countMiss();
        if (!wanted_.isGet && !wanted_.isHead) {
            invalidate(status, fields);
        } else if (wanted_.isHead || status == notModified) {
            freshen(status, fields);
        } else {
            keep(status, fields, body);
        }
    }
    status_.source = Source::network;
    return {
        .answer = {.status = status, .fields = std::move(fields), .body = std::move(body).value_or(Data())},
        .status = status_};
}

HopAnswer CacheHop::confirmed(const HeaderFields& fields) {
    if (!revalidated_) core_->countHit();
    StoredPointer fresh = updated(*stored_, fields, requested_, received_);
    status_.isStored = core_->update(key(), stored_, fresh, begun_);
    status_.source = Source::revalidated;
    return {.answer = confirmedAnswerOf(*fresh, wanted_),
            .status = status_,
            .lacksBody = fresh->parts().lacksBody};
}

void CacheHop::keep(std::int64_t status, const HeaderFields& fields, const std::optional<Data>& body) {
    if (!wanted_.isStorable()) return;
    lookUpAgain();
    if (!mayKeep(fields)) return;
    const auto variant = variantOf(fieldOf(fields, "vary"), request_);
    if (variant) {
        auto response = std::make_shared<const StoredResponse>(ResponseParts{.status = status,
                                                                             .fields = fields,
                                                                             .body = body.value_or(Data()),
                                                                             .lacksBody = !body,
                                                                             .requested = requested_,
                                                                             .received = received_,
                                                                             .variant = *variant});
        const bool isWanted = isWorthStoring(*response) || acceptsAnyAge() || stored_;
        if (isWanted && mayStore(wanted_, *response)) {
            status_.isStored = core_->put(key(), response, request_, begun_);
            return;
        }
    }
    // The new response is not stored, but it makes the stored one obsolete.
    if (stored_ && status < 500) core_->drop(key(), stored_);
}

void CacheHop::freshen(std::int64_t status, const HeaderFields& fields) {
    lookUpAgain();
    if (!stored_) return;
    if (status == 304) {
        // The client's own condition was confirmed. This applies to the stored response only if the validator is the
        // same.
        const std::string_view tag = fieldOf(fields, "etag");
        if (tag.empty() || tag != stored_->etag()) return;
    } else if (status != stored_->status() || status != 200) {
        return;
    } else if (!describesSame(*stored_, fields)) {
        core_->drop(key(), stored_);
        return;
    }
    core_->update(key(), stored_, updated(*stored_, fields, requested_, received_), begun_);
}

void CacheHop::invalidate(std::int64_t status, const HeaderFields& fields) {
    if (!hasChangedTarget(wanted_.isSafe, status)) return;
    core_->invalidate(key());
    const std::string origin = originOf(*request_.url());
    for (const char* name : {"location", "content-location"}) {
        const std::string_view text = fieldOf(fields, name);
        if (text.empty()) continue;
        const auto other = URL::make(text, *request_.url());
        if (other && originOf(*other) == origin) core_->invalidate(keys_.of(wanted_, *other));
    }
}

bool CacheHop::forgetStored() {
    stored_.reset();
    changesSeen_.reset();
    outgoing_.reset();
    asksIfChanged_ = false;
    status_.source = Source::network;
    status_.timeToLive.reset();
    return load(Forwarding::partial) == Step::load;
}

std::optional<HopAnswer> CacheHop::storedFallback(URLErrorCode code) {
    if (!core_ || !stored_ || !isLossOfNetwork(code)) return std::nullopt;
    // A user who explicitly refreshes wants to know that there is no network.
    if (policy_ == Policy::reloadRevalidatingCacheData) return std::nullopt;
    if (!isUsableOffline(*stored_, wanted_, core_->now()) || !hasRequestedPart(*stored_, wanted_)) {
        return std::nullopt;
    }
    return storedAnswer(Source::stale);
}

}  // namespace VanticRestKit::detail
