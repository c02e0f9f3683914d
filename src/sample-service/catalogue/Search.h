#pragma once

#include "catalogue/Catalogue.h"

namespace VanticRestKit::sample {

/// The shows in which a keyword stands, in whatever case: those with it in the title first, then those with
/// it in a tag, in what they are about, among the people or in the title of an episode. An empty keyword
/// finds nothing.
std::vector<const Show*> showsFoundBy(const std::string& keyword);

/// The six shows that have most in common with another, the nearest first.
std::vector<const Show*> showsRelatedTo(const Show& show);

}  // namespace VanticRestKit::sample
