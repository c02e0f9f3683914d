#include <VanticRestKit/Core/ObservableContext.h>

namespace VanticRestKit {

// Out of line, so that the library has the one copy of the class's table of virtual functions.
ObservableContext::~ObservableContext() = default;

}  // namespace VanticRestKit
