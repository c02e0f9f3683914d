#pragma once

// The pages of the host and the parts of them that the screens load by themselves. Each is a coroutine that answers one
// request of a browser.

#include "../Errors.h"
#include "../User.h"
#include "../View.h"

#include <span>

namespace living_room {

/// One request of a browser, with what it needs to be answered.
struct Visit {
    const Service& service;
    /// The file of hls.js; empty if there is none.
    const std::string& hlsFile;
    Request request;
    std::shared_ptr<User> user;

    const Context& catalogue() const { return user->catalogue(); }
    LoadOptions options() const { return service.options(request.gone); }
    std::string queried(std::string_view name) const { return request.queried(name); }
};

struct Route {
    std::string_view method;
    /// A whole path, or the front of one if it ends with a slash.
    std::string_view path;
    Task<Answer> (*page)(Visit);
};

// What each source answers.
extern const std::span<const Route> homeRoutes, showRoutes, videoRoutes, searchRoutes, liveRoutes, meRoutes,
    userRoutes, panelRoutes, fileRoutes;

/// What was loaded, or why not. Operations of the user client and resources fail with errors of their own types; pages
/// only ask `adviceOn` about them, which knows all.
template <class T>
using Loaded = Result<T, Error>;

/// Loads `resource`, which is empty if its address could not be built. Name the resource before the call: GCC 12
/// destroys braced strings inside a co_await expression twice.
template <class T>
Task<Loaded<T>> load(std::optional<Resource<T>> resource, LoadOptions options) {
    if (!resource) co_return Failure(Error(URLError::buildUrlRequestError()));
    auto result = co_await resource->value(std::move(options));
    if (!result) co_return Failure(Error(std::move(result).error()));
    co_return std::move(result).value();
}

/// Runs an operation on the data of the user.
template <class T>
Task<Loaded<T>> run(UserClient::Call<T> operation, LoadOptions options) {
    auto result = co_await operation.value(std::move(options));
    if (!result) co_return Failure(Error(std::move(result).error()));
    if constexpr (std::is_void_v<T>) {
        co_return Loaded<void>();
    } else {
        co_return std::move(result).value();
    }
}

/// What stands around a screen at once, without asking the service: the menu, the panel, and in between the template
/// that is named as the screen.
Answer screenAnswer(const Visit& visit, const char* screen, const char* title, Value::Object values = {});
/// Tiles of that template, or a sentence if there are none.
Answer tilesAnswer(const char* name, Value::List tiles, const char* sentenceIfNone);

}  // namespace living_room
