// The rules of a receipt. Every rule that the host breaks is thrown as a Violation, before anything
// is printed; the caller cancels the receipt.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "sim/core.h"

namespace sim {

/// Opens a receipt, or the invoice given. False where there is no room for it.
bool BeginReceipt(Core& core, std::optional<Invoice> invoice = std::nullopt);

/// The buyer of an invoice, each once and before the first item. Empty lines are left out.
void NameBuyer(Core& core, const std::vector<std::string>& lines);
void NameTaxNumber(Core& core, const std::string& number);

/// A sale or a correction. Its name is not yet checked, its rate neither.
void Sell(Core& core, const Sale& sale);

/// Discount or surcharge on the last item, once and directly after it.
void DiscountSaleByPercent(Core& core, bool surcharge, int percent);
void DiscountSaleByAmount(Core& core, bool surcharge, std::int64_t amount);

void PrintSubtotal(Core& core);

/// Discount on the whole receipt.
void DiscountByPercent(Core& core, int percent);
void DiscountByAmount(Core& core, bool surcharge, std::int64_t amount);

/// The total to pay, as the host has computed it.
void CheckTotal(Core& core, std::int64_t total);

void DeclarePayment(Core& core, const Payment& payment);
void DeclareChange(Core& core, const Payment& payment);
void AddCurrencyPayments(Core& core, const std::vector<CurrencyPayment>& payments);
void AddLine(Core& core, const std::string& text);

/// Closes the receipt, counts it, remembers its articles and prints its end. False where there is no
/// room for it: the receipt stays open.
bool EndReceipt(Core& core);

}  // namespace sim
