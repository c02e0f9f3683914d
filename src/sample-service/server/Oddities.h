#pragma once

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// Changes an answer to that of a faulty service that is newer than its clients. Every collection in it gets
/// - at the front, an unknown entity that looks like a series;
/// - after its first element, an unknown entity that looks like nothing, a null, a number, a string and a list;
/// - a first show whose id is a string and whose kind and theme are unknown;
/// - a last video without links;
/// - an unknown type, and an unknown entity as the item to highlight, if it has one.
void addOddities(JSON& value);

/// Only the unknown parts: entities and the types of collections.
void addUnknownEntities(JSON& value);

/// Only the broken parts: elements that are not entities, the show and the video.
void addBrokenElements(JSON& value);

}  // namespace VanticRestKit::sample
