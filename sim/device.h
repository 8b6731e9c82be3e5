// A simulated fiscal cash register or printer, as seen from its serial line.
//
// The library does no input or output of its own: bytes from the host go in, answers and paper come
// out, and time passes only when it is told to. The same class serves tests (in memory, no waiting)
// and the program koraxsim (over a pseudo-terminal, in real time).
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "sim/paper.h"
#include "sim/receipt.h"

namespace sim {

using Bytes = std::vector<std::uint8_t>;

/// Code page in which the device expects texts.
enum class CodePage { Cp852, Cp1250, Mazovia };

/// VAT rates in hundredths of a percent, A to G, with two reserved values.
inline constexpr int kRateExempt = 10000;
inline constexpr int kRateUnused = 25500;
using VatRates = std::array<int, kRates>;

/// Smallest and largest device type.
inline constexpr int kFirstType = 1;
inline constexpr int kLastType = 13;

/// What the customer sees: nothing, one line of text, numbered fields, or two lines of text.
enum class DisplayKind { None, OneLine, Numbered, TwoLines };

/// A daily report as the fiscal memory keeps it.
struct DailyReport {
    int number = 0;  // 1 to 65535
    std::chrono::sys_seconds made{};
    int receipts = 0;
    int cancelled_receipts = 0;
    RateAmounts totals{};
    VatRates rates{};  // in force when it was made
};

/// What the device remembers of an article, by its name, from one receipt to the next.
struct Article {
    int rate = 0;               // index of the rate of the last sale
    bool rate_lowered = false;  // locked against higher rates
};

/// A picture of 192 by 64 dots, rows from the top; the leftmost dot of a byte is its highest bit
/// and 1 is black.
struct Logo {
    std::array<std::array<std::uint8_t, 24>, 64> rows{};
    bool operator==(const Logo&) const = default;
};
/// The logo as a picture file (portable bit map).
std::string AsPbm(const Logo& logo);

/// Lines after every receipt, and drawers.
inline constexpr int kFooterLines = 3;
inline constexpr int kDrawers = 3;

/// A line of the user's, with the mode of its print.
struct UserLine {
    int mode = 0;
    std::string text;
    bool operator==(const UserLine&) const = default;
};

/// Printed at the end of every receipt.
struct CashierCodes {
    std::string cash_register;
    std::string cashier;
    bool operator==(const CashierCodes&) const = default;
};

/// A group of configuration bytes; the device has 256 of them.
using ConfigurationGroup = std::array<std::uint8_t, 3>;

/// What a device is when it is switched on.
struct DeviceOptions {
    int type = 10;                              // kFirstType to kLastType
    std::optional<int> program_version{};       // 0 to 255; default: a current version of the type
    std::optional<CodePage> code_page{};        // default 852; only types 8 to 12 can have another
    std::optional<VatRates> vat_rates{};        // default: A 23 %, B 8 %, C 5 %, D 0 %, G exempt
    std::string unique_number = "KRX13000042";  // 11 characters
    std::vector<std::string> header = {"SKLEP SPOŻYWCZY \"POD LIPĄ\"",
                                       "ul. Źródlana 7, 00-950 Łomża",
                                       "NIP 123-456-32-18"};  // printed centred above every receipt
    std::chrono::sys_seconds clock{std::chrono::sys_days{std::chrono::year{2013} / 12 / 10} +
                                   std::chrono::hours{9} + std::chrono::minutes{30}};
    double clock_rate = 1;                         // 0 to 1'000'000 seconds of the clock a second
    std::optional<DisplayKind> display{};          // default: what the type usually has
    std::vector<DailyReport> daily_reports{};      // of earlier days, ascending
    std::chrono::milliseconds data_timeout{2000};  // longest pause inside a sequence
    std::chrono::milliseconds receipt_timeout{std::chrono::minutes{20}};  // longest open receipt
};

/// What can be wrong with a device; all of it may change at any time. What can be wrong with its
/// line is in sim/faults.h.
struct FaultPanel {
    // Each of these shows in the status bytes; those of the first group forbid a receipt.
    bool no_paper = false;  // printing stops; once there is paper again the host has to resume it
    bool printer_failure = false;
    bool no_printer_controller = false;
    bool cmos_erased = false;
    bool no_producer_data = false;
    bool no_user_data = false;
    bool read_only = false;  // of the fiscal module
    bool service_jumper = false;
    bool no_customer_display = false;
    bool pending_daily_report = false;

