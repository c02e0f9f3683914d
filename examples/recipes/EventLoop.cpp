// The home screen in the host's own event loop: completions run on the thread of the loop.
//   recipe_event_loop BASE-URL

#include "Host.h"

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <mutex>
#include <utility>
#include <vector>

using namespace VanticRestKit;
using namespace std::chrono_literals;

/// An event loop based on poll(); an event descriptor signals waiting blocks.
class Loop {
public:
    ~Loop() { close(wake_); }

    void post(Block block) {
        const std::lock_guard lock(mutex_);
        blocks_.push_back(std::move(block));
        eventfd_write(wake_, 1);
    }

    void run() {
        while (!isOver_) {
            pollfd waiting{.fd = wake_, .events = POLLIN, .revents = 0};
            if (poll(&waiting, 1, -1) <= 0) continue;
            eventfd_t count = 0;
            eventfd_read(wake_, &count);
            std::vector<Block> blocks;
            {
                const std::lock_guard lock(mutex_);
                blocks.swap(blocks_);
            }
            for (Block& block : blocks) block();
        }
    }

    void stop() { isOver_ = true; }

private:
    const int wake_ = eventfd(0, EFD_CLOEXEC);
    std::mutex mutex_;
    std::vector<Block> blocks_;
    bool isOver_ = false;
};

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    if (!host) return 2;
    Loop loop;
    const DispatchQueue ui = DispatchQueue::over("ui", [&loop](Block block) { loop.post(std::move(block)); });

    int code = 1;
    const auto home = Endpoint::Home(*host);
    const Cancellable load =
        home->start({.on = ui, .deadline = 5s}, [&](Result<Category, LoaderError> screen) {
            if (screen) {
                std::printf("%s: %zu rows\n", screen->title.c_str(), screen->collections.size());
                code = 0;
            }
            loop.stop();
        });
    loop.run();
    return code;
}
