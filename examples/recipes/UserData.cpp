// User operations, each started in the completion of the previous one, without blocking a thread.
//   recipe_user_data BASE-URL

#include "Host.h"

#include <VanticRestKit/trelvo/UserClient.h>

#include <cstdio>
#include <future>
#include <memory>

using namespace VanticRestKit;

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    if (!host) return 2;
    const auto client = UserClient::make(std::make_shared<recipes::UserHost>(*host, "ann"));

    std::promise<int> ended;
    client->addWatchlistShow({.showId = 1})
        .start({},
               [&](Result<std::vector<SavedData>, TrelvoError> added) {
                   if (!added) return ended.set_value(1);
                   client->listWatchlistShowIds()
                       .start({},
                              [&](Result<std::vector<SavedData>, TrelvoError> saved) {
                                  if (!saved) return ended.set_value(1);
                                  std::printf("%zu saved\n", saved->size());
                                  client->deleteShow({.showId = 1})
                                      .start({},
                                             [&](Result<void, TrelvoError> deleted) {
                                                 ended.set_value(deleted ? 0 : 1);
                                             })
                                      .detach();
                              })
                       .detach();
               })
        .detach();
    return ended.get_future().get();
}
