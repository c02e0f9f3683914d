#include "server/Instance.h"

#include <initializer_list>
#include <utility>

#include "routes/Table.h"
#include "routes/UserTable.h"
#include "streams/Streams.h"

namespace VanticRestKit::sample {

namespace {

Router routerOf(std::initializer_list<std::vector<Route>> tables) {
    std::vector<Route> all;
    for (const auto& table : tables) all.insert(all.end(), table.begin(), table.end());
    return Router(std::move(all));
}

std::vector<Route> scenarioRoutesOf(const Settings& settings, Scenario& scenario) {
    return settings.scenarios ? scenarioRoutes(scenario) : std::vector<Route>();
}

}  // namespace

Instance::Instance(const Settings& settings, std::function<void()> ended)
    : settings_(settings),
      users_(settings.tokenSeconds),
      service_(routerOf({serviceRoutes(), userRoutes(users_), streamRoutes()}),
               routerOf({controlRoutes(faults_, log_), userControlRoutes(users_),
                         scenarioRoutesOf(settings, scenario_)}),
               {faults_, log_, settings.scenarios ? &scenario_ : nullptr, settings.ownStreams},
               std::move(ended)) {
    if (settings.tls) certificate_ = makeCertificate();
}

bool Instance::start() { return service_.start(settings_.port, certificate_ ? &*certificate_ : nullptr); }

std::string Instance::baseURL() const {
    return (settings_.tls ? "https://127.0.0.1:" : "http://127.0.0.1:") + std::to_string(port());
}

}  // namespace VanticRestKit::sample
