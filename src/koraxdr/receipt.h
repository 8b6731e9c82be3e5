// What the families of functions that act on a receipt share.
#pragma once

#include <cstdint>

#include "koraxdr/frame.h"

// Reason of the last cancellation; a code other than 0 means that the device has cancelled the
// receipt.
inline constexpr ControlSequence kPowodUniewaznienia = {80, 2};

// Form of payment and its change: number, 13 characters of the name, amount.
inline constexpr ControlSequence kFormaPlatnosci = {129, 0, 18};
inline constexpr ControlSequence kResztaPlatnosci = {130, 0, 18};

// Currency payment 2; also the cancellation of a receipt with nothing printed on some types.
inline constexpr ControlSequence kPlatnoscWalutowa2 = {132, 0, 16};

// Asks by status B (older types) or by the reason of the cancellation (newer types) whether the
// device has cancelled the receipt: 0 when it stands, else the engine's error, or 210 with the
// receipt's flags cleared.
int32_t SprawdzUniewaznieniePrzezStatus();
int32_t SprawdzUniewaznieniePrzezPowod();

// Sends a form of payment and its change at once.
int32_t WyslijPlatnosc(int32_t numer, const char* nazwa, int32_t kwota, int32_t reszta);

// Opens a fiscal document: settles a stale open-receipt flag with the device, prepares the line and
// refreshes the code page. 0, 200, or an error.
int32_t PrzygotujDokument();
// After the device has accepted it.
void RozpocznijDokument(bool faktura);

// Sum of the totals of all rates, and an amount kept inside 32 bits.
int64_t SumaParagonu();
int32_t Nasycona(int64_t kwota);

inline constexpr uint8_t kBitUniewaznienia = 0x10;  // status B
