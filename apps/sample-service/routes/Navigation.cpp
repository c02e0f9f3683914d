#include "routes/Table.h"

namespace sample {

std::vector<Route> navigationRoutes() { return {}; }

}  // namespace sample
