#pragma once

/// \file
/// `Endpoint`: functions that return the resources of the catalogue.

#include <VanticRestKit/Core/Omittable.h>
#include <VanticRestKit/Core/Required.h>
#include <VanticRestKit/platform/url/URLQueryItem.h>
#include <VanticRestKit/Visibility.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace VanticRestKit {

class Context;
template <class T>
class Resource;

struct BrowseList;
struct Category;
struct Image;
struct Message;
struct MixedCollection;
struct NavigationList;
struct NavigationMainMenuList;
struct NowNext;
struct ProductAlert;
struct RelatedShowList;
struct Remap;
struct SearchResults;
struct Series;
struct Show;
struct ShowsIndex;
struct Video;
struct VideoList;

enum class MessagesAppId;
enum class NavigationType;

/// The resources of the catalogue, with one function for each route.
///
/// A function builds the request from its arguments and the context, without I/O; loading the resource sends the
/// request. It returns an empty optional if the context cannot create a URL for the route. It may be called on any
/// thread, and reads the context only during the call.
///
/// Functions with several arguments also have a short form, in which most arguments are optional:
/// `Endpoint::Show({.showSlugOrId = "x"}, context)`. The labels in the call select the form: a call with all of them
/// uses the full form. The short forms are templates only so that the full form is preferred in this case; never write
/// their template argument.
///
/// This header only declares the entities. To load one, also include its own header and `Core/Resource.h`.
struct VRK_EXPORT Endpoint {
    /// The time of the service. The response is a single number.
    static std::optional<VanticRestKit::Resource<double>> Time(const VanticRestKit::Context& context);

    /// The arguments of `Resource`.
    struct ResourceArguments {
        /// The href of the resource, as sent by the service.
        Required<std::string> withHref;
    };
    /// The resource at a path that the service sent, such as the `href` of a link, decoded as any type:
    /// `Endpoint::Resource<Video>({.withHref = link.href}, context)`. Include `lumeno/Link/LinkEndpoints.h`.
    template <class T>
    static std::optional<VanticRestKit::Resource<T>> Resource(ResourceArguments arguments,
                                                              const VanticRestKit::Context& using_);

    /// The images that a profile can use.
    static std::optional<VanticRestKit::Resource<std::vector<VanticRestKit::Image>>> Avatars(
        const VanticRestKit::Context& context);

    /// The arguments of `Video`.
    struct VideoArguments {
        /// The house number of the video.
        Required<std::string> houseNumber;
    };
    /// One video by its house number: `Endpoint::Video({.houseNumber = "ZW1"}, context)`.
    static std::optional<VanticRestKit::Resource<VanticRestKit::Video>> Video(
        VideoArguments arguments, const VanticRestKit::Context& context);

