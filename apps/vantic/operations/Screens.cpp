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
        {"Home", {}, [](Given, In host) { return loadable(Endpoint::Home(host)); }},
        {"Browse", {}, [](Given, In host) { return loadable(Endpoint::Browse(host)); }},
        {"Collection",
         {required("collectionId"), flag("embedHighlightItem")},
         [](Given given, In host) {
             return loadable(Endpoint::Collection({.collectionId = given.text("collectionId"),
                                                   .embedHighlightItem = given.flag("embedHighlightItem")},
                                                  host));
         }},
        {"Category",
         {required("category")},
         [](Given given, In host) {
             return loadable(Endpoint::Category({.category = given.text("category")}, host));
         }},
        {"Channel",
         {required("channel")},
         [](Given given, In host) {
             return loadable(Endpoint::Channel({.channel = given.text("channel")}, host));
         }},
        {"Navigation",
         {required("type")},
         [](Given given, In host) {
             return loadable(
                 Endpoint::Navigation({.type = readCase<NavigationType>("type", given.text("type"))}, host));
         }},
        {"NavigationMainMenuList",
         {required("channels")},
         [](Given given, In host) {
             return loadable(Endpoint::NavigationMainMenuList({.channels = given.text("channels")}, host));
         }},
    };
}

}  // namespace vantic
