// What follows from a change of the network.

#include <VanticRestKit/platform/http/curl/detail/IoLoop.h>

#include <string>
#include <vector>

namespace VanticRestKit::detail {

// What is on a connection from an address that is gone would wait until its time is up, and so would the next request
// that libcurl puts there. Names may stand for other addresses in the new network.
void IoLoop::leaveLostAddresses() {
    const std::vector<std::string> lost = ownAddresses_.takeLost(now_);
    if (lost.empty()) return;
    for (const std::string& address : lost) connections_.shutDownFrom(address);
    admission_.forgetAddresses();
    // libcurl is to see the ends before it gets the next request.
    int running = 0;
    curl_multi_perform(multi_, &running);
}

// The next load is not to try for a minute what did not answer this one: the host may have moved.
void IoLoop::forgetDeadAddress(const Exchange& exchange) {
    const bool hasTried = exchange.attempt && !exchange.attempt->opened.empty();
    if (hasTried && exchange.attempt->sendings == 0) admission_.forgetAddress(exchange);
}

}  // namespace VanticRestKit::detail
