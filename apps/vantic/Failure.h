#pragma once

#include <string>

namespace vantic {

/// Thrown for wrong usage: the program says what in one line and ends with 2.
struct UsageError {
    std::string message;
};

/// Thrown if the request, the service or the document failed: the program says what in one line and ends with 1.
struct Failed {
    std::string message;
};

/// Thrown if what failed has been reported already: the program ends with 1.
struct FailedAndReported {};

/// Thrown for `-h` or `--help` among the words of a command: the program prints the help that belongs to them.
struct HelpRequested {};

/// What is said if the library can build no request.
constexpr const char* noRequest = "no request can be made of this";

}  // namespace vantic
