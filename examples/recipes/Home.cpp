// The shortest host: the titles of the rows of the home screen.
//   recipe_home BASE-URL

#include <VanticRestKit/VanticRestKit.h>

#include <cstdio>

using namespace VanticRestKit;
using namespace std::chrono_literals;

struct Service : virtual Context {
    explicit Service(const char* address) : url(*URL::make(address)) {}
    URL baseURL() const override { return url; }
    URL url;
};

int main(int, char** argv) {
    const auto home = Endpoint::Home(Service(argv[1]))->wait({.deadline = 5s});
    if (!home) std::puts(home.error().localizedDescription().c_str());
    for (const MixedCollection& row : home ? home->collections : std::vector<MixedCollection>()) {
        std::printf("%s: %zu items\n", row.title.c_str(), row.items().size());
    }
    return home ? 0 : 1;
}
