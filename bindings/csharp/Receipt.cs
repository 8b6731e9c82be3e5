// A receipt from a point-of-sale program: open a session, sell, pay, close.
//
//   Receipt.exe /dev/ttyUSB0      on Linux: the serial device
//   Receipt.exe 3                 the COM port's number
using System;
using Koraxdr;
using static Koraxdr.Driver;

internal static class Receipt
{
    private const int Baud = 9600, TimeoutSeconds = 5, ComPort = 1;
    private const int Correction = 0, Sale = 1;
    private const int AmountDiscount = 1;

    private struct Item
    {
        public readonly int Sale, Quantity, Decimals, Price;
        public readonly Rate Rate;
        public readonly string Name, Unit;

        // A quantity comes with its number of decimals: 1500 and 3 are 1.500 kg.
        public Item(int sale, string name, Rate rate, int quantity, int decimals, string unit,
            int price)
        {
            Sale = sale;
            Name = name;
            Rate = rate;
            Quantity = quantity;
            Decimals = decimals;
            Unit = unit;
            Price = price;
        }
    }

    private static readonly Item[] Items =
    {
        new Item(Sale, "Chleb żytni krojony", Rate.C, 2, 0, "szt.", 449),
        new Item(Sale, "Jabłka ligol", Rate.C, 1356, 3, "kg", 399),
        new Item(Sale, "Kawa palona mielona świeżo parzona", Rate.A, 1, 0, "opak", 2799),
        new Item(Sale, "Czekolada gorzka z całymi orzechami", Rate.A, 3, 0, "szt.", 649),
        new Item(Correction, "Czekolada gorzka z całymi orzechami", Rate.A, 1, 0, "szt.", 649),
        new Item(Sale, "Gazeta codzienna", Rate.B, 1, 0, "szt.", 350),
    };

    private static int OpenLine(string device)
    {
        int port;
        if (int.TryParse(device, out port)) return port;
        SetPortDevice(ComPort, device);
        return ComPort;
    }

    // Types 7 and 9 take 28 characters of a name, the others 40 and more.
    private static string Fitting(string name, Device device)
    {
        bool narrow = device == Device.QuorraF || device == Device.TolaF;
        return narrow && name.Length > 28 ? name.Substring(0, 28) : name;
    }

    // Prints the receipt; returns its total in hundredths.
    private static int Sell(Device device)
    {
        ReceiptBegin();
        int total = 0;
        foreach (Item item in Items)
        {
            int value = 0; // 0 asks the library to work it out
            pReceiptItem(item.Sale, Text(Fitting(item.Name, device)), (int)item.Rate, 0,
                item.Quantity, item.Decimals, Text(item.Unit), item.Price, ref value);
            total += item.Sale == Sale ? value : -value;
        }

        // A discount on the whole receipt, and two forms of payment with change. They are sent by
        // the end of the receipt, on the device types that know them.
        const int discount = 150, byCard = 2000, cash = 5000;
        total -= discount;
        pFillPayment(1, Text("Karta"), byCard, 0);
        pFillPayment(2, Text("Gotówka"), cash, byCard + cash - total);
        int freeLines = 0;
        pFillLines(1, Text("Dziękujemy i zapraszamy!"), ref freeLines);
        ReceiptEndEx(discount, AmountDiscount);
        return total;
    }

    // Leaves no receipt open, and says what has happened.
    private static void GiveUp(KoraxException error)
    {
        Console.WriteLine(error.Message);
        try
        {
            if (error.Number != (int)Error.ReceiptCancelled)
            {
                ReceiptCancel();
                return;
            }
            int code = 0;
            var reason = NewBuffer();
            CancellationReason(ref code, reason);
            Console.WriteLine("The device gave reason {0}: {1}", code, ToText(reason));
        }
        catch (KoraxException)
        {
            // No receipt was open, or the device is gone.
        }
    }

    private static int Main(string[] arguments)
    {
        if (arguments.Length != 1)
        {
            Console.Error.WriteLine("usage: Receipt DEVICE");
            return 2;
        }
        Console.OutputEncoding = new System.Text.UTF8Encoding(false);
        try
        {
            CommunicationInit(OpenLine(arguments[0]), Baud, TimeoutSeconds);
            var device = (Device)xDeviceType();
            Console.WriteLine("Device: " + xDeviceName());
            Console.WriteLine("Driver: " + xDllVersion());
            int total = Sell(device);
            Console.WriteLine("Receipt {0}, total {1},{2:D2}", xReceiptNumber(),
                total / 100, total % 100);
            return 0;
        }
        catch (KoraxException error)
        {
            GiveUp(error);
            return 1;
        }
        finally
        {
            CommunicationEnd();
        }
    }
}
