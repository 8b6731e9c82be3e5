// Text frames: Esc, 0xB0, the frame's text, Esc, 0xB3. One command byte carries them all; what
// a frame is, its first characters tell. The device answers every frame, most of them with one
// byte.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "sim/command.h"

namespace sim {

inline constexpr std::uint8_t kFrameBegin = 0xB0;
inline constexpr std::uint8_t kFrameEnd = 0xB3;

/// Thrown by a frame's handler that cannot make out the frame.
struct MalformedFrame {};

struct TextFrame {
    std::string_view prefix;
    const char* name = "";
    const char* id = "";  // as that of a command
    ModelSet models = kAllModels;
    Moment moment = Moment::Anytime;
    /// Takes what follows the prefix; returns the whole answer.
    Bytes (*execute)(Core&, std::span<const std::uint8_t>) = nullptr;
};

/// The frame of a text, null when no device has it.
const TextFrame* FindFrame(std::span<const std::uint8_t> content);

/// The frames of all families.
std::vector<const TextFrame*> AllFrames();

// The families.
std::span<const TextFrame> ItemFrames();
std::span<const TextFrame> TotalsFrames();
std::span<const TextFrame> PrintoutFrames();
std::span<const TextFrame> SundryFrames();

}  // namespace sim
