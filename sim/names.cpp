#include "sim/names.h"

#include <fmt/format.h>

#include <algorithm>
#include <tuple>

#include "sim/command.h"
#include "sim/frame.h"

namespace sim {
namespace {

std::vector<ExchangeName> Collect() {
    std::vector<ExchangeName> names;
    for (int code = 0; code < 256; ++code)
        if (const Command* command = FindCommand(static_cast<std::uint8_t>(code)))
            names.push_back(
                {command->id, fmt::format("{:02x}{:02x}", kEscape, code), command->name});
    for (const Command& line : BareLines()) names.push_back({line.id, "", line.name});
    for (const TextFrame* frame : AllFrames()) {
        std::string bytes = fmt::format("{:02x}{:02x}", kEscape, kFrameBegin);
        for (const char c : frame->prefix)
            bytes += fmt::format("{:02x}", static_cast<unsigned char>(c));
        names.push_back({frame->id, bytes, frame->name});
    }
    std::ranges::sort(names, {},
                      [](const ExchangeName& name) { return std::tie(name.name, name.bytes); });
    return names;
}

}  // namespace

const std::vector<ExchangeName>& ExchangeNames() {
    static const std::vector<ExchangeName> kNames = Collect();
    return kNames;
}

bool IsExchangeName(std::string_view name) {
    return std::ranges::any_of(ExchangeNames(),
                               [&](const ExchangeName& known) { return known.name == name; });
}

std::string CommandsText() {
    std::string text;
    for (const ExchangeName& name : ExchangeNames())
        text += fmt::format("{:<28} {:<32} {}\n", name.name, name.bytes.empty() ? "-" : name.bytes,
                            name.title);
    return text;
}

}  // namespace sim
