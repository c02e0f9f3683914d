#pragma once

namespace vantic {

/// Opens those of the descriptors 0, 1 and 2 that the program was started without, so that no file or socket
/// of its own takes their place. They have nothing to read, and writing to them fails. To be called before
/// anything is opened; throws `Failed` where that does not work.
void openMissingStandardDescriptors();

}  // namespace vantic
