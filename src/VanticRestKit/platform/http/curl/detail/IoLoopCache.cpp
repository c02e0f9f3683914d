// How transfers use the cache: before a request is admitted, and when a response is complete.

#include <VanticRestKit/platform/http/curl/detail/IoLoop.h>
#include <VanticRestKit/platform/http/detail/HeaderName.h>
#include <VanticRestKit/platform/http/detail/RedirectRule.h>
#include <VanticRestKit/platform/http/HTTPURLResponse.h>

#include <memory>
#include <utility>

namespace VanticRestKit::detail {

void IoLoop::beginHop(Exchange& exchange) {
    const URLRequestCachePolicy own = exchange.request().cachePolicy();
    const auto policy = own == URLRequestCachePolicy::useProtocolCachePolicy ? usualPolicy_ : own;
    if (!CacheHop::isNeeded(cache_.get(), policy)) {
        enqueue(exchange);
        return;
    }
    exchange.cacheHop = std::make_unique<CacheHop>(cache_, cacheKeys_, exchange.request(),
                                                   cookies_.headerFor(exchange.request()), policy);
    askCache(exchange);
}

void IoLoop::askCache(Exchange& exchange) {
    switch (exchange.cacheHop->ask()) {
        case CacheHop::Step::load: enqueue(exchange); break;
        case CacheHop::Step::refuse: fail(exchange, {URLErrorCode::resourceUnavailable}); break;
        case CacheHop::Step::read: readStore(exchange); break;
        case CacheHop::Step::answer:
            if (exchange.cacheHop->wantsRevalidation()) revalidate(exchange);
            answer(exchange, exchange.cacheHop->takeAnswer());
            break;
    }
}

void IoLoop::readStore(Exchange& exchange) {
    if (storeReads_.isStuck()) {
        exchange.cacheHop->found({});
        askCache(exchange);
        return;
    }
    const std::uint64_t number = storeReads_.begin(exchange.transfer(), now_);
    exchange.cacheHop->read([inbox = inbox_, number](std::vector<StoredPointer> found) {
        inbox->post({.kind = Inbox::Message::Kind::resume, .read = number, .found = std::move(found)});
    });
}

void IoLoop::resume(Inbox::Message message) {
    if (const auto transfer = storeReads_.end(message.read)) resume(*transfer, std::move(message.found));
}

void IoLoop::resume(const Transfer& transfer, std::vector<StoredPointer> found) {
    const auto exchange = exchanges_.find(&transfer);
    // It may have been cancelled.
    if (exchange == exchanges_.end()) return;
    exchange->second->cacheHop->found(std::move(found));
    askCache(*exchange->second);
}

// A redirect from the cache is treated like one from the server.
void IoLoop::answer(Exchange& exchange, HopAnswer found) {
    const HeaderFields& fields = found.answer.fields;
    const auto field = isRedirect(found.answer.status) ? findHeader(fields, "location") : fields.end();
    if (field == fields.end()) {
        end(exchange, outcomeOf(exchange, std::move(found)));
        return;
    }
    // The first of several is used.
    const auto received = exchange.attempt ? exchange.attempt->head.location() : std::nullopt;
    const std::string location = received.value_or(field->second);
    const auto target = URL::make(location, *exchange.request().url());
    const auto action =
        target ? redirectAction(configuration_.redirectPolicy, *exchange.request().url(), *target)
               : RedirectAction::follow;
    const bool asksHost =
        target && action == RedirectAction::follow && configuration_.redirectPolicy.willRedirect;
    if (found.lacksBody && (asksHost || action == RedirectAction::deliver)) {
        // It was stored by a session that followed the redirect without reading its body.
        release(exchange);
        if (exchange.cacheHop->forgetStored()) {
            enqueue(exchange);
        } else {
            fail(exchange, {URLErrorCode::resourceUnavailable});
        }
    } else if (action == RedirectAction::deliver) {
        end(exchange, outcomeOf(exchange, std::move(found)));
    } else if (asksHost) {
        askHost(exchange, std::move(found), location);
    } else {
        follow(exchange, found.answer.status, location);
    }
}

Outcome IoLoop::outcomeOf(const Exchange& exchange, HopAnswer found) {
    Outcome outcome;
    outcome.response = std::make_shared<const HTTPURLResponse>(exchange.request().url(), found.answer.status,
                                                               std::move(found.answer.fields), found.status);
    outcome.data = std::move(found.answer.body);
    return outcome;
}

// Revalidates a stored response in the background, for later requests.
void IoLoop::revalidate(Exchange& exchange) {
    auto transfer = std::make_shared<Transfer>(exchange.request(), URLSession::Completion());
    const Transfer* const key = transfer.get();
    auto made = std::make_unique<Exchange>(std::move(transfer));
    Exchange& background = *made;
    exchanges_.emplace(key, std::move(made));
    background.setInterval(exchange.interval());
    background.cacheHop = std::make_unique<CacheHop>(cache_, cacheKeys_, background.request(),
                                                     cookies_.headerFor(background.request()),
                                                     URLRequestCachePolicy::useProtocolCachePolicy);
    background.cacheHop->revalidate(*exchange.cacheHop);
    loadDeadlines_.start(background, now_);
    enqueue(background);
}

}  // namespace VanticRestKit::detail
