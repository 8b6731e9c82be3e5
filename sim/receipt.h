// What a receipt is for the device: the data of the open receipt, or of the last one.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace sim {

/// Rates A to G; index 0 is rate A.
inline constexpr int kRates = 7;
using RateAmounts = std::array<std::int64_t, kRates>;

/// One line of sale. Money is in hundredths, the quantity is scaled by 10 to the power `decimals`.
struct Sale {
    bool correction = false;
    std::string name;
    int rate = 0;  // 0 is A, 6 is G
    std::int64_t quantity = 0;
    int decimals = 0;
    std::string unit;
    std::int64_t price = 0;
    std::int64_t value = 0;     // never negative; a correction takes it off
    std::int64_t discount = 0;  // on this line, not part of `value`; negative for a surcharge
    bool discounted = false;
};

/// Returnable packages, sold or taken back. They are outside the fiscal totals.
struct Package {
    bool correction = false;
    bool returned = false;
    int number = 0;
    int quantity = 0;
    std::int64_t price = 0;

    /// What it adds to the amount to pay.
    std::int64_t value() const { return (correction != returned ? -1 : 1) * quantity * price; }
};

/// What makes a receipt an invoice.
struct Invoice {
    std::string number;
    std::vector<std::string> buyer;
    std::string tax_number;
};

/// A form of payment, with its change.
struct Payment {
    int number = 0;  // slot 1 to 4
    std::string name;
    std::int64_t paid = 0;
    std::int64_t change = 0;
};

/// A payment in another currency, as it is printed: what it is and its amount.
struct CurrencyPayment {
    std::string text;
    std::int64_t amount = 0;
};

/// Where a receipt stands; the order is the order of its sequences.
enum class ReceiptPhase { Closed, Items, Discounted, Totalled };

/// A receipt: the open one or, once it is closed, the last one.
struct Receipt {
    ReceiptPhase phase = ReceiptPhase::Closed;
    bool cancelled = false;
    std::vector<Sale> sales;
    RateAmounts totals{};       // per rate, discounts on the whole receipt included
    std::int64_t total = 0;     // sum of `totals`
    std::int64_t discount = 0;  // on the whole receipt; negative for a surcharge
    std::optional<Invoice> invoice;
    std::vector<Package> packages;
    std::vector<Payment> payments;
    std::vector<CurrencyPayment> currency_payments;
    std::vector<std::string> additional_lines;

    /// The total with the packages.
    std::int64_t to_pay() const {
        std::int64_t sum = total;
        for (const Package& package : packages) sum += package.value();
        return sum;
    }
    bool open() const { return phase != ReceiptPhase::Closed; }
};

}  // namespace sim
