// The tasks of LibraryHost.cpp with only libcurl.

#include "../load/RawLoads.h"
#include "HostMemory.h"

#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace VanticRestKit::bench;

int main(int count, char** arguments) {
    if (count < 3) return 2;
    const std::string_view task = arguments[1];
    curl_global_init(CURL_GLOBAL_DEFAULT);
    if (task == "first") {
        RawLoads({.url = arguments[2], .connections = 6}).run(1, 1);
    } else if (task == "home") {
        // The handle keeps the body.
        RawLoads loads({.url = arguments[2], .connections = 6});
        loads.run(1, 1);
        printHostMemory();
    } else if (task == "connections" && count > 4) {
        const std::string url = arguments[2];
        const long connections = std::atol(arguments[3]);
        RawLoads loads(
            {.url = url, .caBundlePath = arguments[4], .connections = connections, .speaksHTTP2 = false});
        loads.run(1, 1);
        loads.dropHandles();
        printHostMemory();
        loads.setURL(url + "/together/" + arguments[3]);
        loads.run(static_cast<std::size_t>(connections), static_cast<std::size_t>(connections));
        printHostMemory();
        loads.dropHandles();
        printHostMemory();
    }
}
