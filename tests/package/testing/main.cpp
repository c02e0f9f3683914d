// Tests of a host outside the project, which use only what was installed.

#include <VanticRestKit/Testing/Documents.h>
#include <VanticRestKit/Testing/ManualClock.h>
#include <VanticRestKit/Testing/RecordingSession.h>
#include <VanticRestKit/Testing/Replay.h>
#include <VanticRestKit/Testing/SampleAnswers.h>
#include <VanticRestKit/Testing/SampleService/SampleService.h>
#include <VanticRestKit/Testing/Scripted.h>
#include <VanticRestKit/Testing/ShowBuilder.h>
#include <VanticRestKit/VanticRestKit.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>

using namespace VanticRestKit;
using namespace VanticRestKit::Testing;

namespace {

class HostContext : public virtual Context {
public:
    explicit HostContext(URL base) : base_(std::move(base)) {}
    URL baseURL() const override { return base_; }

private:
    URL base_;
};

constexpr const char* address = "https://service.test";

std::string titleOver(const std::shared_ptr<NetworkSession>& session, ManualExecutor& executor) {
    const Scripted<HostContext> context(session, URL(address));
    std::string title;
    const auto show = Endpoint::Show({.usingHref = "/show/night-ferry"}, context);
    const auto load = show->start({}, [&](Result<Show, LoaderError> result) {
        title = result ? result->title.value_or("") : result.error().localizedDescription();
    });
    executor.runAll();
    return title;
}

bool loadsFromAScript() {
    ManualExecutor executor;
    ScriptedService service(executor);
    service.expect("GET /v2/show/night-ferry")
        .answer(aShow().titled("Night Ferry").withSeries(2).episodes(3));
    return titleOver(service.session(), executor) == "Night Ferry" && service.problems().empty();
}

bool advancesTheClock() {
    ManualExecutor executor;
    ManualClock clock;
    ScriptedService service(executor);
    service.holdAll();
    const Scripted<HostContext> context(service, URL(address));
    bool hasFailed = false;
    const auto home = Endpoint::Home(context);
    const auto load = home->start({.deadline = std::chrono::seconds(5)},
                                  [&](Result<Category, LoaderError> result) { hasFailed = !result; });
    clock.advance(std::chrono::seconds(5));
    executor.runAll();
    return hasFailed;
}

bool replaysARecording() {
    const std::string folder = (std::filesystem::temp_directory_path() / "kit-consumer-recording").string();
    std::filesystem::remove_all(folder);
    ManualExecutor executor;
    ScriptedService service(executor);
    service.on("/v2/**").answer(aShow().titled("Recorded"));
    titleOver(RecordingSession::make(service.session(), folder), executor);
    const Replay replay(folder);
    ScriptedService again(executor);
    again.on("/**").answerBy(replay);
    const bool isRight = titleOver(again.session(), executor) == "Recorded" && replay.problems().empty();
    std::filesystem::remove_all(folder);
    return isRight;
}

bool runsTheSampleService() {
    SampleService service;
    service.add({.kind = SampleFault::Kind::status, .path = "v2/time", .status = 503});
    const HostContext context(service.baseURL());
    const auto time = Endpoint::Time(context);
    const bool failsFirst = !time->wait({.deadline = std::chrono::seconds(30)});
    return failsFirst && time->wait({.deadline = std::chrono::seconds(30)}) && service.log().size() == 2;
}

int check(const char* what, bool holds) {
    std::printf("%s: %s\n", what, holds ? "yes" : "no");
    return holds ? 0 : 1;
}

}  // namespace

int main() {
    return check("loads from a script", loadsFromAScript()) +
           check("advances the clock past a deadline", advancesTheClock()) +
           check("replays a recording", replaysARecording()) +
           check("runs the sample service", runsTheSampleService());
}
