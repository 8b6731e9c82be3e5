// Who the device is: model, program version, code page.
#include <algorithm>
#include <string_view>

#include "sim/command.h"

namespace sim {
namespace {

constexpr std::uint8_t kCodePage1250Bit = 0x08;
constexpr std::size_t kParameterLength = 40;
constexpr std::uint8_t kUnknownParameter = 123;

constexpr Field kParameterQuery[] = {
    {"operation", FieldKind::Byte, 1},
    {"name", FieldKind::Text, 40},
};

std::optional<Bytes> Identify(Core& core) {
    return Bytes{core.model.identity};
}

std::optional<Bytes> IdentifyFurther(Core& core) {
    if (!core.model.variant) return std::nullopt;
    return Bytes{*core.model.variant, static_cast<std::uint8_t>(core.version), 0};
}

// The number by which the device calls a code page.
std::string_view CodePageNumber(CodePage page) {
    switch (page) {
        case CodePage::Cp852:
            return "16";
        case CodePage::Cp1250:
            return "17";
        case CodePage::Mazovia:
            break;
    }
    return "19";
}

// Two pages fit into a bit of the status; the third can only be told by its number.
std::optional<Bytes> CodePageStatus(Core& core) {
    switch (core.code_page) {
        case CodePage::Cp852:
            return Bytes{0, 0, 0};
        case CodePage::Cp1250:
            return Bytes{kCodePage1250Bit, 0, 0};
        case CodePage::Mazovia:
            break;
    }
    const std::string_view number = CodePageNumber(core.code_page);
    return Bytes{static_cast<std::uint8_t>(number[0]), static_cast<std::uint8_t>(number[1]), 0};
}

Bytes ReadParameter(Core& core, const Record& query) {
    static constexpr std::uint8_t kRead = 2;
    const auto name = query.Raw("name");
    const std::string_view text(reinterpret_cast<const char*>(name.data()), name.size());
    Bytes answer(1 + kParameterLength, ' ');
    const bool known = query.Byte("operation") == kRead &&
                       text.substr(0, text.find_last_not_of(' ') + 1) == "code_page";
    answer[0] = known ? kStatusDone : kUnknownParameter;
    if (known) std::ranges::copy(CodePageNumber(core.code_page), answer.begin() + 1);
    return answer;
}

constexpr Command kCommands[] = {
    {.code = 0xFF, .name = "identify", .id = "identify", .early = 2, .accept = Identify},
    {.code = 0xFE,
     .name = "identify further",
     .id = "identify-further",
     .early = 4,
     .accept = IdentifyFurther},
    {.code = 0xC3,
     .name = "code page status",
     .id = "code-page-status",
     .early = 4,
     .models = {8, 9, 10, 11, 12},
     .accept = CodePageStatus},
    {.code = 0xCF,
     .name = "read parameter",
     .id = "read-parameter",
     .early = 1,
     .late = 41,
     .layout = kParameterQuery,
     .models = ModelSet{}.Since(10, 2).Since(11, 2),
     .execute = ReadParameter},
};

}  // namespace

std::span<const Command> IdentityCommands() {
    return kCommands;
}

}  // namespace sim
