#include "sim/printout.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

namespace sim {
namespace {

constexpr const char* kNotFiscal = "NIEFISKALNY";

}  // namespace

void BeginPrintout(Core& core, PrintoutKind kind, std::string_view title) {
    core.session.printout.kind = kind;
    core.BeginDocument();
    core.printer.Centred(LineKind::Printout, kNotFiscal, Letters::Wide);
    core.printer.Centred(LineKind::Printout, title);
    core.printer.Rule(LineKind::Printout);
}

void EndPrintout(Core& core) {
    if (!core.session.printout.open()) return;
    core.session.printout.kind = PrintoutKind::None;
    core.printer.Rule(LineKind::Printout);
    core.printer.Centred(LineKind::Printout, kNotFiscal, Letters::Wide);
    core.printer.Columns(LineKind::Printout, core.fiscal().unique_number,
                         fmt::format("{:%Y-%m-%d %H:%M}", core.clock()));
    core.printer.EndDocument(LineKind::Printout);
}

}  // namespace sim
