#pragma once

#include <string>

namespace VanticRestKit::sample {

struct Options {
    int port = 0;  // 0: any free one
    bool tls = false;
    std::string authorityFile;  // empty: the authority's certificate goes to standard output
    bool endWithParent = false;
    double tokenSeconds = 3600;
    bool ownStreams = false;
    bool scenarios = false;
};

/// Reads the command line; ends the program with 2 where it is wrong, with 0 after showing the help.
Options readOptions(int argc, char** argv);

}  // namespace VanticRestKit::sample
