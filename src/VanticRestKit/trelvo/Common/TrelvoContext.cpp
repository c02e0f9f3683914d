#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

namespace VanticRestKit {

// Out of line, so that the library has the one copy of the class's table of virtual functions.
TrelvoContext::~TrelvoContext() = default;

}  // namespace VanticRestKit
