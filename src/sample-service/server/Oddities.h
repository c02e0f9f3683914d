#pragma once

#include "server/Exchange.h"

namespace VanticRestKit::sample {

/// Makes an answer one of a service that is newer than its clients, and not well. Every collection in it gets
/// - in front, an entity that nobody knows and that looks like a series;
/// - behind its first element, an entity that nobody knows and that looks like nothing, a null, a number, a
/// text
///   and a list;
/// - a first show whose id is a text and whose kind and theme are unknown;
/// - a last video without links;
/// - an unknown type, and an unknown entity as the item to highlight where it has one.
void addOddities(JSON& value);

/// Only what is unknown of these: entities, and the collections' types.
void addUnknownEntities(JSON& value);

/// Only what is broken of these: elements that are no entities, the show and the video.
void addBrokenElements(JSON& value);

}  // namespace VanticRestKit::sample
