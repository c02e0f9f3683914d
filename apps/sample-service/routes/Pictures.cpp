#include "routes/Table.h"

namespace sample {

std::vector<Route> pictureRoutes() { return {}; }

}  // namespace sample
