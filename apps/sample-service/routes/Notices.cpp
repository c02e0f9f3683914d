#include "routes/Table.h"

namespace sample {

std::vector<Route> noticeRoutes() { return {}; }

}  // namespace sample
