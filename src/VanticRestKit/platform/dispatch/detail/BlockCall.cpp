#include <VanticRestKit/platform/dispatch/detail/BlockCall.h>

#include <cstdio>
#include <exception>

namespace VanticRestKit::detail {

namespace {

/// Reports a block that is left by an exception.
class LeftBlockReport {
public:
    explicit LeftBlockReport(const std::string& label) noexcept : label_(label) {}
    LeftBlockReport(const LeftBlockReport&) = delete;
    LeftBlockReport& operator=(const LeftBlockReport&) = delete;
    ~LeftBlockReport() {
        // The end of a thread by force unwinds it too, with no exception under way.
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

// A frame of its own: the runtime unwinds this one, with its report, before it ends the process in the caller's.
[[gnu::noinline]] void callReported(Block& block, const std::string& label) {
    LeftBlockReport report(label);
    block();
    report.hasReturned = true;
}

}  // namespace

void callBlock(Block& block, const std::string& label) noexcept { callReported(block, label); }

}  // namespace VanticRestKit::detail
