// How the I/O thread reacts to a change of the network.

#include <VanticRestKit/platform/http/curl/detail/IoLoop.h>

#include <string>
#include <vector>

namespace VanticRestKit::detail {

// Requests on a connection from an address that the machine no longer has would wait until they time out, and so would
// the next request that libcurl puts there. Names may also resolve to other addresses in the new network.
void IoLoop::closeLostAddresses() {
    const std::vector<std::string> lost = ownAddresses_.takeLost(now_);
    if (lost.empty()) return;
    for (const std::string& address : lost) connections_.shutDownFrom(address);
    admission_.forgetAddresses();
    // Let libcurl notice the closed connections before it gets the next request.
    int running = 0;
    curl_multi_perform(multi_, &running);
}

// Forgets the address if no connection to it succeeded: otherwise further loads would use it for up to a minute,
// although the host may have moved.
void IoLoop::forgetDeadAddress(const Exchange& exchange) {
    const bool hasTried = exchange.attempt && !exchange.attempt->opened.empty();
    if (hasTried && exchange.attempt->timesSent == 0) admission_.forgetAddress(exchange);
}

}  // namespace VanticRestKit::detail
