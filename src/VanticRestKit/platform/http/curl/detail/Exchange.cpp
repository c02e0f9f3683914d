#include <VanticRestKit/platform/http/curl/detail/Exchange.h>
#include <VanticRestKit/platform/http/detail/RedirectRule.h>

namespace VanticRestKit::detail {

Exchange::Exchange(std::shared_ptr<Transfer> transfer) : transfer_(std::move(transfer)) {}

Exchange::~Exchange() = default;

bool Exchange::redirect(URLRequest next) {
    redirected_ = std::make_unique<URLRequest>(std::move(next));
    return ++redirects_ <= mostRedirects;
}

void Attempt::moved() { exchange.moved(surroundings.now); }

void Attempt::received() {
    moved();
    if (connection) connection->lastMoved = surroundings.now;
}

void Attempt::readHead() {
    hasHead = true;
    surroundings.admission.learn(exchange, head.isMultiplexed() ? Carriage::many : Carriage::one);
    isRedirect = VanticRestKit::detail::isRedirect(head.status()) && head.location().has_value();
    if (isRedirect) return;
    Decoding decoding = decodingFor(head.value("content-encoding").value_or(""));
    // Whoever names codings of their own can undo them.
    hasUnknownCoding = !decoding.isKnown && !exchange.request().value("accept-encoding");
    body.expect(head.contentLength(), std::move(decoding));
}

}  // namespace VanticRestKit::detail
