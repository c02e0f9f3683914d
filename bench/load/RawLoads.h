#pragma once

#include <curl/curl.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace VanticRestKit::bench {

/// Loads with only libcurl's multi interface, on the calling thread: the minimum cost of any client based on it. Bodies
/// are collected; easy handles and connections are reused.
class RawLoads {
public:
    struct Settings {
        std::string url{};
        /// The trusted root certificates. If set, HTTP/2 is requested, and requests wait to share a connection.
        std::string caBundlePath{};
        /// The maximum number of connections, active or idle.
        long connections = 0;
        bool speaksHTTP2 = true;
    };

    explicit RawLoads(Settings settings);
    ~RawLoads();
    RawLoads(const RawLoads&) = delete;
    RawLoads& operator=(const RawLoads&) = delete;

    void setURL(std::string url) { settings_.url = std::move(url); }

    /// Loads `count` times, `atOnce` at a time.
    void run(std::size_t count, std::size_t atOnce);

    /// Destroys the idle easy handles and their bodies. Connections stay open.
    void dropHandles();

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