    // What the printing unit is busy with; a host may wait for as long as the last one stands
    // alone.
    bool document_in_memory = false;   // status A 0x02
    bool print_buffer_filled = false;  // status B 0x01
    bool print_halted = false;         // status B 0x40
};

/// One exchange on the line, decoded for people.
struct Exchange {
    int number = 0;                                             // counted from 1
    std::chrono::milliseconds at{};                             // since the device was switched on
    std::uint8_t command = 0;                                   // 0 for bytes outside any sequence
    std::string name;                                           // of the command, as a title
    std::string id;                                             // its stable name
    Bytes received;                                             // from the host, Esc included
    Bytes answered;                                             // by the device
    std::vector<std::pair<std::string, std::string>> fields{};  // of the data, label and value
    std::string note{};  // what came of it, where it is not plain from the answer
};

/// An exchange as a few lines of text.
std::string FormatExchange(const Exchange& exchange);

class Core;
class Storage;
class Wire;
struct Memory;

/// A device, from being switched on. Throws std::invalid_argument for options that no device has.
class Device {
  public:
    /// A new device, whose memory ends with it.
    explicit Device(const DeviceOptions& options = {});
    /// A device with a memory that it had, whose changes `storage` keeps; it outlives the device.
    /// Rates, reports and the unique number are the memory's, whatever the options say.
    Device(const DeviceOptions& options, Memory memory, Storage& storage);
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    /// The line: bytes from the host in any portions, and what the device has said since.
    void Receive(std::span<const std::uint8_t> bytes);
    Bytes TakeAnswer();
    /// Time passes: the clock and the time-outs.
    void Advance(std::chrono::milliseconds time) { Advance(time, time); }
    /// The same where some of the time that has passed for the clock does not count for time-outs:
    /// the program was kept from running, and the host's bytes have been waiting for it.
    void Advance(std::chrono::milliseconds time, std::chrono::milliseconds passed);

    /// So many of the next commands that are acknowledged are refused and not carried out.
    void RefuseNext(int commands);
    int refusals_left() const;
    /// The mains. Without power the device hears nothing and says nothing; what it was doing and the
    /// open receipt are lost, the working memory keeps.
    void SwitchOff();
    void SwitchOn();
    bool powered() const;
    /// Sets the calendar forward or, by a negative time, back, as long as the device lives.
    void ShiftClock(std::chrono::seconds time);

    /// What was printed since the device was switched on or its paper was torn off, and the same as
    /// lines of text.
    const std::vector<PaperElement>& printed() const;
    std::vector<PaperLine> paper() const;
    void TearOffPaper();
    /// Called after every exchange; an empty function ends it.
    void OnExchange(std::function<void(const Exchange&)> watcher);
    /// Called with number and names before the device acts on a command.
    void OnCommand(std::function<void(const Exchange&)> watcher);
    /// Number of the exchange that began last.
    int exchanges() const;

    const DeviceOptions& options() const;
    FaultPanel& faults();
    const Receipt& receipt() const;  // the open receipt, else the last one
    bool receipt_open() const { return receipt().open(); }
    int receipt_counter() const;            // receipts since the last daily report
    int cancellation_reason() const;        // of the last receipt, 0 if it was not cancelled
    const RateAmounts& day_totals() const;  // sold per rate since the last daily report
    const VatRates& vat_rates() const;
    void SetVatRates(const VatRates& rates);  // as service would, whatever the state
    std::chrono::sys_seconds clock() const;

    int cancelled_receipts() const;  // since the last daily report
    int report_number() const;       // of the last daily report, 0 before the first
    const std::vector<DailyReport>& daily_reports() const;
    const std::map<std::string, Article>& articles() const;
    const std::array<int, kDrawers>& drawers_opened() const;  // how often each was opened
    bool printout_open() const;                               // a non-fiscal one
    std::array<std::string, kFooterLines> footer() const;
    const std::optional<Logo>& logo() const;
    const std::vector<std::string>& display() const;  // its lines, without blanks at their ends
    std::string display_text() const;                 // all its lines
    const std::map<int, UserLine>& user_lines() const;
    const CashierCodes& cashier_codes() const;
    const ConfigurationGroup& configuration(int group) const;  // 0 to 255

  private:
    // The device as it is now, faults noticed.
    Core& core() const;

    std::unique_ptr<Core> core_;
    std::unique_ptr<Wire> wire_;
};

}  // namespace sim
