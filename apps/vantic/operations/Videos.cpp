#include <VanticRestKit/lumeno/Endpoints/Endpoint.h>
#include <VanticRestKit/lumeno/Image/Image.h>
#include <VanticRestKit/lumeno/Video/VideoList.h>

#include "operations/HrefOperation.h"
#include "operations/Operation.h"
#include "types/Type.h"

namespace vantic {

using VanticRestKit::Endpoint;

std::vector<Operation> videoOperations() {
    using Given = const Arguments&;
    using In = const Host&;
    return {
        {"Time",
         "the time of the service",
         {},
         [](Given, In host) { return loadable(Endpoint::Time(host)); }},
        {"Resource",
         "a document of any type, by its href",
         {required("withHref", "HREF", "the href of the document"),
          oneOf(optional("as", "TYPE", "the type to decode the response into"), typeNames)},
         callResource},
        {"Avatars",
         "the images that users can choose as avatars",
         {},
         [](Given, In host) { return loadable(Endpoint::Avatars(host)); }},
        {"Video",
         "a video by its house number",
         {required("houseNumber", "NUMBER", "the house number of the video")},
         [](Given given, In host) {
             return loadable(Endpoint::Video({.houseNumber = given.text("houseNumber")}, host));
         }},
        {"Video",
         "a video by its href",
         {required("usingHref", "HREF", "its href in another document")},
         [](Given given, In host) {
             return loadable(Endpoint::Video({.usingHref = given.text("usingHref")}, host));
         }},
        {"Videos",
         "several videos by their house numbers",
         {repeated("houseNumbers", "NUMBER", "the house number of one of the videos")},
         [](Given given, In host) {
             return loadable(Endpoint::Videos({.houseNumbers = given.texts("houseNumbers")}, host));
         }},
    };
}

}  // namespace vantic
