#include <VanticRestKit/Core/Serviceable.h>

namespace VanticRestKit {

Serviceable::~Serviceable() = default;

}  // namespace VanticRestKit
