#include "Trial.h"

#include "Calls.h"
#include "Holdings.h"

#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <limits>

namespace VanticRestKit::test {

namespace {

// A round may leave memory that is allocated once: of a pool thread, or of the string of an error.
constexpr std::int64_t bytesTolerated = 4096;

// Written by the child process at the end of its rounds.
struct Findings {
    RoundOutcome::Kind kind = RoundOutcome::Kind::value;
    RoundOutcome::Kind nextKind = RoundOutcome::Kind::value;
    bool hasFailed = false;
    std::int64_t descriptorsLeft = 0;
    std::int64_t bytesLeft = 0;
    std::array<std::uint64_t, callCount> counts{};
    std::array<char, 400> story{};
};

void write(const Findings& findings, int descriptor) {
    [[maybe_unused]] const auto written = ::write(descriptor, &findings, sizeof(findings));
}

// noexcept, as in a host that does not catch exceptions of its threads: the process must end.
Findings find(const Trial& trial, RoundSetting setting) noexcept {
    constexpr std::int64_t anyBytes = std::numeric_limits<std::int32_t>::max();
    constexpr int warmUps = 3;
    const auto run = [&trial, &setting] {
        ++setting.number;
        return trial.scenario->run(setting);
    };
    Holdings before = holdingsNow();
    for (int i = 0; i < warmUps && !trial.isFirst; ++i) {
        run();
        before = waitForHoldings(before, anyBytes);
    }
    Findings findings;
    arm(trial.fault, trial.isTraced);
    const RoundOutcome outcome = run();
    Holdings after = waitForHoldings(before, trial.isFirst ? anyBytes : bytesTolerated);
    disarm();
    findings.kind = outcome.kind;
    findings.hasFailed = hasFailed();
    findings.descriptorsLeft =
        static_cast<std::int64_t>(after.descriptors) - static_cast<std::int64_t>(before.descriptors);
    findings.bytesLeft = trial.isFirst ? 0 : after.bytes - before.bytes;
    for (const CallTraits& traits : callTraits()) {
        findings.counts[static_cast<std::size_t>(traits.call)] = countOf(traits.call);
    }
    const RoundOutcome next = run();
    findings.nextKind = next.kind;
    const std::string& story =
        outcome.kind == RoundOutcome::Kind::value && next.kind != RoundOutcome::Kind::value ? next.story
                                                                                            : outcome.story;
    story.copy(findings.story.data(), findings.story.size() - 1);
    return findings;
}

struct Child {
    pid_t process = -1;
    /// Receives the `Findings` of the process.
    int report = -1;
    /// Receives what the process prints to stderr.
    int messages = -1;
};

Child startChild(const Trial& trial, const RoundSetting& setting) {
    Child child;
    int ends[2] = {-1, -1};
    if (pipe(ends) != 0) std::abort();
    child.messages = memfd_create("messages", MFD_CLOEXEC);
    child.process = fork();
    if (child.process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        const rlimit noCore{0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        ::close(ends[0]);
        if (!trial.isTraced) dup2(child.messages, STDERR_FILENO);
        write(find(trial, setting), ends[1]);
        _exit(0);
    }
    ::close(ends[1]);
    child.report = ends[0];
    return child;
}

std::string readMessages(int file) {
    std::array<char, 2000> text;
    const ssize_t count = pread(file, text.data(), text.size(), 0);
    return {text.data(), count > 0 ? static_cast<std::size_t>(count) : 0};
}

std::string leftIn(const Findings& findings) {
    return std::to_string(findings.descriptorsLeft) + " descriptors and " +
           std::to_string(findings.bytesLeft) + " bytes are left";
}

// The load after a failed first one may fail too: OpenSSL does not repeat a failed initialization.
Verdict judge(const Findings& findings, bool isFirst, std::string& story) {
    using Kind = RoundOutcome::Kind;
    if (findings.kind == Kind::wrong) return Verdict::wrong;
    if (!findings.hasFailed && findings.kind != Kind::value) return Verdict::wrong;
    if (findings.descriptorsLeft > 0 || findings.bytesLeft > bytesTolerated) {
        story = leftIn(findings) + (story.empty() ? "" : "; ") + story;
        return Verdict::leaked;
    }
    if (findings.nextKind != Kind::value && !isFirst) return Verdict::spoiled;
    if (!findings.hasFailed) return Verdict::untouched;
    return findings.kind == Kind::value ? Verdict::value : Verdict::error;
}

// Whether the process ended itself with a message that memory ran out.
bool reportsLackOfMemory(int status, const std::string& messages) {
    constexpr int exitOfTheLoader = 127;
    const bool hasAborted = WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
    const bool hasGivenUp = WIFEXITED(status) && WEXITSTATUS(status) == exitOfTheLoader;
    return (hasAborted || hasGivenUp) && (messages.find("bad_alloc") != std::string::npos ||
                                          messages.find("allocate memory") != std::string::npos);
}

std::string endOf(int status) {
    if (WIFSIGNALED(status)) return std::string("ended by ") + strsignal(WTERMSIG(status));
    return "ended with " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

const char* nameOf(Verdict verdict) {
    constexpr std::array<const char*, verdictCount> names{"untouched", "value",   "error",  "message", "hung",
                                                          "wrong",     "crashed", "leaked", "spoiled"};
    return names[static_cast<std::size_t>(verdict)];
}

TrialReport runTrial(const Trial& trial, const RoundSetting& setting) {
    const Child child = startChild(trial, setting);
    TrialReport report;
    Findings findings;
    pollfd end{child.report, POLLIN, 0};
    const int milliseconds = static_cast<int>(std::chrono::milliseconds(trial.deadline).count());
    const bool isOver = poll(&end, 1, milliseconds) > 0;
    const bool isWhole =
        isOver && read(child.report, &findings, sizeof(findings)) == static_cast<ssize_t>(sizeof(findings));
    if (!isOver) kill(child.process, SIGKILL);
    int status = 0;
    waitpid(child.process, &status, 0);
    const std::string messages = readMessages(child.messages);
    if (!isOver) {
        report.verdict = Verdict::hung;
    } else if (isWhole) {
        report.counts = findings.counts;
        report.story = findings.story.data();
        report.verdict = judge(findings, trial.isFirst, report.story);
    } else {
        const bool ranOutOfMemory =
            traitsOf(trial.fault.call).allocatesMemory && reportsLackOfMemory(status, messages);
        report.verdict = ranOutOfMemory ? Verdict::message : Verdict::crashed;
        report.story = endOf(status) + ": " + messages;
    }
    ::close(child.report);
    ::close(child.messages);
    return report;
}

}  // namespace VanticRestKit::test
