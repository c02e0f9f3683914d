#include <VanticRestKit/lumeno/Show/ShowRoutes.h>

#include <VanticRestKit/lumeno/Endpoints/detail/JoinedByCommas.h>

namespace VanticRestKit {

std::string ShowsURI::path() const {
    // An empty list makes a path that ends in a slash, and is asked for like any other.
    return "v2/shows/" + detail::joinedByCommas(showSlugsOrIds);
}

}  // namespace VanticRestKit
