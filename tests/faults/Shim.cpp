#include "Shim.h"

#include <execinfo.h>
#include <malloc.h>
#include <unistd.h>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>

// The C library's own functions, which it exports for programs that replace malloc.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* memory, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);
}

namespace VanticRestKit::test {

namespace {

constinit std::atomic<bool> isArmed = false;
constinit std::atomic<bool> isDone = false;
constinit bool isTraced = false;
constinit Fault wanted;
constinit std::array<std::atomic<std::uint64_t>, callCount> counts{};
constinit std::atomic<std::int64_t> bytes = 0;

// The default TLS model may allocate on first use.
[[gnu::tls_model("initial-exec")]] constinit thread_local int exemptions = 0;

std::atomic<std::uint64_t>& counterOf(Call call) { return counts[static_cast<std::size_t>(call)]; }

void trace() noexcept {
    const Exempt exempt;
    constexpr int maxFrames = 60;
    std::array<void*, maxFrames> frames;
    backtrace_symbols_fd(frames.data(), backtrace(frames.data(), maxFrames), STDERR_FILENO);
}

void* noted(void* memory) noexcept {
    if (memory != nullptr) bytes.fetch_add(static_cast<std::int64_t>(malloc_usable_size(memory)));
    return memory;
}

void forgotten(void* memory) noexcept {
    if (memory != nullptr) bytes.fetch_sub(static_cast<std::int64_t>(malloc_usable_size(memory)));
}

}  // namespace

void arm(const Fault& fault, bool traces) {
    wanted = fault;
    isTraced = traces;
    isDone = false;
    for (auto& count : counts) count = 0;
    isArmed = true;
}

void disarm() { isArmed = false; }

std::uint64_t countOf(Call call) { return counterOf(call); }

bool hasFailed() { return isDone; }

std::int64_t liveBytes() { return bytes; }

Exempt::Exempt() { ++exemptions; }

Exempt::~Exempt() { --exemptions; }

bool isToFail(Call call) noexcept {
    if (!isArmed.load(std::memory_order_acquire) || exemptions > 0) return false;
    const std::uint64_t number = counterOf(call).fetch_add(1) + 1;
    if (call != wanted.call || number != wanted.number) return false;
    isDone = true;
    if (isTraced) trace();
    errno = wanted.error;
    return true;
}

}  // namespace VanticRestKit::test

using VanticRestKit::test::Call;
using VanticRestKit::test::forgotten;
using VanticRestKit::test::isToFail;
using VanticRestKit::test::noted;

extern "C" void* malloc(std::size_t size) noexcept {
    return isToFail(Call::malloc) ? nullptr : noted(__libc_malloc(size));
}

extern "C" void* calloc(std::size_t count, std::size_t size) noexcept {
    return isToFail(Call::calloc) ? nullptr : noted(__libc_calloc(count, size));
}

extern "C" void* realloc(void* memory, std::size_t size) noexcept {
    if (isToFail(Call::realloc)) return nullptr;
    const auto before = memory == nullptr ? 0 : static_cast<std::int64_t>(malloc_usable_size(memory));
    void* const moved = __libc_realloc(memory, size);
    // A size of 0 frees.
    if (moved != nullptr || size == 0) VanticRestKit::test::bytes.fetch_sub(before);
    return noted(moved);
}

extern "C" void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return isToFail(Call::alignedAlloc) ? nullptr : noted(__libc_memalign(alignment, size));
}

extern "C" void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return memalign(alignment, size);
}

extern "C" int posix_memalign(void** memory, std::size_t alignment, std::size_t size) noexcept {
    const int before = errno;
    void* const made = memalign(alignment, size);
    errno = before;
    if (made == nullptr) return ENOMEM;
    *memory = made;
    return 0;
}

extern "C" void free(void* memory) noexcept {
    forgotten(memory);
    __libc_free(memory);
}
