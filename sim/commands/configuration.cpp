// Configuration bytes, in groups of three. What they mean is the host's business.
#include "sim/command.h"

namespace sim {
namespace {

constexpr Field kGroup[] = {
    {"group", FieldKind::Byte, 1},
};
constexpr Field kGroupAndBytes[] = {
    {"group", FieldKind::Byte, 1},
    {"byte 1", FieldKind::Byte, 1},
    {"byte 2", FieldKind::Byte, 1},
    {"byte 3", FieldKind::Byte, 1},
};

Bytes ReadGroup(Core& core, const Record& record) {
    const ConfigurationGroup& group = core.working().configuration[record.Byte("group")];
    return {kStatusDone, group[0], group[1], group[2]};
}

Bytes WriteGroup(Core& core, const Record& record) {
    const ConfigurationGroup group = {record.Byte("byte 1"), record.Byte("byte 2"),
                                      record.Byte("byte 3")};
    const Change change{.configuration = {{record.Byte("group"), group}}};
    return {core.Commit(Point::Configuration, change) ? kStatusDone : kRefusal};
}

constexpr Command kCommands[] = {
    {.code = 0xDF,
     .name = "read configuration group",
     .id = "read-configuration",
     .early = 1,
     .late = 4,
     .layout = kGroup,
     .execute = ReadGroup},
    {.code = 0xDE,
     .name = "write configuration group",
     .id = "write-configuration",
     .early = 1,
     .late = 1,
     .layout = kGroupAndBytes,
     .execute = WriteGroup},
};

}  // namespace

std::span<const Command> ConfigurationCommands() {
    return kCommands;
}

}  // namespace sim
