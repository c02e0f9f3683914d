#pragma once

#include "catalogue/Catalogue.h"

namespace VanticRestKit::sample {

/// The shows that contain a keyword, in any case: matches in the title first, then those in a tag, the description, the
/// cast or the title of an episode. An empty keyword finds nothing.
std::vector<const Show*> showsFoundBy(const std::string& keyword);

/// The six shows that have most in common with a show, best match first.
std::vector<const Show*> showsRelatedTo(const Show& show);

}  // namespace VanticRestKit::sample
