#include <VanticRestKit/trelvo/Common/TrelvoContext.h>

namespace VanticRestKit {

// Defined here so that the library contains the only copy of the vtable.
TrelvoContext::~TrelvoContext() = default;

}  // namespace VanticRestKit
