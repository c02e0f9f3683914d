// Replays the requests of a signed-in user from a folder. With --record URL, records them from the service at that URL.

#include <VanticRestKit/Testing/RecordingSession.h>
#include <VanticRestKit/Testing/Replay.h>
#include <VanticRestKit/Testing/Scripted.h>
#include <VanticRestKit/VanticRestKit.h>

#include <cstdio>
#include <string_view>

using namespace VanticRestKit;
using namespace VanticRestKit::Testing;

/// Saves a show and returns the number of saved shows.
int savedAfterwards(const std::shared_ptr<const TrelvoContext>& context) {
    const auto client = UserClient::make(context);
    const auto added = client->addWatchlistShow({.showId = 11}).wait();
    const auto saved = client->listWatchlistShowIds().wait();
    if (!added || !saved) return -1;
    return static_cast<int>(saved->size());
}

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    if (argc == 4 && std::string_view(argv[2]) == "--record") {
        const auto session = RecordingSession::make(networkSession(URLSession::make({})), argv[1]);
        const auto context = std::make_shared<Scripted<TestContext>>(session);
        context->base = URL::make(argv[3]).value_or(context->base);
        std::printf("%d shows saved\n", savedAfterwards(context));
        return session->problems().empty() ? 0 : 1;
    }
    const Replay replay(argv[1]);
    ScriptedService service;
    service.on("/**").answerBy(replay);
    std::printf("%d shows saved\n", savedAfterwards(std::make_shared<Scripted<TestContext>>(service)));
    std::printf("%s", replay.problems().c_str());
    return replay.problems().empty() ? 0 : 1;
}
