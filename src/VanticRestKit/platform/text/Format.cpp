#include <VanticRestKit/platform/text/Format.h>

namespace VanticRestKit {

std::string zeroFractionFormat([[maybe_unused]] std::uint64_t number) { return "0"; }

}  // namespace VanticRestKit
