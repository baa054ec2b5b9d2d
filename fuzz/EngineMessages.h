#pragma once

#include "vtl/net/NetMsg.h"

namespace Vantrel::Fuzzing {

/** Prints a message, and requires that it comes out of its own frame as it went in. */
void checkMessage(const NetMsg& message);

} // namespace Vantrel::Fuzzing
