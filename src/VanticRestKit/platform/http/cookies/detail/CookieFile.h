#pragma once

/// \file
/// `CookieFile`: the file of a cookie storage.

#include <VanticRestKit/platform/dispatch/DispatchQueue.h>
#include <VanticRestKit/platform/http/cookies/HTTPCookie.h>
#include <VanticRestKit/platform/http/cookies/HTTPCookieStorage.h>

#include <memory>
#include <string>
#include <vector>

namespace VanticRestKit::detail {

/// Reads and writes the file. Problems are reported on `queue()`.
class CookieFile {
public:
    explicit CookieFile(HTTPCookieFile file);

    /// The cookies in the file; none if there is no file. A file that is not a valid cookie file is renamed; one that
    /// cannot be read is never written. Called once, before the first `write`.
    std::vector<HTTPCookie> read();

    /// Replaces the file. Blocks until it is on disk. Only on the queue.
    void write(const std::vector<HTTPCookie>& cookies);

    const DispatchQueue& queue() const noexcept { return queue_; }

private:
    using OnProblem = UniqueFunction<void(Error)>;

    void report(int code, const char* what, int errorNumber);
    bool replace(const std::string& text);

    const std::string path_;
    const std::shared_ptr<OnProblem> onProblem_;
    const DispatchQueue queue_{"vrk.http.cookies"};
    bool isUsable_ = true;
};

}  // namespace VanticRestKit::detail
