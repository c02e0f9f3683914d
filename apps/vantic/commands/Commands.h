#pragma once

#include "arguments/Arguments.h"

// The commands. Each is given the words behind its name and throws `UsageError` or `Failed`.
namespace vantic {

void runTypes(Words words);
void runDecode(Words words);
void runExplain(Words words);
void runRequest(Words words);
void runLoad(Words words);
void runUser(Words words);
void runHelp(Words words);

}  // namespace vantic
