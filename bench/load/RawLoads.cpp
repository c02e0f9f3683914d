#include "RawLoads.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace VanticRestKit::bench {

namespace {

std::size_t collect(char* bytes, std::size_t size, std::size_t count, void* body) {
    static_cast<std::string*>(body)->append(bytes, size * count);
    return size * count;
}

// The headers that the library's session adds to a request, so that both sides send the same bytes and libcurl has the
// same work.
curl_slist* sameHeaders() {
    curl_slist* const codings = curl_slist_append(nullptr, "Accept-Encoding: gzip, deflate, br");
    return curl_slist_append(codings, "User-Agent: VanticRestKit/" VRK_VERSION);
}

}  // namespace

RawLoads::RawLoads(Settings settings)
    : settings_(std::move(settings)), multi_(curl_multi_init()), headers_(sameHeaders()) {
    curl_multi_setopt(multi_, CURLMOPT_MAX_HOST_CONNECTIONS, settings_.connections);
    // By default, libcurl keeps four connections per active handle, so it closes most of them when the last loads end.
    curl_multi_setopt(multi_, CURLMOPT_MAXCONNECTS, settings_.connections);
}

RawLoads::~RawLoads() {
    dropHandles();
    curl_multi_cleanup(multi_);
    curl_slist_free_all(headers_);
}

void RawLoads::dropHandles() {
    for (Load* load : idle_) {
        curl_easy_cleanup(load->handle);
        delete load;
    }
    idle_.clear();
}

void RawLoads::start() {
    Load* load = nullptr;
    if (idle_.empty()) {
        load = new Load{.handle = curl_easy_init()};
    } else {
        load = idle_.back();
        idle_.pop_back();
    }
    load->body.clear();
    CURL* const handle = load->handle;
    curl_easy_setopt(handle, CURLOPT_URL, settings_.url.c_str());
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers_);
    curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, collect);
    curl_easy_setopt(handle, CURLOPT_WRITEDATA, &load->body);
    curl_easy_setopt(handle, CURLOPT_PRIVATE, load);
    curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(handle, CURLOPT_PROXY, "");
    if (!settings_.caBundlePath.empty()) {
        curl_easy_setopt(handle, CURLOPT_CAINFO, settings_.caBundlePath.c_str());
        const long version = settings_.speaksHTTP2 ? CURL_HTTP_VERSION_2TLS : CURL_HTTP_VERSION_1_1;
        curl_easy_setopt(handle, CURLOPT_HTTP_VERSION, version);
        curl_easy_setopt(handle, CURLOPT_PIPEWAIT, settings_.speaksHTTP2 ? 1L : 0L);
    }
    curl_multi_add_handle(multi_, handle);
}

/// Removes a load that has ended; returns whether there was one.
bool RawLoads::finish() {
    int left = 0;
    const CURLMsg* const message = curl_multi_info_read(multi_, &left);
    if (message == nullptr) return false;
    if (message->data.result != CURLE_OK) {
        std::fprintf(stderr, "libcurl: %s\n", curl_easy_strerror(message->data.result));
        std::exit(1);
    }
    CURL* const handle = message->easy_handle;
    Load* load = nullptr;
    curl_easy_getinfo(handle, CURLINFO_PRIVATE, &load);
    curl_multi_remove_handle(multi_, handle);
    idle_.push_back(load);
    return true;
}

void RawLoads::run(std::size_t count, std::size_t atOnce) {
    std::size_t started = 0;
    std::size_t ended = 0;
    for (; started < std::min(count, atOnce); ++started) start();
    while (ended < count) {
        int running = 0;
        curl_multi_perform(multi_, &running);
        for (; finish(); ++ended) {
            if (started == count) continue;
            start();
            ++started;
        }
        if (ended < count) curl_multi_poll(multi_, nullptr, 0, 1000, nullptr);
    }
}

}  // namespace VanticRestKit::bench
