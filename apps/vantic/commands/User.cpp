#include <thread>

#include "commands/Commands.h"
#include "Failure.h"
#include "operations/Sending.h"
#include "Output.h"
#include "user/UserHost.h"
#include "user/UserOperation.h"
#include "user/WatchedContext.h"

namespace vantic {

using VanticRestKit::Trelvo;

std::span<const Option> userCommandOptions() {
    static constexpr Option options[] = {flag("quiet", "prints no value, only errors")};
    return options;
}

void runUser(Words words) {
    UserCall call = readUserCall(words, userCommandOptions());
    CommonOptions common = CommonOptions::read(call.given);
    Serve serve = serveOver(common);
    const auto watch = std::make_shared<RequestWatch>();
    const auto host =
        std::make_shared<UserHost>(std::move(common), call.given.optionalText("uid"), std::move(serve));
    // A separate thread that is not joined: it never ends if the token request cannot be built.
    std::thread([run = std::move(call.run), host, watch] {
        run(Trelvo::shared(), WatchedContext(*host, watch), watch);
        watch->operationReturned();
    }).detach();

    const std::optional<UserText> outcome = watch->outcomeAtTheEnd();
    if (!outcome) throw Failed{noRequest};
    if (!*outcome) throw Failed{outcome->error().localizedDescription()};
    if (!(*outcome)->empty() && !call.given.flag("quiet")) print(**outcome + "\n");
}

}  // namespace vantic
