#include <VanticRestKit/lumeno/Show/ShowRoutes.h>

#include <VanticRestKit/lumeno/Endpoints/detail/JoinedByCommas.h>

namespace VanticRestKit {

std::string ShowsURI::path() const {
    // An empty list results in a path that ends with a slash; the request is sent anyway.
    return "v2/shows/" + detail::joinedByCommas(showSlugsOrIds);
}

}  // namespace VanticRestKit
