#pragma once

/// \file
/// `Options`: sets options of an easy handle and records whether all were accepted.

#include <curl/curl.h>

namespace VanticRestKit::detail {

class Options {
public:
    explicit Options(CURL* easy) : easy_(easy) {}

    /// libcurl's function is variadic: a number must be a `long` or a `curl_off_t`, as the option requires.
    template <class Value>
    void set(CURLoption option, Value value) {
        // Parenthesised to bypass the macro of the same name, whose type checks a template cannot pass.
        if ((curl_easy_setopt)(easy_, option, value) != CURLE_OK) areAccepted_ = false;
    }

    /// Sets an option that may be rejected without harm.
    template <class Value>
    void trySet(CURLoption option, Value value) {
        static_cast<void>((curl_easy_setopt)(easy_, option, value));
    }

    bool areAccepted() const noexcept { return areAccepted_; }

private:
    CURL* easy_;
    bool areAccepted_ = true;
};

}  // namespace VanticRestKit::detail
