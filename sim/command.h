// Commands as data: their bytes on the line, the layout of their data, and what carries them out.
//
// A sequence is Esc and a command byte, then the device's early answer (for most commands an
// acknowledgement and perhaps more), then the host's data, then perhaps an answer to the data. Each
// family of commands has a table in a file of its own under commands/; adding a command is adding
// a row.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "sim/core.h"
#include "sim/device.h"
#include "sim/model.h"

namespace sim {

inline constexpr std::uint8_t kEscape = 0x1B;
inline constexpr std::uint8_t kAcknowledgement = 0x06;
inline constexpr std::uint8_t kRefusal = 0x15;  // NAK
inline constexpr std::uint8_t kStatusDone = 0;  // first byte of an answer to data

enum class FieldKind {
    Character,       // one printable byte
    Byte,            // 0 to 255
    Amount,          // hundredths, signed, four bytes, least significant first
    Number,          // a plain number coded as an amount is
    Word,            // a plain number of two bytes, least significant first
    Digits,          // one byte of 0 to 9 for every digit
    Dots,            // eight dots a byte, the leftmost in the highest bit
    Text,            // in the device's code page
    AdditionalText,  // in the code page of additional lines
    Rate,            // number of a VAT rate
    Marker,          // an Esc inside the data
    Rates,           // a table of VAT rates
};

/// A field of the data. Fields follow each other without gaps.
struct Field {
    const char* label;
    FieldKind kind;
    int length;  // in bytes; kRest takes all that is left
};
inline constexpr int kRest = -1;

/// The data of a sequence, taken apart by a layout. Asking for a label that the layout has not is
/// a programming error (std::logic_error).
class Record {
  public:
    Record(std::span<const Field> layout, std::span<const std::uint8_t> data);

    std::span<const std::uint8_t> data() const { return data_; }
    std::span<const std::uint8_t> Raw(const char* label) const;
    std::uint8_t Byte(const char* label) const { return Raw(label)[0]; }
    std::int64_t Number(const char* label) const;
    int Word(const char* label) const;

    /// Labels and values for people.
    std::vector<std::pair<std::string, std::string>> Describe(const Core& core) const;

  private:
    std::span<const Field> layout_;
    std::span<const std::uint8_t> data_;
};

/// Where the data of a command end.
enum class DataEnd {
    Counted,           // after as many bytes as the layout has, or as the data themselves tell
    LineFeed,          // with a line feed
    LineFeedOrEscape,  // with a line feed, or before the next sequence, or when no more bytes come
    Frame,             // with Esc, 0xB3
    DisplayFrame,      // with a line feed, Esc, "S"
};

/// When a command is in its place. In an open receipt a command out of its place cancels it. While
/// a non-fiscal printout is open no other document can be begun.
enum class Moment {
    Anytime,
    NoReceipt,
    NoDocument,  // neither a receipt nor a printout
    InReceipt,
    InPrintout,
};

/// Whether the device is in a state for commands of this moment.
bool InPlace(const Core& core, Moment moment);

struct Command {
    std::uint8_t code = 0;
    const char* name = "";
    const char* id = "";  // for scripts and decoded recordings: never changes; several layouts of
                          // one thing share it
    int early = 0;        // bytes answered before the data, the acknowledgement included
    int late = 0;         // bytes answered to data that are taken, at least
    bool status_byte =
        false;  // the early answer is one byte of data in place of the acknowledgement
    DataEnd data_end = DataEnd::Counted;
    std::span<const Field> layout = {};
    /// Of counted data whose length the bytes of fixed length tell: the length of all of them.
    int (*data_length)(std::span<const std::uint8_t>) = nullptr;
    ModelSet models = kAllModels;
    Moment moment = Moment::Anytime;

    /// Answered to data that are not taken, because the device lacks the command, because it is out
    /// of its place, or because a rule is broken (which cancels the receipt as well). Without one
    /// nothing is answered then.
    std::optional<std::uint8_t> refusal{};
    /// Answered when the host breaks off inside the data.
    std::optional<std::uint8_t> incomplete{};

    /// What comes with the acknowledgement (early - 1 bytes, or the status byte); nothing to refuse
    /// the command. Without one the command is just acknowledged.
    std::optional<Bytes> (*accept)(Core&) = nullptr;
    /// Takes the data; returns the answer to them.
    Bytes (*execute)(Core&, const Record&) = nullptr;
};

/// Bytes of the fields of fixed length: all the data of a command whose data are counted, and what
/// the data of the others begin with.
int CountedLength(const Command& command);

/// The command of a byte, null when no device has it.
const Command* FindCommand(std::uint8_t code);

/// What a byte outside any sequence begins: an open printout takes lines without Esc and command
/// byte. Null when it takes none.
const Command* BareLine(const Core& core);
/// The lines of a printout of free lines, and of the control of articles' rates.
std::span<const Command> BareLines();

// The families.
std::span<const Command> IdentityCommands();
std::span<const Command> StatusCommands();
std::span<const Command> VatCommands();
std::span<const Command> ReceiptCommands();
std::span<const Command> ItemCommands();
std::span<const Command> DiscountCommands();
std::span<const Command> PackageCommands();
std::span<const Command> InvoiceCommands();
std::span<const Command> PaymentCommands();
std::span<const Command> ReportCommands();
std::span<const Command> ClockCommands();
std::span<const Command> TotalsCommands();
std::span<const Command> ConfigurationCommands();
std::span<const Command> FooterLogoCommands();
std::span<const Command> PrintoutCommands();
std::span<const Command> SundryCommands();
std::span<const Command> DisplayCommands();
std::span<const Command> FrameCommands();

}  // namespace sim
