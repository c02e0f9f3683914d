#pragma once

// The pages of the host: screens, the parts that they load separately, files, and what forms do.

#include "../Errors.h"
#include "../User.h"
#include "../View.h"

namespace living_room {

/// The host without its server: answers every request of a browser. Used on the host's loop only.
class Pages {
public:
    /// `port` is that of the server, which the Host of each request must name. `hlsFile` is the file of hls.js, for
    /// browsers that do not play HLS; empty if there is none.
    Pages(const Service& service, std::uint16_t port, std::string hlsFile = {})
        : service_(service), port_(port), hlsFile_(std::move(hlsFile)), users_(service) {}

    Task<Answer> answer(Request request);

private:
    const Service& service_;
    const std::uint16_t port_;
    const std::string hlsFile_;
    Users users_;
};

/// One request of a browser, with what is needed to answer it.
struct Visit {
    const Service& service;
    const std::string& hlsFile;
    Request request;
    std::shared_ptr<User> user;

    const Context& catalogue() const { return *user->context; }
    LoadOptions options() const { return service.options(request.gone); }
    std::string field(std::string_view name) const { return request.field(name); }
    /// The path at the service of what a part shows: the path of the request without "/part".
    std::string href() const { return request.path.substr(std::string_view("/part").size()); }
};

/// A coroutine that answers one request.
using Page = Task<Answer>(Visit);

Page homePart, rowPart, noticePart, searchPart;                 // Home.cpp
Page showPart, episodesPart, relatedPart;                       // Show.cpp
Page videoPart, livePage, channelsPart, channelRowPart;         // Video.cpp, Live.cpp
Page profilesPart, avatar, signIn, signOut, chooseProfile;      // Me.cpp
Page continuePart, listPart, historyPart, recommendationsPart;  // UserRows.cpp
Page saveButton, save, keepProgress;                            // UserRows.cpp
Page panelPart, setFault, serviceFile, hostFile, hlsFile;       // Panel.cpp, Files.cpp

/// Loads `resource`, which is empty if its address could not be built. Make the resource in a statement before the
/// call: GCC 12 destroys strings in braces inside a co_await expression twice.
template <class T>
Task<Result<T, LoaderError>> load(std::optional<Resource<T>> resource, LoadOptions options) {
    if (!resource) co_return Failure(LoaderError::serverError(URLError::buildUrlRequestError()));
    co_return co_await resource->value(std::move(options));
}

/// The screen that the path names. It needs nothing from the service: the script loads its parts.
Answer screenAnswer(const Visit& visit, Value values = {});

}  // namespace living_room
