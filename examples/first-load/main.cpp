// The smallest host: loads one video and prints its title.
//   first-load BASE-URL HOUSE-NUMBER

#include <VanticRestKit/Core/Context.h>
#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Video/Video.h>

#include <cstdio>
#include <future>
#include <utility>

using namespace VanticRestKit;

class HostContext : public virtual Context {
public:
    explicit HostContext(URL baseURL) : baseURL_(std::move(baseURL)) {}
    URL baseURL() const override { return baseURL_; }

private:
    URL baseURL_;
};

int main(int argc, char** argv) {
    const auto baseURL = argc == 3 ? URL::make(argv[1]) : std::nullopt;
    if (!baseURL) return 2;
    const auto resource = Endpoint::Video({.houseNumber = argv[2]}, HostContext(*baseURL));
    if (!resource) return 2;  // the house number does not form a valid URL

    std::promise<int> ended;
    resource->load({.with = [&](Result<Video, LoaderError> result) {
        // Runs on the session's delegate queue. A host with a user interface switches to its own thread here.
        if (result) {
            std::printf("%s (%s)\n", result->title.value_or("Untitled").c_str(),
                        result->displayDuration.value_or("live").c_str());
        } else {
            std::fprintf(stderr, "%s\n", result.error().localizedDescription().c_str());
        }
        ended.set_value(result ? 0 : 1);
    }});
    return ended.get_future().get();
}
