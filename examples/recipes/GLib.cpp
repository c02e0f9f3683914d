// The event loop of GLib: completions run on the thread of the loop. Built if GLib's headers are installed.
//   recipe_glib BASE-URL

#include "Host.h"

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>

#include <glib.h>

#include <chrono>
#include <cstdio>
#include <memory>
#include <utility>

using namespace VanticRestKit;
using namespace std::chrono_literals;

gboolean runBlock(gpointer block) {
    (*static_cast<Block*>(block))();
    return G_SOURCE_REMOVE;
}

void dropBlock(gpointer block) { delete static_cast<Block*>(block); }

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    if (!host) return 2;
    const std::unique_ptr<GMainLoop, void (*)(GMainLoop*)> loop(g_main_loop_new(nullptr, FALSE),
                                                                g_main_loop_unref);
    const DispatchQueue ui = DispatchQueue::over("GLib", [](Block block) {
        g_idle_add_full(G_PRIORITY_DEFAULT, runBlock, new Block(std::move(block)), dropBlock);
    });

    int code = 1;
    const auto time = Endpoint::Time(*host);
    const Cancellable load = time->start({.on = ui, .deadline = 5s}, [&](Result<double, LoaderError> result) {
        if (result) {
            std::printf("%.0f\n", *result);
            code = 0;
        }
        g_main_loop_quit(loop.get());
    });
    g_main_loop_run(loop.get());
    return code;
}
