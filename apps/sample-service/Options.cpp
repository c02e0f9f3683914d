#include "Options.h"

#include <CLI/CLI.hpp>
#include <cstdlib>

namespace sample {

Options readOptions(int argc, char** argv) {
    Options options;
    CLI::App app{
        "Plays the service on loopback with a made-up catalogue.\n"
        "The first line that it prints is its base URL. It ends on SIGTERM, SIGINT or POST /_control/stop."};
    app.add_option("--port", options.port, "Port to listen on; 0 picks a free one")->check(CLI::Range(0, 65535));
    app.add_flag("--tls", options.tls, "Serve HTTPS with a certificate made at start");
    app.add_option("--ca-out", options.authorityFile,
                   "With --tls: where to write the certificate (PEM) that a client has to trust; "
                   "left out, it is printed behind the base URL")
        ->needs("--tls");
    app.add_flag("--end-with-parent", options.endWithParent, "End when the process that started this one ends");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        std::exit(app.exit(error) == 0 ? 0 : 2);
    }
    return options;
}

}  // namespace sample
