#pragma once

/// \file
/// `Endpoint`: where a host gets the resources of the catalogue.

#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/Visibility.h>

#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

class Context;
template <class T>
class Resource;

struct Image;
struct Video;
struct VideoList;

/// The resources of the catalogue, one function for each route.
///
/// A function builds the request from its arguments and the context and does no I/O; `load` on the resource
/// does. It returns nothing exactly where the context can make no URL of the route, with no reason given. Any
/// thread. The context is read during the call only.
///
/// This header only names the entities: include the header of the entity and `Core/Resource.h` to use one.
struct VRK_EXPORT Endpoint {
    /// The time of the service: its answer is a bare number.
    static std::optional<VanticRestKit::Resource<double>> Time(const VanticRestKit::Context& context);

    struct ResourceArguments {
        Required<std::string> withHref;
    };
    /// A path that the service sent, such as a link's `href`, loaded as any type that decodes:
    /// `Endpoint::Resource<Video>({.withHref = link.href}, context)`. Include `lumeno/Link/HrefResource.h`.
    template <class T>
    static std::optional<VanticRestKit::Resource<T>> Resource(ResourceArguments arguments,
                                                              const VanticRestKit::Context& using_);

    /// The pictures that a profile can take.
    static std::optional<VanticRestKit::Resource<std::vector<VanticRestKit::Image>>> Avatars(
        const VanticRestKit::Context& context);

    struct VideoArguments {
        Required<std::string> houseNumber;
    };
    /// One video by its house number: `Endpoint::Video({.houseNumber = "ZW1"}, context)`.
    static std::optional<VanticRestKit::Resource<VanticRestKit::Video>> Video(
        VideoArguments arguments, const VanticRestKit::Context& context);

    struct VideoHrefArguments {
        Required<std::string> usingHref;
    };
    /// One video by a path that the service sent: `Endpoint::Video({.usingHref = "video/ZW1"}, context)`.
    static std::optional<VanticRestKit::Resource<VanticRestKit::Video>> Video(
        VideoHrefArguments arguments, const VanticRestKit::Context& context);

    struct VideosArguments {
        Required<std::vector<std::string>> houseNumbers;
    };
    /// Several videos by their house numbers.
    static std::optional<VanticRestKit::Resource<VanticRestKit::VideoList>> Videos(
        VideosArguments arguments, const VanticRestKit::Context& context);
};

}  // namespace VanticRestKit
