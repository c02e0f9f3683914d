#pragma once

/// \file
/// `Task`, `whenAll`, `whenAny` and `blockOn`: a small coroutine library for programs that have none. Nothing else in
/// this library needs it; the umbrella header does not include it.

#include <VanticRestKit/platform/async/LoadFuture.h>

#include <atomic>
#include <coroutine>
#include <cstddef>
#include <exception>
#include <memory>
#include <optional>
#include <stop_token>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace VanticRestKit {

template <class T = void>
class Task;

namespace detail {

/// The value of a task without a value.
template <class T>
using TaskValue = std::conditional_t<std::is_void_v<T>, std::monostate, T>;

/// The type-independent part of a task's promise: its continuation and its exception.
class TaskPromiseBase {
public:
    std::suspend_always initial_suspend() const noexcept { return {}; }

    auto final_suspend() const noexcept {
        struct ResumeWaiting {
            std::coroutine_handle<> waiting;
            bool await_ready() const noexcept { return false; }
            std::coroutine_handle<> await_suspend(std::coroutine_handle<>) const noexcept { return waiting; }
            void await_resume() const noexcept {}
        };
        return ResumeWaiting{waiting_};
    }

    void unhandled_exception() noexcept { thrown_ = std::current_exception(); }

    void setWaiting(std::coroutine_handle<> waiting) noexcept { waiting_ = waiting; }

protected:
    void rethrow() const {
        if (thrown_) std::rethrow_exception(thrown_);
    }

private:
    std::coroutine_handle<> waiting_ = std::noop_coroutine();
    std::exception_ptr thrown_{};
};

template <class T>
class TaskPromise final : public TaskPromiseBase {
public:
    Task<T> get_return_object() noexcept;
    template <class U>
    requires std::is_convertible_v<U, T>
    void return_value(U&& value) { value_.emplace(std::forward<U>(value)); }

    T take() {
        rethrow();
        return *std::move(value_);
    }

private:
    std::optional<T> value_;
};

template <>
class TaskPromise<void> final : public TaskPromiseBase {
public:
    Task<void> get_return_object() noexcept;
    void return_void() const noexcept {}
    void take() const { rethrow(); }
};

}  // namespace detail

/// A coroutine that starts when it is awaited and returns a `T`. Move-only; await it once.
///
/// It runs on the awaiting thread until it suspends, then wherever it is resumed. An exception that leaves it is
/// rethrown where it is awaited. Destroying a task destroys its coroutine, which cancels the load that it awaits; see
/// `LoadAwaitable` on destroying a coroutine.
///
/// ```cpp
/// Task<std::size_t> seriesOf(Resource<Show> resource) {
///     const auto show = co_await resource.value();
///     co_return show ? show->series.size() : 0;
/// }
/// ```
template <class T>
class [[nodiscard]] Task {
public:
    /// For the compiler.
    using promise_type = detail::TaskPromise<T>;

    /// Takes over the coroutine of `other`, which is then empty.
    Task(Task&& other) noexcept : coroutine_(std::exchange(other.coroutine_, nullptr)) {}
    /// Destroys the coroutine held and takes over that of `other`.
    Task& operator=(Task&& other) noexcept {
        Task outgoing(std::move(*this));
        coroutine_ = std::exchange(other.coroutine_, nullptr);
        return *this;
    }
    ~Task() {
        if (coroutine_) coroutine_.destroy();
    }

    /// For `co_await`.
    bool await_ready() const noexcept { return false; }
    /// For `co_await`.
    std::coroutine_handle<> await_suspend(std::coroutine_handle<> waiting) noexcept {
        coroutine_.promise().setWaiting(waiting);
        return coroutine_;
    }
    /// For `co_await`: the value of the task.
    T await_resume() { return coroutine_.promise().take(); }

private:
    friend promise_type;

    explicit Task(std::coroutine_handle<promise_type> coroutine) noexcept : coroutine_(coroutine) {}

    std::coroutine_handle<promise_type> coroutine_;
};

namespace detail {

template <class T>
Task<T> TaskPromise<T>::get_return_object() noexcept {
    return Task<T>(std::coroutine_handle<TaskPromise>::from_promise(*this));
}

inline Task<void> TaskPromise<void>::get_return_object() noexcept {
    return Task<void>(std::coroutine_handle<TaskPromise>::from_promise(*this));
}

/// Counts the tasks of a `whenAll` and resumes its awaiter.
class TaskLatch {
public:
    explicit TaskLatch(std::size_t count) noexcept : left_(count + 1) {}

    /// False if all tasks have already ended, so that there is nothing to wait for.
    bool wait(std::coroutine_handle<> waiting) noexcept {
        waiting_ = waiting;
        return left_.fetch_sub(1, std::memory_order_acq_rel) != 1;
    }
    /// The coroutine to resume when one more task has ended.
    std::coroutine_handle<> arrive() noexcept {
        return left_.fetch_sub(1, std::memory_order_acq_rel) == 1 ? waiting_ : std::noop_coroutine();
    }

private:
    std::atomic<std::size_t> left_;
    std::coroutine_handle<> waiting_ = std::noop_coroutine();
};

/// Called when a runner has finished and may be destroyed. Returns the coroutine to resume.
struct Arrival {
    std::coroutine_handle<> (*arrive)(void* context) noexcept = nullptr;
    void* context = nullptr;
};

/// Runs one task to its end and notifies its starter.
class TaskRunner {
public:
    class promise_type {
    public:
        TaskRunner get_return_object() noexcept {
            return TaskRunner(std::coroutine_handle<promise_type>::from_promise(*this));
        }
        std::suspend_always initial_suspend() const noexcept { return {}; }
        auto final_suspend() const noexcept {
            struct Arrive {
                Arrival arrival;
                bool await_ready() const noexcept { return false; }
                std::coroutine_handle<> await_suspend(std::coroutine_handle<>) const noexcept {
                    return arrival.arrive(arrival.context);
                }
                void await_resume() const noexcept {}
            };
            return Arrive{arrival};
        }
        void return_void() const noexcept {}
        // An exception stays in the task.
        [[noreturn]] void unhandled_exception() const noexcept { std::terminate(); }

