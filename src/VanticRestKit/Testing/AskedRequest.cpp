#include <VanticRestKit/Testing/AskedRequest.h>

namespace VanticRestKit::Testing {

std::string AskedRequest::method() const { return request.httpMethod().value_or("GET"); }

std::string AskedRequest::path() const { return request.url() ? request.url()->percentEncodedPath() : ""; }

std::string AskedRequest::query() const {
    return request.url() ? request.url()->query().value_or("") : std::string();
}

std::string AskedRequest::body() const {
    return request.httpBody() ? std::string(request.httpBody()->view()) : std::string();
}

std::string AskedRequest::line() const {
    std::string line = method() + " " + path();
    if (const std::string items = query(); !items.empty()) line.append("?").append(items);
    return line;
}

}  // namespace VanticRestKit::Testing
