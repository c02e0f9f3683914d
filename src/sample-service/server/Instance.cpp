#include "server/Instance.h"

#include <iterator>
#include <utility>

#include "routes/Table.h"
#include "routes/UserTable.h"

namespace VanticRestKit::sample {

namespace {

std::vector<Route> joined(std::vector<Route> some, std::vector<Route> others) {
    std::move(others.begin(), others.end(), std::back_inserter(some));
    return some;
}

}  // namespace

Instance::Instance(const Settings& settings, std::function<void()> ended)
    : settings_(settings),
      users_(settings.tokenSeconds),
      service_(Router(joined(serviceRoutes(), userRoutes(users_))),
               Router(joined(controlRoutes(faults_, log_), userControlRoutes(users_))), faults_, log_,
               std::move(ended)) {
    if (settings.tls) certificate_ = makeCertificate();
}

bool Instance::start() { return service_.start(settings_.port, certificate_ ? &*certificate_ : nullptr); }

std::string Instance::baseURL() const {
    return (settings_.tls ? "https://127.0.0.1:" : "http://127.0.0.1:") + std::to_string(port());
}

}  // namespace VanticRestKit::sample
