// A television in the browser: a host of the service, whose screens any browser on this computer can show.
//   living-room SERVICE [PORT [HLS_JS]]      SERVICE is an address; port 0, the default, is any free one

#include "pages/Pages.h"
#include "Server.h"

#include <cstdio>

using namespace living_room;

int main(int argc, char** argv) {
    const auto address = argc > 1 ? URL::make(argv[1]) : std::nullopt;
    const auto port = numberIn(argc > 2 ? argv[2] : "0");
    const std::string hlsFile = argc > 3 ? argv[3] : "";
    if (argc > 4 || !address || !address->host() || !port || *port > 65'535) {
        std::fprintf(stderr, "usage: living-room SERVICE [PORT [HLS_JS]]\n");
        return 2;
    }
    Server server(static_cast<std::uint16_t>(*port));
    if (server.port() == 0) {
        std::fprintf(stderr, "living-room: port %s is not available\n", argv[2]);
        return 1;
    }
    const Service service(*address, server.queue());
    Pages pages(service, server.port(), hlsFile);

    std::printf("Living room at http://127.0.0.1:%d/\n", server.port());
    std::fflush(stdout);
    server.stopOnSignals();
    server.run([&pages](Request request) { return pages.answer(std::move(request)); });
    return 0;
}
