// Frames of the modem link, written from their format alone: coder and check sum are the tests'
// own.
#pragma once

#include <optional>

#include "support/memory_platform.h"

namespace modem {

// A frame on the line around its body: flags and what follows them.
Bytes Frame(const Bytes& body);
// The body of one whole frame; nothing when it is damaged.
std::optional<Bytes> Unframe(const Bytes& line);

}  // namespace modem
