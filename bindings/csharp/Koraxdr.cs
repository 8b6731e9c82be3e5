// koraxdr from C#: drives fiscal cash registers and fiscal printers over a serial line.
//
//     using static Koraxdr.Driver;
//
//     Check(CommunicationInit(1, 9600, 5));
//     Check(ReceiptBegin());
//     Check(pReceiptItemEx(1, Text("Masło osobne"), 3, 0, 1, 0, Text("szt."), 799));
//     Check(ReceiptEnd(0));
//     CommunicationEnd();
//
// The functions stand here as the library exports them; include/koraxdr.h and docs/functions.md
// document each. A text is a byte array in code page 1250 with a zero byte at its end, as Text()
// makes it; a buffer for a text is one of NewBuffer(). The library keeps one session with one
// device, and one thread at a time calls it.
using System;
using System.Runtime.InteropServices;

namespace Koraxdr
{
    /// <summary>An error number of the library with its Polish text.</summary>
    public sealed class KoraxException : Exception
    {
        public int Number { get; }
        public string Text { get; }

        public KoraxException(int number, string text) : base(number + ", " + text)
        {
            Number = number;
            Text = text;
        }
    }

    [BestFitMapping(false, ThrowOnUnmappableChar = true)]
    public static class Driver
    {
        // koraxdr.dll on Windows; elsewhere Koraxdr.dll.config or the loader finds the file.
        private const string Library = "koraxdr";
        // __stdcall on Windows, the C convention elsewhere.
        private const CallingConvention Convention = CallingConvention.Winapi;

        /// <summary>A buffer that holds every text that the library returns.</summary>
        public static byte[] NewBuffer()
        {
            return new byte[256];
        }

        /// <summary>The text for the library. A character that code page 1250 does not have, or a
        /// zero, throws an ArgumentException.</summary>
        public static byte[] Text(string text)
        {
            var bytes = new byte[text.Length + 1];
            for (int i = 0; i < text.Length; ++i)
            {
                bytes[i] = Code(text[i], i);
            }
            return bytes;
        }

        private static byte Code(char letter, int position)
        {
            if (letter > 0 && letter < 0x80) return (byte)letter;
            int upper = letter == NoLetter ? -1 : UpperHalf.IndexOf(letter);
            if (upper >= 0) return (byte)(0x80 + upper);
            throw new ArgumentException(string.Format(
                "U+{0:X4} at position {1} is not in code page 1250", (int)letter, position));
        }

        /// <summary>The text for those functions that send it as it is: printout lines and the name
        /// of an additional currency.</summary>
        public static byte[] DeviceText(string text)
        {
            byte[] bytes = Text(text);
            for (int i = 0; i < bytes.Length - 1; ++i)
            {
                bytes[i] = (byte)NaLatin2(bytes[i]);
            }
            return bytes;
        }

        /// <summary>The text that the library has written into a buffer.</summary>
        public static string ToText(byte[] buffer)
        {
            int length = Array.IndexOf(buffer, (byte)0);
            var letters = new char[length < 0 ? buffer.Length : length];
            for (int i = 0; i < letters.Length; ++i)
            {
                letters[i] = buffer[i] < 0x80 ? (char)buffer[i] : UpperHalf[buffer[i] - 0x80];
            }
            return new string(letters);
        }

        /// <summary>The text that an x... function has returned. Throws when it failed.</summary>
        public static string ToText(IntPtr result)
        {
            var buffer = NewBuffer();
            for (int i = 0; i < buffer.Length - 1; ++i)
            {
                buffer[i] = Marshal.ReadByte(result, i);
                if (buffer[i] == 0) break;
            }
            Check(LastError());
            return ToText(buffer);
        }

        /// <summary>The text of a function that fills a buffer: ReadText(pReadClock).</summary>
        public static string ReadText(Func<byte[], int> function)
        {
            var buffer = NewBuffer();
            Check(function(buffer));
            return ToText(buffer);
        }

        /// <summary>Throws a KoraxException when a function has returned an error number.</summary>
        public static void Check(int error)
        {
            if (error == 0) return;
            var text = NewBuffer();
            pErrMessage(error, text);
            throw new KoraxException(error, ToText(text));
        }

        /// <summary>The value of an x... function. Throws when it failed.</summary>
        public static int Value(int result)
        {
            Check(LastError());
            return result;
        }

