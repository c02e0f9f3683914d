#include <VanticRestKit/lumeno/Video/VideoRoutes.h>

#include <VanticRestKit/lumeno/Endpoints/detail/JoinedByCommas.h>

namespace VanticRestKit {

std::string VideosURI::path() const {
    // An empty list results in a path that ends with a slash; the request is sent anyway.
    return "v2/videos/" + detail::joinedByCommas(houseNumbers);
}

}  // namespace VanticRestKit
