#include "sim/fiscal.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "sim/articles.h"
#include "sim/logo.h"
#include "sim/rate_totals.h"
#include "sim/vat_table.h"

namespace sim {
namespace {

constexpr std::int64_t kLargestAmount = 999'999'999;  // of a price, a value and a receipt
constexpr int kLargestQuantityDecimals = 4;
constexpr std::size_t kMostSales = 1000;  // in one receipt
constexpr std::size_t kMostAdditionalLines = 23;
constexpr int kPaymentSlots = 4;

std::int64_t ValueOf(const Sale& sale) {
    std::int64_t scale = 1;
    for (int i = 0; i < sale.decimals; ++i) scale *= 10;
    // Both factors are below 2^30, so the product fits.
    return DivideRounded(sale.price * sale.quantity, scale);
}

void CheckSale(const Core& core, const Sale& sale) {
    Require(NameIsLongEnough(sale.name), Reason::NameTooShort);
    Require(sale.quantity >= 0 && sale.quantity <= core.model.largest_quantity &&
                sale.decimals <= kLargestQuantityDecimals,
            Reason::WrongQuantity);
    Require(sale.price >= 0 && sale.price <= kLargestAmount, Reason::WrongPrice);
    Require(core.fiscal().rates[Index(sale.rate)] != kRateUnused, Reason::WrongRate);
    Require(sale.quantity > 0 && sale.price > 0 && sale.value != 0, Reason::ZeroValue);
    Require(sale.value == ValueOf(sale) && sale.value <= kLargestAmount, Reason::WrongValue);
}

// A correction takes back at most what the receipt holds of the article.
void CheckBalance(const Receipt& receipt, const Sale& correction) {
    std::int64_t balance = 0;
    for (const Sale& sale : receipt.sales)
        if (sale.name == correction.name && sale.rate == correction.rate)
            balance += sale.correction ? -sale.value : sale.value - sale.discount;
    Require(balance >= correction.value, Reason::NegativeBalance);
}

void PrintSale(Core& core, const Sale& sale) {
    const std::int64_t value = sale.correction ? -sale.value : sale.value;
    core.printer.Text(LineKind::Item, (sale.correction ? "KOREKTA: " : "") + sale.name);
    core.printer.Columns(LineKind::Item,
                         fmt::format("  {}{}{} x {}", Quantity(sale.quantity, sale.decimals),
                                     sale.unit.empty() ? "" : " ", sale.unit, Money(sale.price)),
                         fmt::format("{} {}", Money(value), RateLetter(sale.rate)));
}

// Takes a discount from the total of every rate in proportion; the shares add up to the discount.
void SpreadDiscount(Receipt& receipt, std::int64_t discount) {
    std::int64_t left = discount;
    std::int64_t total = receipt.total;
    for (std::int64_t& entry : receipt.totals) {
        if (entry == 0) continue;
        const std::int64_t magnitude = DivideRounded((left < 0 ? -left : left) * entry, total);
        const std::int64_t share = left < 0 ? -magnitude : magnitude;
        total -= entry;
        left -= share;
        entry -= share;
    }
}

// A discount on the whole receipt comes once, after the items.
void CheckDiscountPlace(const Receipt& receipt) {
    Require(receipt.phase == ReceiptPhase::Items, Reason::WrongOrder);
    Require(!receipt.sales.empty(), Reason::NotAfterItem);
}

void SettleDiscount(Core& core, std::int64_t discount, const std::string& text) {
    Receipt& receipt = core.receipt();
    receipt.total = Sum(receipt.totals);
    receipt.discount = discount;
    receipt.phase = ReceiptPhase::Discounted;
    core.printer.Columns(LineKind::Discount, text, Money(-discount));
}

// Packages are no part of the fiscal total: they come after it.
void PrintPackages(Printer& printer, const Receipt& receipt) {
    if (receipt.packages.empty()) return;
    for (const Package& package : receipt.packages)
        printer.Columns(
            LineKind::Package,
            fmt::format("{}Opakowanie {}{}  {} x {}", package.correction ? "KOREKTA: " : "",
                        package.returned ? "zwrócone nr " : "nr ", package.number, package.quantity,
                        Money(package.price)),
            Money(package.value()));
    printer.Columns(LineKind::Total, "DO ZAPŁATY", Money(receipt.to_pay()));
}

void PrintTotals(Core& core) {
    const Receipt& receipt = core.receipt();
    Printer& printer = core.printer;
    printer.Rule(LineKind::Tax);
    PrintRateTotals(printer, LineKind::Tax, receipt.totals, core.fiscal().rates);
    printer.Rule(LineKind::Tax);
    printer.Columns(LineKind::Total, "SUMA PLN", Money(receipt.total), Letters::Wide);
    PrintPackages(printer, receipt);
}

void PrintEnd(Core& core) {
    const Receipt& receipt = core.receipt();
    Printer& printer = core.printer;
    for (const CurrencyPayment& payment : receipt.currency_payments)
        printer.Columns(LineKind::Payment, payment.text, Money(payment.amount));
    for (const Payment& payment : receipt.payments) {
        printer.Columns(LineKind::Payment, payment.name, Money(payment.paid));
        if (payment.change != 0)
            printer.Columns(LineKind::Payment, "RESZTA", Money(payment.change));
    }
    const CashierCodes& codes = core.working().cashier_codes;
    if (!codes.cash_register.empty() || !codes.cashier.empty())
        printer.Columns(LineKind::Closing, fmt::format("Kasa {}", codes.cash_register),
                        fmt::format("Kasjer {}", codes.cashier));
    printer.Columns(LineKind::Closing,
                    fmt::format("{} nr {}", receipt.invoice ? "Faktura" : "Paragon",
                                core.working().counters.receipts),
                    fmt::format("{:%Y-%m-%d %H:%M}", core.clock()));
    printer.Picture(LineKind::Closing, FiscalLogo());
    printer.Centred(LineKind::Closing, core.fiscal().unique_number);
    for (const std::string& line : receipt.additional_lines)
        printer.Text(LineKind::Additional, line);
    const auto& footer = core.working().footer;
    for (std::size_t line = 0; line < footer.size(); ++line)
        if (footer[line].text) printer.Text(LineKind::Footer, core.FooterText(line));
    printer.EndDocument(LineKind::Closing);
}

Payment& Slot(Receipt& receipt, int number) {
    auto& payments = receipt.payments;
    const auto place = std::ranges::lower_bound(payments, number, {}, &Payment::number);
    if (place != payments.end() && place->number == number) return *place;
    return *payments.insert(place, Payment{number, "", 0, 0});
}

void CheckPayment(const Payment& payment, std::int64_t amount) {
    Require(payment.number >= 1 && payment.number <= kPaymentSlots && amount >= 0,
            Reason::UnexpectedSequence);
}

void PrintBeginning(Core& core) {
    Printer& printer = core.printer;
    if (const auto& logo = core.working().logo.complete)
        printer.Picture(LineKind::Logo, AsDots(*logo));
    core.PrintHead();
    if (core.receipt().invoice) {
        // The rule that ends the title comes after the buyer.
        printer.Centred(LineKind::Title, "FAKTURA VAT", Letters::Wide);
        printer.Centred(LineKind::Title, "nr " + core.receipt().invoice->number);
    } else {
        printer.Centred(LineKind::Title, "PARAGON FISKALNY", Letters::Wide);
        printer.Rule(LineKind::Title);
    }
}

// An invoice to which nothing has been sold yet.
Invoice& OpenInvoice(Core& core) {
    Receipt& receipt = core.receipt();
    Require(receipt.invoice.has_value() && receipt.sales.empty(), Reason::WrongOrder);
    return *receipt.invoice;
}

Sale& DiscountedSale(Receipt& receipt) {
    Require(receipt.phase == ReceiptPhase::Items, Reason::WrongOrder);
    Require(!receipt.sales.empty(), Reason::NotAfterItem);
    Sale& sale = receipt.sales.back();
    Require(!sale.correction && !sale.discounted, Reason::NotAfterItem);
    return sale;
}

void DiscountSale(Core& core, Sale& sale, std::int64_t discount, const std::string& text) {
    Receipt& receipt = core.receipt();
    Require(discount <= sale.value, Reason::WrongDiscount);
    Require(sale.value - discount <= kLargestAmount && receipt.total - discount <= kLargestAmount,
            Reason::SurchargeTooBig);
    core.CommitInReceipt(Point::Discount);
    sale.discount = discount;
    sale.discounted = true;
    receipt.totals[Index(sale.rate)] -= discount;
    receipt.total -= discount;
    core.printer.Columns(LineKind::Discount, "  " + text,
                         fmt::format("{} {}", Money(-discount), RateLetter(sale.rate)));
}

}  // namespace

bool BeginReceipt(Core& core, std::optional<Invoice> invoice) {
    Require(!core.receipt().open(), Reason::WrongOrder);
    Change change{.counters = core.working().counters};
    ++change.counters->documents;
    change.counters->receipt_open = true;
    change.counters->cancellation = Reason::None;
    if (!core.Commit(Point::ReceiptBegun, change)) return false;
    core.receipt() = Receipt{};
    core.receipt().phase = ReceiptPhase::Items;
    core.receipt().invoice = std::move(invoice);
    core.session.receipt_opened = core.now;
    PrintBeginning(core);
    return true;
}

void NameBuyer(Core& core, const std::vector<std::string>& lines) {
    Invoice& invoice = OpenInvoice(core);
    Require(invoice.buyer.empty() && invoice.tax_number.empty(), Reason::WrongOrder);
    core.CommitInReceipt(Point::Buyer);
    for (const std::string& line : lines)
        if (!line.empty()) invoice.buyer.push_back(line);
    core.printer.Text(LineKind::Title, "Nabywca:");
    for (const std::string& line : invoice.buyer) core.printer.Text(LineKind::Title, line);
}

void NameTaxNumber(Core& core, const std::string& number) {
    Invoice& invoice = OpenInvoice(core);
    Require(invoice.tax_number.empty(), Reason::WrongOrder);
    core.CommitInReceipt(Point::Buyer);
    invoice.tax_number = number;
    core.printer.Text(LineKind::Title, "NIP nabywcy: " + number);
}

void Sell(Core& core, const Sale& sale) {
    Receipt& receipt = core.receipt();
    Require(receipt.phase == ReceiptPhase::Items, Reason::WrongOrder);
    Require(receipt.sales.size() < kMostSales, Reason::ReceiptTooLong);
    CheckSale(core, sale);
    if (sale.correction)
        CheckBalance(receipt, sale);
    else
        CheckArticle(core, sale);
    const std::int64_t change = sale.correction ? -sale.value : sale.value;
    Require(receipt.total + change <= kLargestAmount, Reason::ReceiptTooBig);

    core.CommitInReceipt(Point::Item);
    if (!sale.correction) NoteArticle(core, sale);
    if (receipt.invoice && receipt.sales.empty()) core.printer.Rule(LineKind::Title);
    receipt.totals[Index(sale.rate)] += change;
    receipt.total += change;
    receipt.sales.push_back(sale);
    PrintSale(core, sale);
}

void DiscountByPercent(Core& core, int percent) {
    Receipt& receipt = core.receipt();
    CheckDiscountPlace(receipt);
    Require(percent >= 1 && percent <= 99, Reason::WrongDiscount);
    core.CommitInReceipt(Point::Discount);
    std::int64_t discount = 0;
    for (std::int64_t& entry : receipt.totals) {
        const std::int64_t share = DivideRounded(entry * percent, 100);
        entry -= share;
        discount += share;
    }
    SettleDiscount(core, discount, fmt::format("RABAT {} %", percent));
}

void DiscountByAmount(Core& core, bool surcharge, std::int64_t amount) {
    Receipt& receipt = core.receipt();
    CheckDiscountPlace(receipt);
    Require(amount > 0, Reason::WrongDiscount);
    if (surcharge)
        Require(receipt.total + amount <= kLargestAmount, Reason::SurchargeTooBig);
    else
        Require(amount <= receipt.total, Reason::WrongDiscount);
    Require(receipt.total > 0, Reason::ZeroTotal);
    core.CommitInReceipt(Point::Discount);
    const std::int64_t discount = surcharge ? -amount : amount;
    SpreadDiscount(receipt, discount);
    SettleDiscount(core, discount, surcharge ? "NARZUT" : "RABAT");
}

void DiscountSaleByPercent(Core& core, bool surcharge, int percent) {
    Sale& sale = DiscountedSale(core.receipt());
    Require(percent >= 1 && percent <= 99, Reason::WrongDiscount);
    const std::int64_t amount = DivideRounded(sale.value * percent, 100);
    DiscountSale(core, sale, surcharge ? -amount : amount,
                 fmt::format("{} {} %", surcharge ? "NARZUT" : "RABAT", percent));
}

void DiscountSaleByAmount(Core& core, bool surcharge, std::int64_t amount) {
    Sale& sale = DiscountedSale(core.receipt());
    Require(amount > 0, Reason::WrongDiscount);
    DiscountSale(core, sale, surcharge ? -amount : amount, surcharge ? "NARZUT" : "RABAT");
}

void PrintSubtotal(Core& core) {
    const Receipt& receipt = core.receipt();
    Require(receipt.phase != ReceiptPhase::Totalled, Reason::WrongOrder);
    core.printer.Columns(LineKind::Total, "SUMA CZĘŚCIOWA", Money(receipt.total));
    core.Note(fmt::format("total {}", Money(receipt.total)));
}

void CheckTotal(Core& core, std::int64_t total) {
    Receipt& receipt = core.receipt();
    Require(receipt.phase != ReceiptPhase::Totalled, Reason::WrongOrder);
    Require(receipt.total > 0, Reason::ZeroTotal);
    Require(total == receipt.total, Reason::TotalsDiffer);
    core.CommitInReceipt(Point::Total);
    receipt.phase = ReceiptPhase::Totalled;
    PrintTotals(core);
}

void DeclarePayment(Core& core, const Payment& payment) {
    CheckPayment(payment, payment.paid);
    core.CommitInReceipt(Point::Payment);
    Payment& slot = Slot(core.receipt(), payment.number);
    slot.name = payment.name;
    slot.paid = payment.paid;
}

void DeclareChange(Core& core, const Payment& payment) {
    CheckPayment(payment, payment.change);
    const bool declared = std::ranges::any_of(core.receipt().payments, [&](const Payment& other) {
        return other.number == payment.number && other.name == payment.name;
    });
    Require(declared, Reason::WrongOrder);
    core.CommitInReceipt(Point::Payment);
    Slot(core.receipt(), payment.number).change = payment.change;
}

void AddLine(Core& core, const std::string& text) {
    auto& lines = core.receipt().additional_lines;
    Require(lines.size() < kMostAdditionalLines, Reason::TooManyAdditionalLines);
    core.CommitInReceipt(Point::AdditionalLine);
    lines.push_back(text);
}

void AddCurrencyPayments(Core& core, const std::vector<CurrencyPayment>& payments) {
    core.CommitInReceipt(Point::Payment);
    auto& entered = core.receipt().currency_payments;
    entered.insert(entered.end(), payments.begin(), payments.end());
}

bool EndReceipt(Core& core) {
    Receipt& receipt = core.receipt();
    Require(receipt.phase == ReceiptPhase::Totalled, Reason::WrongOrder);
    Change change{.counters = core.working().counters, .articles = core.working().sold};
    Counters& counters = *change.counters;
    ++counters.receipts;
    for (std::size_t i = 0; i < receipt.totals.size(); ++i) counters.totals[i] += receipt.totals[i];
    counters.sales_since = std::min(counters.sales_since.value_or(core.today()), core.today());
    counters.receipt_open = false;
    if (!core.Commit(Point::ReceiptEnded, change)) return false;
    core.sold().clear();
    receipt.phase = ReceiptPhase::Closed;
    PrintEnd(core);
    return true;
}

}  // namespace sim
