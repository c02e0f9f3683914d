#pragma once

namespace vantic {

/// Opens those of the descriptors 0, 1 and 2 that are closed, so that no other file or socket gets their number.
/// Reading from them yields no data, and writing fails. Call this before anything else is opened. Throws `Failed` on
/// errors.
void openMissingStandardDescriptors();

}  // namespace vantic