        private const char NoLetter = '\uFFFD';

        // -- From include/koraxdr.h by script/bindings --
        private const string UpperHalf =
            "\u20AC\uFFFD\u201A\uFFFD\u201E\u2026\u2020\u2021" +
            "\uFFFD\u2030\u0160\u2039\u015A\u0164\u017D\u0179" +
            "\uFFFD\u2018\u2019\u201C\u201D\u2022\u2013\u2014" +
            "\uFFFD\u2122\u0161\u203A\u015B\u0165\u017E\u017A" +
            "\u00A0\u02C7\u02D8\u0141\u00A4\u0104\u00A6\u00A7" +
            "\u00A8\u00A9\u015E\u00AB\u00AC\u00AD\u00AE\u017B" +
            "\u00B0\u00B1\u02DB\u0142\u00B4\u00B5\u00B6\u00B7" +
            "\u00B8\u0105\u015F\u00BB\u013D\u02DD\u013E\u017C" +
            "\u0154\u00C1\u00C2\u0102\u00C4\u0139\u0106\u00C7" +
            "\u010C\u00C9\u0118\u00CB\u011A\u00CD\u00CE\u010E" +
            "\u0110\u0143\u0147\u00D3\u00D4\u0150\u00D6\u00D7" +
            "\u0158\u016E\u00DA\u0170\u00DC\u00DD\u0162\u00DF" +
            "\u0155\u00E1\u00E2\u0103\u00E4\u013A\u0107\u00E7" +
            "\u010D\u00E9\u0119\u00EB\u011B\u00ED\u00EE\u010F" +
            "\u0111\u0144\u0148\u00F3\u00F4\u0151\u00F6\u00F7" +
            "\u0159\u016F\u00FA\u0171\u00FC\u00FD\u0163\u02D9";

        // ---- Constants ----

        // ---- Session ----

        /// <summary>Opens the session: stores the settings, opens the port (8 data bits, even
        /// parity, one stop bit, flow control on CTS), has the device cancel a receipt that it
        /// still has open and, if it had one, checks that it is ready to print, and identifies
        /// it.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int CommunicationInit(int Port, int BaudRate, int Timeout);

        /// <summary>The session start that every function uses, with the speed and the time-out of
        /// the last CommunicationInit.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int CommunicationInitInternal(byte Port, byte Identify);

        /// <summary>Ends the session: closes the port, forgets its number and the device type (13),
        /// ends the optimised transmission.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int CommunicationEnd();

        /// <summary>Opens the port alone, with separate time-outs; a port that is open is closed
        /// first.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int OpenPort(int Port, int BaudRate, int WriteTimeout,
            int ReadTimeout);

        /// <summary>Closes the port and ends the optimised transmission; the session's state stays
        /// as it was, so the next call to the device fails with 20.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ClosePort();

        /// <summary>For the next receipt: leaves out the code-page query at its beginning and the
        /// confirmation of each item (types 1 to 7 and 13), and sends data in blocks.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int OptimizeTransmission();

        /// <summary>The error number of the last call, which is then cleared: a second call gives
        /// 0.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int LastError();

        /// <summary>In debug mode 32 functions first show their arguments: in a message box on
        /// Windows, in a frame on standard error elsewhere (which waits for Enter when standard
        /// input is a terminal).</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int SetDebugMode();

        /// <summary>In debug mode 32 functions first show their arguments: in a message box on
        /// Windows, in a frame on standard error elsewhere (which waits for Enter when standard
        /// input is a terminal).</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ClearDebugMode();

        /// <summary>The library's version, 28 characters: a buffer of at least 29 bytes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pDllVersion(byte[] Buffer);

        /// <summary>The library's version, 28 characters: a buffer of at least 29 bytes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern IntPtr xDllVersion();

        /// <summary>The library's author, at most 57 characters: a buffer of at least 58
        /// bytes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pDllAuthor(byte[] Buffer);

        /// <summary>The library's author, at most 57 characters: a buffer of at least 58
        /// bytes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern IntPtr xDllAuthor();