        Arrival arrival{};
    };

    explicit TaskRunner(std::coroutine_handle<promise_type> coroutine) noexcept : coroutine_(coroutine) {}
    TaskRunner(TaskRunner&& other) noexcept : coroutine_(std::exchange(other.coroutine_, nullptr)) {}
    TaskRunner& operator=(TaskRunner&&) = delete;
    ~TaskRunner() {
        if (coroutine_) coroutine_.destroy();
    }

    void start(Arrival arrival) const {
        coroutine_.promise().arrival = arrival;
        coroutine_.resume();
    }

private:
    std::coroutine_handle<promise_type> coroutine_;
};

/// Starts runners and waits until all have finished.
class StartAll {
public:
    explicit StartAll(std::vector<TaskRunner>& runners) noexcept
        : runners_(runners), latch_(runners.size()) {}

    bool await_ready() const noexcept { return false; }
    bool await_suspend(std::coroutine_handle<> waiting) {
        for (const TaskRunner& runner : runners_) runner.start({&arrived, &latch_});
        return latch_.wait(waiting);
    }
    void await_resume() const noexcept {}

private:
    static std::coroutine_handle<> arrived(void* latch) noexcept {
        return static_cast<TaskLatch*>(latch)->arrive();
    }

    std::vector<TaskRunner>& runners_;
    TaskLatch latch_;
};

/// Completes when the task has ended, without taking its value.
template <class T>
struct TaskEnd {
    Task<T>& task;
    bool await_ready() const noexcept { return false; }
    std::coroutine_handle<> await_suspend(std::coroutine_handle<> waiting) const noexcept {
        return task.await_suspend(waiting);
    }
    void await_resume() const noexcept {}
};

template <class T>
TaskRunner runToEnd(Task<T>& task) {
    co_await TaskEnd<T>{task};
}

/// Runs a task to its end and records which one was first.
template <class T>
TaskRunner raceToEnd(Task<T>& task, std::size_t index, std::atomic<std::size_t>& first, std::size_t none,
                     std::stop_source& stop) {
    co_await TaskEnd<T>{task};
    std::size_t expected = none;
    if (first.compare_exchange_strong(expected, index)) stop.request_stop();
}

template <class T>
TaskValue<T> takeValue(Task<T>& task) {
    if constexpr (std::is_void_v<T>) {
        task.await_resume();
        return {};
    } else {
        return task.await_resume();
    }
}

/// The event that `blockOn` waits for.
class BlockingWait final : public FutureState {
public:
    static std::coroutine_handle<> arrived(void* wait) noexcept {
        static_cast<BlockingWait*>(wait)->ready();
        return std::noop_coroutine();
    }
};

}  // namespace detail

/// Runs all tasks concurrently and returns their values in order. An exception is rethrown when all have ended.
template <class T>
Task<std::vector<detail::TaskValue<T>>> whenAll(std::vector<Task<T>> tasks) {
    std::vector<detail::TaskRunner> runners;
    runners.reserve(tasks.size());
    for (Task<T>& task : tasks) runners.push_back(detail::runToEnd(task));
    co_await detail::StartAll(runners);
    std::vector<detail::TaskValue<T>> values;
    values.reserve(tasks.size());
    for (Task<T>& task : tasks) values.push_back(detail::takeValue(task));
    co_return values;
}

/// The same for tasks of different types. A task without a value returns a `std::monostate`.
template <class... T>
Task<std::tuple<detail::TaskValue<T>...>> whenAll(Task<T>... tasks) {
    std::vector<detail::TaskRunner> runners;
    runners.reserve(sizeof...(T));
    (runners.push_back(detail::runToEnd(tasks)), ...);
    co_await detail::StartAll(runners);
    co_return std::tuple<detail::TaskValue<T>...>{detail::takeValue(tasks)...};
}

/// The index and the value of the task that ended first.
template <class T>
struct FirstEnded {
    /// The index of the task.
    std::size_t index = 0;
    /// The value of the task.
    detail::TaskValue<T> value{};
};

/// Runs all tasks concurrently and returns the value of the one that ends first. It then requests stop on `stop`, whose
/// token the tasks pass to their loads, and completes when all have ended. `tasks` must not be empty.
template <class T>
Task<FirstEnded<T>> whenAny(std::vector<Task<T>> tasks, std::stop_source stop) {
    const std::size_t none = tasks.size();
    std::atomic<std::size_t> first{none};
    std::vector<detail::TaskRunner> runners;
    runners.reserve(tasks.size());
    for (std::size_t i = 0; i < tasks.size(); ++i) {
        runners.push_back(detail::raceToEnd(tasks[i], i, first, none, stop));
    }
    co_await detail::StartAll(runners);
    const std::size_t index = first.load();
    co_return FirstEnded<T>{index, detail::takeValue(tasks.at(index))};
}

/// Runs `task` and blocks the calling thread until it has ended: for `main` and for tests. Never call it on a queue on
/// which the task has to resume: it would wait forever.
template <class T>
T blockOn(Task<T> task) {
    detail::BlockingWait wait;
    const detail::TaskRunner runner = detail::runToEnd(task);
    runner.start({&detail::BlockingWait::arrived, &wait});
    wait.wait();
    return task.await_resume();
}

}  // namespace VanticRestKit