    /// The argument of `Video` for an href.
    struct VideoHrefArguments {
        /// The href of the resource, as sent by the service.
        Required<std::string> usingHref;
    };
    /// One video by an href: `Endpoint::Video({.usingHref = "video/ZW1"}, context)`.
    static std::optional<VanticRestKit::Resource<VanticRestKit::Video>> Video(
        VideoHrefArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Videos`.
    struct VideosArguments {
        /// The house numbers of the videos, in the desired order.
        Required<std::vector<std::string>> houseNumbers;
    };
    /// Several videos by their house numbers.
    static std::optional<VanticRestKit::Resource<VanticRestKit::VideoList>> Videos(
        VideosArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Show`.
    struct ShowArguments {
        /// The slug of the show, or its id as a string.
        Required<std::string> showSlugOrId;
        /// The id of the series to select; empty for none.
        Required<std::optional<std::uint64_t>> selectedSeries;
        /// The house number of the video to select; empty for none.
        Required<std::optional<std::string>> selectedVideo;
        /// Whether the response embeds the selected series and the list of series.
        Required<bool> embedSeries;
        /// The channel to filter by; empty for all.
        Required<std::optional<std::string>> channel;
    };
    /// One show by its slug or id. If both a video and a series are selected, the video takes precedence.
    static std::optional<VanticRestKit::Resource<VanticRestKit::Show>> Show(
        ShowArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of the short form of `Show`; only the show is required.
    struct ShowShortArguments {
        /// The slug of the show, or its id as a string.
        Required<std::string> showSlugOrId;
        /// The id of the series to select; empty for none.
        Omittable<std::uint64_t> selectedSeries{};
        /// The house number of the video to select; empty for none.
        std::optional<std::string> selectedVideo{};
        /// Whether the response embeds the selected series and the list of series.
        bool embedSeries = false;
        /// The channel to filter by; empty for all.
        std::optional<std::string> channel{};
    };
    /// The short form. By default nothing is selected, the series are not embedded, and no channel is sent.
    template <class = void>
    static std::optional<VanticRestKit::Resource<VanticRestKit::Show>> Show(
        ShowShortArguments arguments, const VanticRestKit::Context& context);

    /// The argument of `Show` for an href.
    struct ShowHrefArguments {
        /// The href of the resource, as sent by the service.
        Required<std::string> usingHref;
    };
    /// One show by an href.
    static std::optional<VanticRestKit::Resource<VanticRestKit::Show>> Show(
        ShowHrefArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Shows`.
    struct ShowsArguments {
        /// The slugs or ids of the shows, in the desired order.
        Required<std::vector<std::string>> showSlugsOrIds;
    };
    /// Several shows by slug or id. Decoding fails if any of them cannot be decoded.
    static std::optional<VanticRestKit::Resource<std::vector<VanticRestKit::Show>>> Shows(
        ShowsArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `ShowsList`.
    struct ShowsListArguments {
        /// The channel to filter by; empty for all.
        Required<std::optional<std::string>> channel;
        /// Whether only shows with closed captions are listed.
        Required<bool> closedCaptionOnly;
    };
    /// The shows of the catalogue, or of one channel, in named groups.
    static std::optional<VanticRestKit::Resource<VanticRestKit::ShowsIndex>> ShowsList(
        ShowsListArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of the short form of `ShowsList`; all are optional.
    struct ShowsListShortArguments {
        /// The channel to filter by; empty for all.
        std::optional<std::string> channel{};
        /// Whether only shows with closed captions are listed.
        bool closedCaptionOnly = false;
    };
    /// The short form. `ShowsList({}, context)` returns the shows of all channels, with or without closed captions.
    template <class = void>
    static std::optional<VanticRestKit::Resource<VanticRestKit::ShowsIndex>> ShowsList(
        ShowsListShortArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Series`.
    struct SeriesArguments {
        /// The href of the resource, as sent by the service.
        Required<std::string> usingHref;
    };
    /// One series by an href.
    static std::optional<VanticRestKit::Resource<VanticRestKit::Series>> Series(
        SeriesArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `RelatedShows`.
    struct RelatedShowsArguments {
        /// The slug of the show.
        Required<std::string> showSlug;
        /// The channel to filter by; empty for all.
        Required<std::optional<std::string>> channel;
    };
    /// Shows that are similar to a show.
    static std::optional<VanticRestKit::Resource<VanticRestKit::RelatedShowList>> RelatedShows(
        RelatedShowsArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `RelatedShows` without a channel.
    struct RelatedShowsShortArguments {
        /// The slug of the show.
        Required<std::string> showSlug;
    };
    /// The short form: no channel is sent.
    template <class = void>
    static std::optional<VanticRestKit::Resource<VanticRestKit::RelatedShowList>> RelatedShows(
        RelatedShowsShortArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Search`.
    struct SearchArguments {
        /// What to search for.
        Required<std::string> keyword;
        /// The channel to filter by; empty for all.
        Required<std::optional<std::string>> channel;
    };
    /// The shows that match a keyword.
    static std::optional<VanticRestKit::Resource<VanticRestKit::SearchResults>> Search(
        SearchArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Search` without a channel.
    struct SearchShortArguments {
        /// What to search for.
        Required<std::string> keyword;
    };
    /// The short form: no channel is sent.
    template <class = void>
    static std::optional<VanticRestKit::Resource<VanticRestKit::SearchResults>> Search(
        SearchShortArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Collection`.
    struct CollectionArguments {
        /// The id of the collection.
        Required<std::string> collectionId;
        /// Whether the response embeds the item to highlight.
        Required<bool> embedHighlightItem;
    };
    /// One collection by its id.
    static std::optional<VanticRestKit::Resource<VanticRestKit::MixedCollection>> Collection(
        CollectionArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Collection` without the item to highlight.
    struct CollectionShortArguments {
        /// The id of the collection.
        Required<std::string> collectionId;
    };
    /// The short form: the highlight item is not embedded.
    template <class = void>
    static std::optional<VanticRestKit::Resource<VanticRestKit::MixedCollection>> Collection(
        CollectionShortArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Category`.
    struct CategoryArguments {
        /// The category, as used in paths.
        Required<std::string> category;
    };
    /// The screen of a category.
    static std::optional<VanticRestKit::Resource<VanticRestKit::Category>> Category(
        CategoryArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Channel`.
    struct ChannelArguments {
        /// The channel, as used in paths.
        Required<std::string> channel;
    };
    /// The screen of a channel.
    static std::optional<VanticRestKit::Resource<VanticRestKit::Category>> Channel(
        ChannelArguments arguments, const VanticRestKit::Context& context);

    /// The home screen.
    static std::optional<VanticRestKit::Resource<VanticRestKit::Category>> Home(
        const VanticRestKit::Context& context);

    /// The arguments of `Navigation`.
    struct NavigationArguments {
        /// Whether the list contains channels or categories.
        Required<NavigationType> type;
    };
    /// The flat list of channels or of categories.
    static std::optional<VanticRestKit::Resource<VanticRestKit::NavigationList>> Navigation(
        NavigationArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `NavigationMainMenuList`.
    struct NavigationMainMenuListArguments {
        /// The channels, separated by commas.
        Required<std::string> channels;
    };
    /// The main menu. `channels` is sent unchanged.
    static std::optional<VanticRestKit::Resource<VanticRestKit::NavigationMainMenuList>>
    NavigationMainMenuList(NavigationMainMenuListArguments arguments, const VanticRestKit::Context& context);

    /// The browse index.
    static std::optional<VanticRestKit::Resource<VanticRestKit::BrowseList>> Browse(
        const VanticRestKit::Context& context);

    /// The arguments of `NowNext`.
    struct NowNextArguments {
        /// The house number of the video.
        Required<std::string> houseNumber;
    };
    /// What a channel shows now and next.
    static std::optional<VanticRestKit::Resource<VanticRestKit::NowNext>> NowNext(
        NowNextArguments arguments, const VanticRestKit::Context& context);

    struct LivestreamsArguments;
    /// The livestreams of a `.region`, or of the whole country. Include `lumeno/NowNext/LivestreamRegion.h`.
    static std::optional<VanticRestKit::Resource<VanticRestKit::VideoList>> Livestreams(
        LivestreamsArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Messages`.
    struct MessagesArguments {
        /// The application that asks.
        Required<MessagesAppId> appId;
        /// Whether a user is signed in.
        Required<bool> loggedIn;
    };
    /// The messages of the service for this application.
    static std::optional<VanticRestKit::Resource<std::vector<VanticRestKit::Message>>> Messages(
        MessagesArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `ProductAlert`.
    struct ProductAlertArguments {
        /// The id of the alert.
        Required<std::string> alertId;
    };
    /// An alert by its id, which an entity contains.
    static std::optional<VanticRestKit::Resource<VanticRestKit::ProductAlert>> ProductAlert(
        ProductAlertArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Remap`.
    struct RemapArguments {
        /// The path to look up.
        Required<std::string> path;
        /// The query items of the path, in order.
        Required<std::vector<URLQueryItem>> queryItems;
    };
    /// Translates a path to that of the API and that of the application.
    static std::optional<VanticRestKit::Resource<VanticRestKit::Remap>> Remap(
        RemapArguments arguments, const VanticRestKit::Context& context);

    /// The arguments of `Remap` without query items.
    struct RemapShortArguments {
        /// The path to look up.
        Required<std::string> path;
    };
    /// The short form, for a path without query items.
    template <class = void>
    static std::optional<VanticRestKit::Resource<VanticRestKit::Remap>> Remap(
        RemapShortArguments arguments, const VanticRestKit::Context& context);
};

}  // namespace VanticRestKit
