#pragma once

/// \file
/// `Detached`: a coroutine whose end is not awaited.

#include <coroutine>
#include <exception>

namespace VanticRestKit::test {

/// A coroutine that starts at once and is destroyed at its end. It must not throw.
struct Detached {
    struct promise_type {
        Detached get_return_object() const noexcept { return {}; }
        std::suspend_never initial_suspend() const noexcept { return {}; }
        std::suspend_never final_suspend() const noexcept { return {}; }
        void return_void() const noexcept {}
        void unhandled_exception() const noexcept { std::terminate(); }
    };
};

}  // namespace VanticRestKit::test
