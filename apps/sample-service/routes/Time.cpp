#include <chrono>

#include "routes/Table.h"

namespace sample {

std::vector<Route> timeRoutes() {
    return {{"GET", "v2/time", [](const Request&, const Captures&) {
                 const auto now = std::chrono::system_clock::now().time_since_epoch();
                 const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
                 Reply reply;
                 reply.body = static_cast<double>(milliseconds) / 1000.0;
                 return reply;
             }}};
}

}  // namespace sample
