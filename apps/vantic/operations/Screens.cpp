#include <VanticRestKit/lumeno/Categories/Category.h>
#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/MixedCollection/MixedCollection.h>
#include <VanticRestKit/lumeno/Navigation/BrowseList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationMainMenuList.h>
#include <VanticRestKit/lumeno/Navigation/NavigationRoutes.h>

#include "arguments/Values.h"
#include "operations/Operation.h"

namespace vantic {

using VanticRestKit::Endpoint;
using VanticRestKit::NavigationType;

std::vector<Operation> screenOperations() {
    using Given = const Arguments&;
    using In = const Host&;
    return {
        {"Home", "the home screen", {}, [](Given, In host) { return loadable(Endpoint::Home(host)); }},
        {"Browse",
         "the channels and categories to browse",
         {},
         [](Given, In host) { return loadable(Endpoint::Browse(host)); }},
        {"Collection",
         "a collection of mixed items",
         {required("collectionId", "ID", "the id of the collection"),
          flag("embedHighlightItem", "embeds the item to highlight")},
         [](Given given, In host) {
             return loadable(Endpoint::Collection({.collectionId = given.text("collectionId"),
                                                   .embedHighlightItem = given.flag("embedHighlightItem")},
                                                  host));
         }},
        {"Category",
         "the screen of a category",
         {required("category", "CATEGORY", "the slug of the category")},
         [](Given given, In host) {
             return loadable(Endpoint::Category({.category = given.text("category")}, host));
         }},
        {"Channel",
         "the screen of a channel",
         {required("channel", "CHANNEL", "the slug of a channel")},
         [](Given given, In host) {
             return loadable(Endpoint::Channel({.channel = given.text("channel")}, host));
         }},
        {"Navigation",
         "the list of channels or of categories",
         {oneOf(required("type", "TYPE", "what to list"), rawTexts<NavigationType>)},
         [](Given given, In host) {
             return loadable(
                 Endpoint::Navigation({.type = readCase<NavigationType>("type", given.text("type"))}, host));
         }},
        {"NavigationMainMenuList",
         "the main menu",
         {required("channels", "CHANNELS", "the slugs of channels, separated by commas")},
         [](Given given, In host) {
             return loadable(Endpoint::NavigationMainMenuList({.channels = given.text("channels")}, host));
         }},
    };
}

}  // namespace vantic
