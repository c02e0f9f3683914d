#pragma once

#include <string>

namespace vantic {

/// Thrown for wrong usage: the program says what in one line and ends with 2.
struct UsageError {
    std::string message;
};

/// Thrown where the request, the service or the document failed: the program says what in one line and ends
/// with 1.
struct Failed {
    std::string message;
};

/// What is said where the library can build no request.
constexpr const char* noRequest = "no request can be made of this";

}  // namespace vantic
