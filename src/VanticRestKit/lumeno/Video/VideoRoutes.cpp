#include <VanticRestKit/lumeno/Video/VideoRoutes.h>

#include <VanticRestKit/lumeno/Endpoints/detail/JoinedByCommas.h>

namespace VanticRestKit {

std::string VideosURI::path() const {
    // An empty list makes a path that ends in a slash, and is asked for like any other.
    return "v2/videos/" + detail::joinedByCommas(houseNumbers);
}

}  // namespace VanticRestKit
