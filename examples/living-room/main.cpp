// A television in the browser: a host of the service, whose screens any browser on this computer can show.
//   living-room --service URL [--port N] [--port-file FILE] [--hls-js FILE]

#include "Context.h"
#include "Routes.h"
#include "Server.h"

#include <charconv>
#include <cstdio>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

using namespace living_room;

namespace {

struct Options {
    std::optional<VanticRestKit::URL> service{};
    std::uint16_t port = 0;
    std::string portFile{};
    std::string hlsFile{};
};

std::optional<Options> optionsOf(int argc, char** argv) {
    Options options;
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string_view name = argv[i];
        const std::string_view value = argv[i + 1];
        if (name == "--service") {
            options.service = VanticRestKit::URL::make(value);
        } else if (name == "--port") {
            const auto read = std::from_chars(value.data(), value.data() + value.size(), options.port);
            if (read.ec != std::errc() || read.ptr != value.data() + value.size()) return std::nullopt;
        } else if (name == "--port-file") {
            options.portFile = value;
        } else if (name == "--hls-js") {
            options.hlsFile = value;
        } else {
            return std::nullopt;
        }
    }
    if (argc % 2 == 0 || !options.service || !options.service->host()) return std::nullopt;
    return options;
}

}  // namespace

int main(int argc, char** argv) {
    const auto options = optionsOf(argc, argv);
    if (!options) {
        std::fprintf(stderr,
                     "usage: living-room --service URL [--port N] [--port-file FILE] [--hls-js FILE]\n");
        return 2;
    }
    Server server(options->port);
    if (server.port() == 0) {
        std::fprintf(stderr, "living-room: port %d cannot be had\n", options->port);
        return 1;
    }
    const Service service(*options->service, server.queue());
    Routes routes(service, {.port = server.port(), .hlsFile = options->hlsFile});

    std::printf("Living room at http://127.0.0.1:%d/\n", server.port());
    std::fflush(stdout);
    if (!options->portFile.empty()) std::ofstream(options->portFile) << server.port() << '\n';
    server.stopOnSignals();
    server.run([&routes](Request request) { return routes.answer(std::move(request)); });
    return 0;
}
