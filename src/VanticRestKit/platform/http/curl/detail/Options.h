#pragma once

/// \file
/// `Options`: sets options of an easy handle and remembers whether all were taken.

#include <curl/curl.h>

namespace VanticRestKit::detail {

class Options {
public:
    explicit Options(CURL* easy) : easy_(easy) {}

    /// libcurl takes its options through an ellipsis: a number must be a `long` or a `curl_off_t`, as the
    /// option says.
    template <class Value>
    void set(CURLoption option, Value value) {
        // The macro of the same name checks types with tests that a template cannot pass.
        if ((curl_easy_setopt)(easy_, option, value) != CURLE_OK) areTaken_ = false;
    }

    /// Sets an option that may be refused without harm.
    template <class Value>
    void trySet(CURLoption option, Value value) {
        static_cast<void>((curl_easy_setopt)(easy_, option, value));
    }

    bool areTaken() const noexcept { return areTaken_; }

private:
    CURL* easy_;
    bool areTaken_ = true;
};

}  // namespace VanticRestKit::detail
