#pragma once

// The pages of the host and the parts of them that the screens load by themselves. Each is a coroutine that answers one
// request of a browser.

#include "../Context.h"
#include "../Errors.h"
#include "../Http.h"
#include "../User.h"

#include <VanticRestKit/Core/Resource.h>
#include <VanticRestKit/Core/URLError.h>
#include <VanticRestKit/platform/async/Task.h>

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace living_room {

/// One request of a browser, with what it needs to be answered.
struct Visit {
    const Service& service;
    /// The file of hls.js; empty if there is none.
    const std::string& hlsFile;
    Request request;
    std::shared_ptr<User> user;

    const VanticRestKit::Context& catalogue() const { return user->catalogue(); }
    VanticRestKit::LoadOptions options() const { return service.options(request.gone); }
};

using Page = VanticRestKit::Task<Answer> (*)(Visit);

/// What was loaded, or why not. Operations of the user client and resources fail with errors of their own types; pages
/// only ask `adviceOn` about them, which knows all.
template <class T>
using Loaded = VanticRestKit::Result<T, VanticRestKit::Error>;

/// Loads `resource`, which is empty if its address could not be built. Name the resource before the call: GCC 12
/// destroys braced strings inside a co_await expression twice.
template <class T>
VanticRestKit::Task<Loaded<T>> load(std::optional<VanticRestKit::Resource<T>> resource,
                                    VanticRestKit::LoadOptions options) {
    if (!resource) {
        co_return VanticRestKit::Failure(
            VanticRestKit::Error(VanticRestKit::URLError::buildUrlRequestError()));
    }
    auto result = co_await resource->value(std::move(options));
    if (!result) co_return VanticRestKit::Failure(VanticRestKit::Error(std::move(result).error()));
    co_return std::move(result).value();
}

/// Runs an operation on the data of the user.
template <class T>
VanticRestKit::Task<Loaded<T>> run(VanticRestKit::UserClient::Call<T> operation,
                                   VanticRestKit::LoadOptions options) {
    auto result = co_await operation.value(std::move(options));
    if (!result) co_return VanticRestKit::Failure(VanticRestKit::Error(std::move(result).error()));
    if constexpr (std::is_void_v<T>) {
        co_return Loaded<void>();
    } else {
        co_return std::move(result).value();
    }
}

// The screens: what stands around them, at once and without asking the service.
VanticRestKit::Task<Answer> homePage(Visit visit);
VanticRestKit::Task<Answer> showPage(Visit visit);
VanticRestKit::Task<Answer> videoPage(Visit visit);
VanticRestKit::Task<Answer> searchPage(Visit visit);
VanticRestKit::Task<Answer> livePage(Visit visit);
VanticRestKit::Task<Answer> mePage(Visit visit);

// Their parts.
VanticRestKit::Task<Answer> homeScreen(Visit visit);
VanticRestKit::Task<Answer> row(Visit visit);
VanticRestKit::Task<Answer> notice(Visit visit);
VanticRestKit::Task<Answer> showScreen(Visit visit);
VanticRestKit::Task<Answer> seriesPart(Visit visit);
VanticRestKit::Task<Answer> relatedRow(Visit visit);
VanticRestKit::Task<Answer> savePart(Visit visit);
VanticRestKit::Task<Answer> videoScreen(Visit visit);
VanticRestKit::Task<Answer> searchResults(Visit visit);
VanticRestKit::Task<Answer> liveRow(Visit visit);
VanticRestKit::Task<Answer> liveNow(Visit visit);
VanticRestKit::Task<Answer> continueRow(Visit visit);
VanticRestKit::Task<Answer> profiles(Visit visit);
VanticRestKit::Task<Answer> myList(Visit visit);
VanticRestKit::Task<Answer> history(Visit visit);
VanticRestKit::Task<Answer> recommendations(Visit visit);
VanticRestKit::Task<Answer> panelLists(Visit visit);

// Forms.
VanticRestKit::Task<Answer> signIn(Visit visit);
VanticRestKit::Task<Answer> signOut(Visit visit);
VanticRestKit::Task<Answer> chooseProfile(Visit visit);
VanticRestKit::Task<Answer> save(Visit visit);
VanticRestKit::Task<Answer> keepProgress(Visit visit);
VanticRestKit::Task<Answer> setFault(Visit visit);

// Files, of the service and of the host.
VanticRestKit::Task<Answer> picture(Visit visit);
VanticRestKit::Task<Answer> stream(Visit visit);
VanticRestKit::Task<Answer> hostFile(Visit visit);

}  // namespace living_room
