// The fiscal document that is open, receipt or invoice: what the families of functions that act on
// it share. All of it wants a session.
#pragma once

#include <cstdint>

// Asks by status B (older types) or by the reason of the cancellation (newer types) whether the
// device has cancelled the receipt: 0 when it stands, else the engine's error, or 210 with the
// receipt's flags cleared.
int32_t SprawdzUniewaznieniePrzezStatus();
int32_t SprawdzUniewaznieniePrzezPowod();

// Prepares the opening of a document: settles a stale open-receipt flag with the device, prepares
// the line and refreshes the code page. 0, 200, or an error.
int32_t PrzygotujDokument();
// After the device has accepted it.
void RozpocznijDokument(bool invoice);

// Sends a form of payment and its change at once.
//   number  1 to 4
//   name    13 characters are used
//   amount, change  hundredths
int32_t WyslijPlatnosc(int32_t number, const char* name, int32_t amount, int32_t change);

// Sends what is to be paid, hundredths; held inside 32 bits.
int32_t WyslijSumeDoZaplaty(int64_t amount);

// Receipts since the last daily report.
int32_t OdczytajLicznikParagonow(int32_t& receipts);

// Sum of the totals of all rates, and an amount kept inside 32 bits.
int64_t SumaParagonu();
int32_t Nasycona(int64_t amount);
