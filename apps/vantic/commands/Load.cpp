#include <future>

#include "commands/Commands.h"
#include "Failure.h"
#include "operations/Operation.h"
#include "operations/Sending.h"
#include "Output.h"

namespace vantic {

void runLoad(Words words) {
    const Call call = readCall(words);
    const CommonOptions common = CommonOptions::read(call.given);
    const Host host(common, serveOver(common));
    const std::optional<Loadable> load = call.operation.call(call.given, host);
    if (!load) throw Failed{noRequest};

    auto promise = std::make_shared<std::promise<LoadedText>>();
    (*load)([promise](LoadedText text) { promise->set_value(std::move(text)); });
    const LoadedText text = promise->get_future().get();
    if (!text) throw Failed{text.error().localizedDescription()};
    print(*text + "\n");
}

}  // namespace vantic