        /// <summary>Names the device behind a COM port, for the next opening.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int SetPortDevice(int Port,
            [MarshalAs(UnmanagedType.LPStr)] string DevicePath);

        // ---- Device ----

        /// <summary>Asks the device for its type and program version.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int DeviceType(ref int Type, ref int Version);

        /// <summary>Asks the device for its type and program version.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int xDeviceType();

        /// <summary>Asks the device for its type and program version.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int xProgramVersion();

        /// <summary>The name of the device type found at the session start, at most 19 characters:
        /// a buffer of at least 20 bytes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pDeviceName(byte[] Buffer);

        /// <summary>The name of the device type found at the session start, at most 19 characters:
        /// a buffer of at least 20 bytes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern IntPtr xDeviceName();

        /// <summary>The device's code page: 0 = 852, 1 = 1250, 2 = Mazovia.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int IsCodePage1250(ref int Result);

        /// <summary>The device's code page: 0 = 852, 1 = 1250, 2 = Mazovia.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int xIsCodePage1250();

        /// <summary>Waits until the printing unit is ready: 0, or why it is not.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int PrintControl(int BeforePrinting);

        // ---- Receipt ----

        /// <summary>Opens a receipt and clears the totals.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ReceiptBegin();

        /// <summary>Why a receipt cannot be opened: 0, or the first reason found.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ReceiptConditions();

        /// <summary>Ends the receipt: discount or surcharge on the whole of it, deferred currency
        /// payments, total, forms of payment, additional lines, end.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ReceiptEndEx(int DiscountSurcharge, int TypeOfDiscountSurcharge);

        /// <summary>ReceiptEndEx with a percent discount; 0 ends the receipt without one.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ReceiptEnd(int DiscountSurcharge);

        /// <summary>Cancels the open receipt.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ReceiptCancel();

        /// <summary>Why the device cancelled the last receipt.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int CancellationReason(ref int Code, byte[] Reason);

        /// <summary>Receipts since the last daily report, 0 to 65535.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ReceiptNumber(ref int Number);

        /// <summary>Receipts since the last daily report, 0 to 65535.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int xReceiptNumber();

        /// <summary>Goes on with a printout that was stopped for want of paper.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int PrintResume();

        // ---- Item ----

        /// <summary>Sells an item, or takes back (corrects) a sold one.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pReceiptItem(int Sale, byte[] Name, int TaxRate, int Communicate,
            int Quantity, int QAC, byte[] Unit, int Price, ref int Amount);

        /// <summary>The same with the value always worked out.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pReceiptItemEx(int Sale, byte[] Name, int TaxRate, int Communicate,
            int Quantity, int QAC, byte[] Unit, int Price);

        /// <summary>Copies an article name, padded with blanks to at least 40 characters and cut at
        /// 255: a buffer of 256 bytes holds every result. 202 when none of its first 28 characters
        /// is significant (the copy is made all the same).</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int NormNazwa(byte[] Destination, byte[] Name);

        /// <summary>The same, padded and cut to 28 characters: a buffer of 29 bytes. 0, or
        /// 225.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int NormNazwa1(byte[] Destination, byte[] Name);

        /// <summary>Returns how many of the first 28 characters are significant: letters, digits,
        /// the signs , . % / \ and Polish letters in code page 852.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pCharsInArticleName(byte[] Name);

        /// <summary>Returns 1 when the byte is a Polish letter in code page 852, else 0.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int InZnakiPolskie(byte Character);

        // ---- Payments and additional lines ----

        /// <summary>Stores a form of payment for the end of the receipt.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pFillPayment(int PaymentNo, byte[] PaymentName, int Total,
            int Change);

        /// <summary>Sends a form of payment at once; the slots stay as they are.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pSendPayment(int PaymentNo, byte[] PaymentName, int Total,
            int Change);

        /// <summary>Forgets the stored forms of payment.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ErasePayments();

        /// <summary>Stores a line to be printed after the receipt; there are six.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pFillLines(int Number, byte[] Line, ref int FreeLines);

        /// <summary>Stores a line to be printed after the receipt; there are six.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int xFillLines(int Number, byte[] Line);

        /// <summary>Forgets the stored lines.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int EraseLines();

        /// <summary>A payment in a foreign currency, first part: name, rate and amount.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pCurrencyPayment1(byte[] CurrencyName, byte[] Rate, int Qantity,
            int Subtotal, int Send);

        /// <summary>Second part: what was paid and given back, hundredths.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pCurrencyPayment2(int TotalInCurrency, int TotalInBaseCurrency,
            int Change, int TypeOfChange, int Send);

        /// <summary>An additional payment (or change) in a foreign currency, sent at
        /// once.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pAdditionalCurrencyPayment(int Number, int IsChange, byte[] Name,
            int PaidInForeignCurrency, int ExchangeRate, int QAC, int PaidInBaseCurrency);

        // ---- Discounts, packages, drawer ----

        /// <summary>Discount or surcharge on the last item, by amount: one for an item.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int DiscountOrSurcharge(int Discount, int Amount);

        /// <summary>The same by percent; the receipt's totals are then read from the
        /// device.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int PercentDiscountOrSurcharge(int Discount, int Percent);

        /// <summary>Sells or takes back returnable packages; they are not part of the fiscal
        /// totals.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int PackageItem(int Parameter, int Number, int Quantity, int Price);

        /// <summary>Prints the subtotal of the open receipt.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int PrintSubtotal();

        /// <summary>Opens cash drawer 1, 2 or 3, inside a receipt or outside.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int OpenDrawer(int DrawerNumber);

        // ---- Invoice ----

        /// <summary>Opens an invoice: a receipt with a number, the buyer's lines and tax
        /// number.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pInvoiceBegin(byte[] Number, byte[] Name1, byte[] Name2,
            byte[] Name3, byte[] Name4, byte[] Name5, byte[] Name6, byte[] NIP);

        // ---- Tax rates ----

        /// <summary>Reads the rates A to G and how many of them the device has (7, 6 or
        /// 4).</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ReadVAT(ref int Count, ref int A, ref int B, ref int C, ref int D,
            ref int E, ref int F, ref int G);

        /// <summary>The same into an array of eight: the count, then A to G.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern IntPtr xReadVAT(int[] Rates);

        /// <summary>Writes the rates and reads them back.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int SetVAT(int QuantityOfRates, int A, int B, int C, int D, int E,
            int F, int G);

        // ---- Reports ----

        /// <summary>Prints the daily report and closes the day.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int DailyReport(int Unconditionally);

        /// <summary>Prints the articles whose rate is locked.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int LockedArticlesReport();

        /// <summary>Prints the printer's status.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int PrinterStatusReport();

        /// <summary>Prints the report between two dates.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int PeriodReport(int Fiscal, int yy1, int mm1, int dd1, int yy2,
            int mm2, int dd2);

        /// <summary>Prints the report of a month.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int MonthlyReport(int Fiscal, int Year, int Month);

        /// <summary>Prints the daily reports by their numbers, 16 bits of each.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int NumberReport(int Fiscal, int FirstNumber, int LastNumber);

        /// <summary>Number of the last daily report, 0 to 65535.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int DailyReportNumber(ref int Number);

        /// <summary>Number of the last daily report, 0 to 65535.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int xDailyReportNumber();

        // ---- Clock ----

        /// <summary>The device's clock as text: "dd.dd.dd;hh:mm", and ":ss" on types 4 and 7 to 13;
        /// the date's pairs in the device's order.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pReadClock(byte[] Buffer);

        /// <summary>The device's clock as text: "dd.dd.dd;hh:mm", and ":ss" on types 4 and 7 to 13;
        /// the date's pairs in the device's order.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern IntPtr xReadClock();

        /// <summary>Moves the clock to Hour (below 24) and Minute (below 60) of the same day, by an
        /// hour at most.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ChangeTime(int Hour, int Minute);

        // ---- Totals and counters ----

        /// <summary>The day's sales in hundredths, as decimal text of at most 11 characters: a
        /// buffer of at least 12 bytes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pReadTotal(byte[] Buffer);

        /// <summary>The day's sales in hundredths, as decimal text of at most 11 characters: a
        /// buffer of at least 12 bytes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern IntPtr xReadTotal();

        /// <summary>The day's sales of one rate.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pReadSelTotal(byte[] Selector, byte[] Buffer);

        /// <summary>The day's sales of one rate.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern IntPtr xReadSelTotal(byte[] Selector);

        /// <summary>The device's unique number, 11 characters: a buffer of at least 12
        /// bytes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pReadUniqueNumber(byte[] Buffer);

        /// <summary>The device's unique number, 11 characters: a buffer of at least 12
        /// bytes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern IntPtr xReadUniqueNumber();

        /// <summary>The daily totalizers of types 10 and 11, in hundredths and in the device's
        /// order; what does not fit 32 bits is held at their limit.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pReadDailyTotalizers(int Kind, ref long T1, ref long T2,
            ref long T3, ref long T4, ref long T5, ref long T6, ref long T7);

        /// <summary>Two daily counters of types 10 and 11, 0 to 65535.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pReadDailyCounters(ref int Counter1, ref int Counter2);

        // ---- Status and configuration ----

        /// <summary>The device's four status bytes, 0 to 255 each.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ReadStatus(ref int Status1, ref int Status2, ref int Status3,
            ref int Status4);

        /// <summary>One of them, Which 0 to 3; 0 for any other.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int xReadStatus(int Which);

        /// <summary>Reads the three bytes of a configuration group (its number's low
        /// byte).</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int ReadConfigBytes(int Group, ref int Byte1, ref int Byte2,
            ref int Byte3);

        /// <summary>Writes the three bytes of a configuration group.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int WriteConfigBytes(byte Group, byte Byte1, byte Byte2, byte Byte3);

        /// <summary>Returns 1 when the bit at position Bit (modulo 32) or any above it is set in
        /// Value, else 0.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int BitZBajtu(byte Value, byte Bit);

        // ---- Footer and logo ----

        /// <summary>Writes the three lines printed under receipts: 40 characters of each, padded
        /// with blanks.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pWriteFooterLines(byte[] Line1, byte[] Line2, byte[] Line3);

        /// <summary>Reads them, 40 characters each in the device's code page: buffers of at least
        /// 41 bytes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pReadFooterLines(byte[] Line1, byte[] Line2, byte[] Line3);

        /// <summary>Sends a logo: an uncompressed bitmap of 192 by 64 dots with 1 bit per dot,
        /// whose dots begin within the first 255 bytes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pWriteLogo([MarshalAs(UnmanagedType.LPStr)] string FileName);

        // ---- Non-fiscal printouts ----

        /// <summary>Begins the printout form of this number, at most 99.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int NonFiscalPrintoutBegin(int Number);

        /// <summary>Ends it and waits until it is printed.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int NonFiscalPrintoutEnd();

        /// <summary>Prints a numbered line of the form.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pNonFiscalPrintoutLine(int Number, byte[] Text, int If0A);

        /// <summary>Prints a free line.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pAddNonFiscalPrintoutLine(byte[] Text);

        /// <summary>The control printout of article names with their rates.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pControlPrintout(int Operation, byte[] Name, int TaxRate);

        // ---- Cashier and sundry ----

        /// <summary>Feeds paper by a number of lines (its low byte).</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int WriteLineFeed(int LineFeeds);

        /// <summary>The rate under which the device knows an article.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pCheckArticle(byte[] Name, ref int Rate, ref int Kind);

        /// <summary>Sends any control sequence.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int RSSequence(int ControlCode, int QuantityOfBytesToReceive,
            int QuantityOfBytesToSend, byte[] Received, byte[] ToSend);

        /// <summary>Writes a user's line.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int WriteUserQuorra(int Line, int Mode, byte[] Text);

        /// <summary>Sets the cash register's and the cashier's codes.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pWriteECRCashierCode(int ECRCode, byte[] CashierCode);

        // ---- Customer display ----

        /// <summary>Shows a text on the customer display of types 1, 2, 3, 5 and 6.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pDisplayGX450(int Number, byte[] Text);

        // ---- Texts ----

        /// <summary>Return the byte that stands for a code page 1250 character in the device's code
        /// page, as it is or in upper case.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int NaLatin2(byte Character);

        /// <summary>Return the byte that stands for a code page 1250 character in the device's code
        /// page, as it is or in upper case.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int NaLatin2AndUpper(byte Character);

        /// <summary>The Polish text of an error number, at most 63 characters in code page 1250: a
        /// buffer of at least 64 bytes. 0 gives an empty text, an unlisted number a general
        /// one.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern int pErrMessage(int ErrNo, byte[] Buffer);

        /// <summary>The Polish text of an error number, at most 63 characters in code page 1250: a
        /// buffer of at least 64 bytes. 0 gives an empty text, an unlisted number a general
        /// one.</summary>
        [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
        public static extern IntPtr xErrMessage(int ErrNo);
        // -- End of what script/bindings writes --
    }
}
