#include "routes/UserTable.h"

namespace VanticRestKit::sample {

std::vector<Route> tokenRoutes(Users& users) {
    return {{"GET", "v2/token",
             [&users](const Request& request, const Captures&) { return users.giveTokens(request); }}};
}

}  // namespace VanticRestKit::sample
