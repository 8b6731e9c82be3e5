#!/usr/bin/env python3
"""A receipt from a point-of-sale program: open a session, sell, pay, close.

    receipt.py /dev/ttyUSB0      on Linux: the serial device
    receipt.py 3                 the COM port's number
"""
import sys

import koraxdr
from koraxdr import Device, Error, Rate

CORRECTION, SALE = 0, 1
AMOUNT_DISCOUNT = 1

# A quantity comes with its number of decimals: 1500 and 3 are 1.500 kg.
ITEMS = [
    (SALE, "Chleb żytni krojony", Rate.C, 2, 0, "szt.", 449),
    (SALE, "Jabłka ligol", Rate.C, 1356, 3, "kg", 399),
    (SALE, "Kawa palona mielona świeżo parzona", Rate.A, 1, 0, "opak", 2799),
    (SALE, "Czekolada gorzka z całymi orzechami", Rate.A, 3, 0, "szt.", 649),
    (CORRECTION, "Czekolada gorzka z całymi orzechami", Rate.A, 1, 0, "szt.", 649),
    (SALE, "Gazeta codzienna", Rate.B, 1, 0, "szt.", 350)]


def sell():
    """Prints the receipt; returns its total in hundredths."""
    # Types 7 and 9 take 28 characters of a name, the others 40 and more.
    longest = 28 if koraxdr.xDeviceType() in (Device.QUORRA_F, Device.TOLA_F) else 40
    koraxdr.ReceiptBegin()
    total = 0
    for sale, name, rate, quantity, decimals, unit, price in ITEMS:
        value = koraxdr.pReceiptItem(sale, name[:longest], rate, 0, quantity, decimals, unit, price)
        total += value if sale == SALE else -value

    # A discount on the whole receipt, and two forms of payment with change. They are sent by the
    # end of the receipt, on the device types that know them.
    discount, by_card, cash = 150, 2000, 5000
    total -= discount
    koraxdr.pFillPayment(1, "Karta", by_card, 0)
    koraxdr.pFillPayment(2, "Gotówka", cash, by_card + cash - total)
    koraxdr.pFillLines(1, "Dziękujemy i zapraszamy!")
    koraxdr.ReceiptEndEx(discount, AMOUNT_DISCOUNT)
    return total


def give_up(error):
    """Leaves no receipt open, and says what has happened."""
    print(error)
    try:
        if error.number == Error.RECEIPT_CANCELLED:
            code, reason = koraxdr.CancellationReason()
            print(f"The device gave reason {code}: {reason}")
        else:
            koraxdr.ReceiptCancel()
    except koraxdr.KoraxError:
        pass  # no receipt was open, or the device is gone
    sys.exit(1)


def main():
    if len(sys.argv) != 2:
        sys.exit(f"usage: {sys.argv[0]} DEVICE")
    device = int(sys.argv[1]) if sys.argv[1].isdecimal() else sys.argv[1]
    try:
        with koraxdr.session(device):
            print("Device:", koraxdr.pDeviceName())
            print("Driver:", koraxdr.pDllVersion())
            try:
                total = sell()
            except koraxdr.KoraxError as error:
                give_up(error)
            print(f"Receipt {koraxdr.xReceiptNumber()}, total {total // 100},{total % 100:02d}")
    except koraxdr.KoraxError as error:
        print(error)
        sys.exit(1)


if __name__ == "__main__":
    main()
