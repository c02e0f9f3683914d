#pragma once

/// \file
/// `EasyPool`: easy handles that wait for their next request.

#include <curl/curl.h>

#include <cstddef>
#include <vector>

namespace VanticRestKit::detail {

/// Keeps some handles, so that not every request makes one. For one thread.
class EasyPool {
public:
    EasyPool() = default;
    EasyPool(const EasyPool&) = delete;
    EasyPool& operator=(const EasyPool&) = delete;
    ~EasyPool() {
        for (CURL* easy : idle_) curl_easy_cleanup(easy);
    }

    /// A handle without any option set; null where there is no memory.
    CURL* take() {
        if (idle_.empty()) return curl_easy_init();
        CURL* const easy = idle_.back();
        idle_.pop_back();
        return easy;
    }

    /// Takes back a handle that is in no multi handle.
    void give(CURL* easy) {
        if (easy == nullptr) return;
        if (idle_.size() == mostIdle) {
            curl_easy_cleanup(easy);
            return;
        }
        // Nothing of one request may reach the next.
        curl_easy_reset(easy);
        idle_.push_back(easy);
    }

private:
    static constexpr std::size_t mostIdle = 64;

    std::vector<CURL*> idle_;
};

}  // namespace VanticRestKit::detail
