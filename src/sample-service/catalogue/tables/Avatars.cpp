#include "catalogue/Tables.h"

// clang-format off: a table, a line or two for each row

namespace VanticRestKit::sample {

const std::vector<Avatar>& avatars() {
    static const auto& table = *new std::vector<Avatar>{
        {"wombat", "A wombat with a scarf", "animals"},
        {"heron", "A heron on one leg", "animals"},
        {"gecko", "A gecko upside down", "animals"},
        {"lantern", "A paper lantern", "things"},
        {"kettle", "A whistling kettle", "things"},
        {"rocket", "A rocket with round windows", "things"},
        {"baker", "A baker with flour on the nose", "people"},
        {"pilot", "A pilot in goggles", "people"},
        {"diver", "A diver waving", "people"},
    };
    return table;
}

}  // namespace VanticRestKit::sample
