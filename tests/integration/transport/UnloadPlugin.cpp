#include <VanticRestKit/platform/http/URLSession.h>

#include <utility>

using namespace VanticRestKit;

/// Starts a load of `url` in the plugin's own session, and calls `onEnd` with `context` when it ends.
extern "C" __attribute__((visibility("default"))) void startLoadInPlugin(const char* url,
                                                                         void (*onEnd)(void*),
                                                                         void* context) {
    const auto session = URLSession::make(URLSessionConfiguration::default_());
    session->dataTask(URLRequest(*URL::make(url)), [onEnd, context](auto, auto, auto) { onEnd(context); })
        ->resume();
}
