#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>

#include "operations/HrefOperation.h"
#include "operations/Operation.h"

namespace vantic {

using VanticRestKit::Endpoint;

std::vector<Operation> videoOperations() {
    using Given = const Arguments&;
    using In = const Host&;
    return {
        {"Time", {}, [](Given, In host) { return loadable(Endpoint::Time(host)); }},
        {"Resource", {required("withHref"), optional("as")}, callResource},
        {"Avatars", {}, [](Given, In host) { return loadable(Endpoint::Avatars(host)); }},
        {"Video",
         {required("houseNumber")},
         [](Given given, In host) {
             return loadable(Endpoint::Video({.houseNumber = given.text("houseNumber")}, host));
         }},
        {"Video",
         {required("usingHref")},
         [](Given given, In host) {
             return loadable(Endpoint::Video({.usingHref = given.text("usingHref")}, host));
         }},
        {"Videos",
         {repeated("houseNumbers")},
         [](Given given, In host) {
             return loadable(Endpoint::Videos({.houseNumbers = given.texts("houseNumbers")}, host));
         }},
    };
}

}  // namespace vantic
