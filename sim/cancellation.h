// Why a device cancels a receipt by itself.
#pragma once

namespace sim {

/// Reasons under the codes that the device tells the host.
enum class Reason : int {
    None = 0,
    ByHost = 32,
    UnexpectedSequence = 49,
    WrongDiscount = 50,
    WrongOrder = 51,
    ReceiptTooLong = 52,
    TooManyAdditionalLines = 53,
    OpenTooLong = 54,
    TotalsDiffer = 55,
    UnprintableCharacter = 65,
    NameTooShort = 66,
    ArticleLocked = 67,
    NoRoomForTotals = 68,
    WrongQuantity = 70,
    WrongPrice = 71,
    MarkerMissing = 72,
    WrongRate = 73,
    NegativeBalance = 74,
    WrongValue = 75,
    ZeroValue = 82,
    ReceiptTooBig = 83,
    ZeroTotal = 84,
    SurchargeTooBig = 85,
    NotAfterItem = 87,
    DataTimeout = 88,
    WrongCurrencyPayment = 89,
};

/// The reason in Polish, as the device prints it.
const char* Describe(Reason reason);

/// Thrown by a rule that the host has broken; the receipt is then cancelled.
struct Violation {
    Reason reason;
};

inline void Require(bool kept, Reason reason) {
    if (!kept) throw Violation{reason};
}

}  // namespace sim
