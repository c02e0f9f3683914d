#include "Options.h"

#include <getopt.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace VanticRestKit::sample {

namespace {

constexpr const char* help =
    "sample-service [--port N] [--tls [--ca-out FILE]] [--token-seconds N] [--own-streams] [--scenarios]\n"
    "               [--end-with-parent]\n"
    "Simulates the service on loopback, with a fictional catalogue. Its first line of output is its base "
    "URL.\n"
    "It stops on SIGTERM, SIGINT or POST /_control/stop.\n"
    "  --port N            port to listen on; 0, the default, picks a free one\n"
    "  --tls               serve HTTPS with a certificate created at start\n"
    "  --ca-out FILE       where to write the certificate (PEM) that a client has to trust;\n"
    "                      default: printed after the base URL\n"
    "  --token-seconds N   the lifetime of tokens; default: 3600\n"
    "  --own-streams       refer to this service in the URLs of all streams and captions\n"
    "  --scenarios         enable /control: one fault for all responses, and a log of how requests ended\n"
    "  --end-with-parent   stop when the parent process ends\n";

[[noreturn]] void refuse(const char* why) {
    std::fprintf(stderr, "sample-service: %s; see --help\n", why);
    std::exit(2);
}

int readPort(const char* text) {
    char* end = nullptr;
    const long port = std::strtol(text, &end, 10);
    if (end == text || *end != '\0' || port < 0 || port > 65535) refuse("--port takes a number up to 65535");
    return static_cast<int>(port);
}

double readSeconds(const char* text) {
    char* end = nullptr;
    const double seconds = std::strtod(text, &end);
    if (end == text || *end != '\0' || !std::isfinite(seconds)) refuse("--token-seconds takes a number");
    return seconds;
}

}  // namespace

Options readOptions(int argc, char** argv) {
    const option known[] = {{"port", required_argument, nullptr, 'p'},
                            {"tls", no_argument, nullptr, 't'},
                            {"ca-out", required_argument, nullptr, 'c'},
                            {"token-seconds", required_argument, nullptr, 's'},
                            {"own-streams", no_argument, nullptr, 'o'},
                            {"scenarios", no_argument, nullptr, 'f'},
                            {"end-with-parent", no_argument, nullptr, 'e'},
                            {"help", no_argument, nullptr, 'h'},
                            {nullptr, 0, nullptr, 0}};
    Options options;
    opterr = 0;
    for (int found; (found = getopt_long(argc, argv, "", known, nullptr)) != -1;) {
        switch (found) {
            case 'p': options.port = readPort(optarg); break;
            case 't': options.tls = true; break;
            case 'c': options.authorityFile = optarg; break;
            case 's': options.tokenSeconds = readSeconds(optarg); break;
            case 'o': options.ownStreams = true; break;
            case 'f': options.scenarios = true; break;
            case 'e': options.endWithParent = true; break;
            case 'h': std::fputs(help, stdout); std::exit(0);
            default: refuse("unknown option, or one without its value");
        }
    }
    if (optind < argc) refuse("unexpected argument");
    if (!options.authorityFile.empty() && !options.tls) refuse("--ca-out goes with --tls");
    return options;
}

}  // namespace VanticRestKit::sample
