#include <VanticRestKit/Core/Version.h>

namespace VanticRestKit {

// From the project() of the top CMakeLists.txt, the one place where the version is written.
std::string_view libraryVersion() noexcept { return VRK_VERSION; }

}  // namespace VanticRestKit
