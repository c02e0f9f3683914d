#pragma once

#include <string>

namespace vantic {

/// Thrown for wrong usage. The program prints one line and ends with 2.
struct UsageError {
    std::string message;
};

/// Thrown if the request, the service or the document failed. The program prints one line and ends with 1.
struct Failed {
    std::string message;
};

/// Thrown if the failure has already been reported. The program ends with 1.
struct FailedAndReported {};

/// Thrown for `-h` or `--help` among the arguments of a command. The program prints the matching help.
struct HelpRequested {};

/// The message if the library cannot build a request.
constexpr const char* noRequest = "no request can be made of this";

}  // namespace vantic
