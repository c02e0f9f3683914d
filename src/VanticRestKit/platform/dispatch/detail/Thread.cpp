#include <VanticRestKit/platform/dispatch/detail/Thread.h>

#include <dlfcn.h>
#include <pthread.h>
#include <signal.h>
#include <atomic>
#include <memory>
#include <string>

namespace VanticRestKit::detail {

namespace {

struct Start {
    std::string name;
    Block body;
    sigset_t hostSignals;
};

/// On a library thread, the signal mask of the host thread for which it was started; null on host threads.
thread_local const sigset_t* hostSignals = nullptr;

/// 0 for the default of the C library.
std::atomic<std::size_t> stackSize = 0;

void* run(void* argument) {
    const std::unique_ptr<Start> start(static_cast<Start*>(argument));
    hostSignals = &start->hostSignals;
    pthread_setname_np(pthread_self(), start->name.c_str());
    start->body();
    return nullptr;
}

sigset_t signalsToBlock() {
    sigset_t signals;
    sigfillset(&signals);
    for (const int fault : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGTRAP, SIGABRT, SIGSYS, SIGPROF}) {
        sigdelset(&signals, fault);
    }
    return signals;
}

/// Keeps the binary that contains this code loaded until the process ends: if a host closed a plugin while one of its
/// threads ran, the thread's code would be unmapped.
void stayLoaded() {
    static const bool isDone = [] {
        Dl_info own{};
        if (dladdr(reinterpret_cast<const void*>(&stayLoaded), &own) == 0 || own.dli_fname == nullptr)
            return false;
        // A handle that is never closed. Null for an executable, which stays loaded anyway.
        return dlopen(own.dli_fname, RTLD_NOW | RTLD_NOLOAD | RTLD_NODELETE) != nullptr;
    }();
    static_cast<void>(isDone);
}

std::string shortName(std::string_view name) {
    constexpr std::size_t maxLength = 15;
    return std::string(name.substr(name.size() > maxLength ? name.size() - maxLength : 0));
}

}  // namespace

bool startThread(std::string_view name, Block body) {
    auto start = std::make_unique<Start>(Start{shortName(name), std::move(body), {}});
    stayLoaded();
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) != 0) return false;
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    if (const std::size_t size = stackSize; size != 0) pthread_attr_setstacksize(&attributes, size);

    // A new thread inherits the signal mask of its creator.
    const sigset_t blocked = signalsToBlock();
    sigset_t before;
    pthread_sigmask(SIG_SETMASK, &blocked, &before);
    start->hostSignals = hostSignals != nullptr ? *hostSignals : before;
    pthread_t thread;
    const bool started = pthread_create(&thread, &attributes, &run, start.get()) == 0;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);

    pthread_attr_destroy(&attributes);
    if (started) static_cast<void>(start.release());
    return started;
}

void setThreadStackSize(std::size_t bytes) noexcept { stackSize = bytes; }

HostSignals::HostSignals() noexcept {
    if (hostSignals != nullptr) pthread_sigmask(SIG_SETMASK, hostSignals, nullptr);
}

HostSignals::~HostSignals() {
    if (hostSignals == nullptr) return;
    const sigset_t blocked = signalsToBlock();
    pthread_sigmask(SIG_SETMASK, &blocked, nullptr);
}

}  // namespace VanticRestKit::detail
