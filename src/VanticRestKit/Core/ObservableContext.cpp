#include <VanticRestKit/Core/ObservableContext.h>

namespace VanticRestKit {

// Out of line, so that the vtable is emitted only in the library.
ObservableContext::~ObservableContext() = default;

}  // namespace VanticRestKit
