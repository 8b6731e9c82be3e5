// The inside of the device: what it is, its memory by life time, and the steps that all its
// commands share.
#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sim/cancellation.h"
#include "sim/device.h"
#include "sim/display.h"
#include "sim/line_session.h"
#include "sim/model.h"
#include "sim/printer.h"
#include "sim/storage.h"

namespace sim {

class Core {
  public:
    /// A device that begins with this memory. Throws std::invalid_argument for options that no
    /// device has.
    Core(const DeviceOptions& options, Memory memory, Storage& storage);

    bool Is(const ModelSet& models) const { return models.Has(options.type, version); }

    /// A text of the host in the device's code page, and one that is always in code page 852 where
    /// the device's own page can be another.
    std::string Text(std::span<const std::uint8_t> text) const;
    std::string AdditionalText(std::span<const std::uint8_t> text) const;

    /// The clock on the paper: real time that has passed, faster or slower, and moved by the host.
    std::chrono::sys_seconds clock() const;
    std::chrono::sys_days today() const { return std::chrono::floor<std::chrono::days>(clock()); }

    const FiscalMemory& fiscal() const { return memory_.fiscal; }
    const WorkingMemory& working() const { return memory_.working; }
    /// The open receipt, else the last one, and the articles that its end will remember: these are
    /// changed in place, after their commit.
    Receipt& receipt() { return memory_.working.receipt; }
    const Receipt& receipt() const { return memory_.working.receipt; }
    Articles& sold() { return memory_.working.sold; }

    /// Keeps a change and makes it. False where there is no room: nothing has changed then, and the
    /// command is to be refused.
    [[nodiscard]] bool Commit(Point point, const Change& change = {});
    /// The same for what the host adds to the open receipt. Throws Violation.
    void CommitInReceipt(Point point);
    bool HasRoom() const { return storage_.HasRoom(); }

    /// A line of the footer, without blanks at its end.
    std::string FooterText(std::size_t line) const;

    /// Puts new rates in force, as far as the device's table can hold them; false where there is no
    /// room. Articles are remembered by their rates, so they are forgotten.
    bool SetRates(const VatRates& new_rates);

    /// Counts a document and prints what every document begins with.
    void BeginDocument();
    /// Prints it for a document that has been counted.
    void PrintHead();
    /// Cancels the open receipt, if there is one.
    void Cancel(Reason reason);
    /// The device goes off and on again: the working memory keeps, what stands open is lost, an open
    /// receipt is void.
    void LosePower();
    /// Makes happen what a fault that has been switched on does to the device.
    void NoticeFaults();
    /// Adds a remark to the exchange being watched.
    void Note(std::string_view remark);

    const DeviceOptions options;
    const Model& model;
    const int version;
    const CodePage code_page;

    FaultPanel faults;
    Printer printer{faults};
    Display display;
    std::array<int, kDrawers> drawers_opened{};

    std::chrono::milliseconds now{};        // since the device was switched on, for time-outs
    std::chrono::milliseconds passed{};     // the same for the calendar
    std::chrono::seconds calendar_shift{};  // by whoever plays with the device
    LineSession session;
    std::string note;

  private:
    // What happens to the device is no command that could be refused: it changes the memory even
    // where there is no room to keep it.
    void Enforce(Point point, const Change& change);

    Memory memory_;
    bool erased_ = false;  // the fault has been noticed
    Storage& storage_;
};

}  // namespace sim
