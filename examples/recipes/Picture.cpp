// Loads the bytes of an image.
//   recipe_picture BASE-URL

#include "Host.h"

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Image/Image.h>

#include <chrono>
#include <cstdio>

using namespace VanticRestKit;
using namespace std::chrono_literals;

int main(int argc, char** argv) {
    const auto host = recipes::Host::of(argc, argv);
    if (!host) return 2;
    const auto avatars = Endpoint::Avatars(*host)->wait({.deadline = 5s});
    if (!avatars || avatars->empty()) return 1;
    const auto address = URL::make(avatars->front().url.value_or(""));
    if (!address) return 1;

    const Resource<Data> picture({.withURL = *address, .andDecoder = JSONDecoder()});
    const Result<Data, LoaderError> bytes = picture.wait({.deadline = 5s});
    if (!bytes) return 1;
    std::printf("%zu bytes of %s\n", bytes->view().size(), address->absoluteString().c_str());
    return 0;
}
