#pragma once

#include <curl/curl.h>

#include <cstddef>
#include <string>
#include <vector>

namespace VanticRestKit::bench {

/// Loads with nothing but libcurl's multi interface, on the calling thread: what any client built on it costs
/// at the least. Bodies are collected, easy handles and connections used again.
class RawLoads {
public:
    struct Settings {
        std::string url{};
        /// Roots to be trusted; then HTTP/2 is asked for, and requests wait to share a connection.
        std::string caBundlePath{};
        long connections = 0;
    };

    explicit RawLoads(Settings settings);
    ~RawLoads();
    RawLoads(const RawLoads&) = delete;
    RawLoads& operator=(const RawLoads&) = delete;

    /// Loads `count` times, `atOnce` at a time.
    void run(std::size_t count, std::size_t atOnce);

private:
    struct Load {
        CURL* handle = nullptr;
        std::string body{};
    };

    void start();
    bool finish();

    Settings settings_;
    CURLM* multi_;
    curl_slist* headers_;
    std::vector<Load*> idle_;
};

}  // namespace VanticRestKit::bench
