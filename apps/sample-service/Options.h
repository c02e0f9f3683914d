#pragma once

#include <string>

namespace VanticRestKit::sample {

struct Options {
    int port = 0;  // 0 for any free port
    bool tls = false;
    std::string authorityFile;  // if empty, the authority's certificate is written to standard output
    bool endWithParent = false;
    double tokenSeconds = 3600;
    bool ownStreams = false;
    bool scenarios = false;
};

/// Parses the command line. Ends the program with 2 if it is wrong, and with 0 after printing the help.
Options readOptions(int argc, char** argv);

}  // namespace VanticRestKit::sample
