// A load in an asio coroutine. Such coroutines can only await asio operations, so `load` turns a load into one.
//   recipe_asio BASE-URL

#include "Host.h"

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>

// Clang with libstdc++: asio does not detect coroutine support by itself.
#define ASIO_HAS_CO_AWAIT 1
#define ASIO_HAS_STD_COROUTINE 1

#include <asio/awaitable.hpp>
#include <asio/co_spawn.hpp>
#include <asio/detached.hpp>
#include <asio/executor_work_guard.hpp>
#include <asio/io_context.hpp>
#include <asio/post.hpp>
#include <asio/use_awaitable.hpp>

#include <chrono>
#include <cstdio>
#include <memory>
#include <utility>

using namespace VanticRestKit;
using namespace std::chrono_literals;

template <class T>
asio::awaitable<Result<T, LoaderError>> load(Resource<T> resource, LoadOptions options) {
    using Outcome = Result<T, LoaderError>;
    const auto begin = [resource, options](auto handler) {
        const auto executor = asio::get_associated_executor(handler);
        auto kept = std::make_shared<decltype(handler)>(std::move(handler));
        // Keeps the loop running while the load is in progress.
        auto work = asio::make_work_guard(executor);
        resource
            .start(options,
                   [kept, executor, work](Outcome outcome) {
                       asio::post(executor, [kept, outcome = std::move(outcome)]() mutable {
                           std::move (*kept)(std::move(outcome));
                       });
                   })
            .detach();
    };
    return asio::async_initiate<const asio::use_awaitable_t<>&, void(Outcome)>(begin, asio::use_awaitable);
}

asio::awaitable<void> showTime(recipes::Host host, int& code) {
    const auto resource = Endpoint::Time(host);
    const LoadOptions options{.deadline = 5s};
    const Result<double, LoaderError> time = co_await load(*resource, options);
    if (time) std::printf("%.0f\n", *time);
    code = time ? 0 : 1;
}

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    if (!host) return 2;
    asio::io_context io;
    int code = 1;
    asio::co_spawn(io, showTime(*host, code), asio::detached);
    io.run();
    return code;
}
