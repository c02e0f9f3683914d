#include <VanticRestKit/platform/dispatch/detail/BlockCall.h>

#include <cstdio>
#include <exception>

namespace VanticRestKit::detail {

namespace {

/// Reports a block that throws.
class ThrowingBlockReport {
public:
    explicit ThrowingBlockReport(const std::string& label) noexcept : label_(label) {}
    ThrowingBlockReport(const ThrowingBlockReport&) = delete;
    ThrowingBlockReport& operator=(const ThrowingBlockReport&) = delete;
    ~ThrowingBlockReport() {
        // pthread_cancel and pthread_exit unwind too, without an exception.
        if (hasReturned || std::uncaught_exceptions() == 0) return;
        std::fprintf(
            stderr,
            "VanticRestKit: an exception left a block on queue '%s'; completions and blocks must not throw\n",
            label_.c_str());
    }

    bool hasReturned = false;

private:
    const std::string& label_;
};

// A separate frame: it is unwound, with its report, before the noexcept caller ends the process.
[[gnu::noinline]] void callReported(Block& block, const std::string& label) {
    ThrowingBlockReport report(label);
    block();
    report.hasReturned = true;
}

}  // namespace

void callBlock(Block& block, const std::string& label) noexcept { callReported(block, label); }

}  // namespace VanticRestKit::detail
