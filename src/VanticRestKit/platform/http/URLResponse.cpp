#include <VanticRestKit/platform/http/URLResponse.h>

namespace VanticRestKit {

// The destructor is defined here so that the class has its table of virtual functions in one place.
URLResponse::~URLResponse() = default;

const HTTPURLResponse* URLResponse::asHTTP() const noexcept { return nullptr; }

}  // namespace VanticRestKit
