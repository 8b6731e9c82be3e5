// koraxdr from C#: drives fiscal cash registers and fiscal printers over a serial line.
//
//     using static Koraxdr.Driver;
//
//     CommunicationInit(1, 9600, 5);
//     ReceiptBegin();
//     pReceiptItemEx(1, Text("Masło osobne"), (int)Rate.C, 0, 1, 0, Text("szt."), 799);
//     ReceiptEnd(0);
//     CommunicationEnd();
//
// Every function of the library is here under its own name, with its own parameters;
// include/koraxdr.h and docs/functions.md document each. Where these speak of an error number, a
// KoraxException is thrown. A text is a byte array in code page 1250 with a zero byte at its end, as Text()
// makes it; a buffer for a text is one of NewBuffer(). The library keeps one session with one
// device, and one thread at a time calls it.
using System;
using System.Runtime.InteropServices;

namespace Koraxdr
{
    /// <summary>An error number of the library with its Polish text, and the function that gave
    /// it.</summary>
    public sealed class KoraxException : Exception
    {
        public string Function { get; }
        public int Number { get; }
        public string Text { get; }

        public KoraxException(string function, int number, string text)
            : base(function + ": " + number + ", " + text)
        {
            Function = function;
            Number = number;
            Text = text;
        }
    }

    public static class Driver
    {
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

        /// <summary>The text of a function that fills a buffer: ReadText(pReadClock).</summary>
        public static string ReadText(Action<byte[]> function)
        {
            var buffer = NewBuffer();
            function(buffer);
            return ToText(buffer);
        }

        private static void Check(string function, int error)
        {
            if (error == 0) return;
            var text = NewBuffer();
            Native.pErrMessage(error, text);
            throw new KoraxException(function, error, ToText(text));
        }

        // An x... function leaves its error to LastError.
        private static int Value(string function, int result)
        {
            Check(function, Native.LastError());
            return result;
        }

        private static string Value(string function, IntPtr result)
        {
            var buffer = NewBuffer(); // the next call overwrites the text
            for (int i = 0; i < buffer.Length - 1; ++i)
            {
                buffer[i] = Marshal.ReadByte(result, i);
                if (buffer[i] == 0) break;
            }
            Check(function, Native.LastError());
            return ToText(buffer);
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

        /// <summary>The interface that a program is compiled for (44400 is 4.44.0), for #if
        /// KORAXDR_VERSION &gt;= 44400; pDllVersion tells that of the library that was
        /// loaded.</summary>
        public const int VersionMajor = 4;

        /// <summary>The interface that a program is compiled for (44400 is 4.44.0), for #if
        /// KORAXDR_VERSION &gt;= 44400; pDllVersion tells that of the library that was
        /// loaded.</summary>
        public const int VersionMinor = 44;

        /// <summary>The interface that a program is compiled for (44400 is 4.44.0), for #if
        /// KORAXDR_VERSION &gt;= 44400; pDllVersion tells that of the library that was
        /// loaded.</summary>
        public const int VersionPatch = 0;

        /// <summary>The interface that a program is compiled for (44400 is 4.44.0), for #if
        /// KORAXDR_VERSION &gt;= 44400; pDllVersion tells that of the library that was
        /// loaded.</summary>
        public const int Version = 44400;

        /// <summary>Error numbers. What each means and what to do about it: docs/errors.md. 231 has
        /// two names, since pAdditionalCurrencyPayment gives it for a currency name that is too
        /// short.</summary>
        public enum Error
        {
            Ok = 0,
            Port = 2,
            PortBusy = 5,
            SendTimeout = 20,
            ReceiveTimeout = 21,
            UnexpectedAnswer = 23,
            Refused = 24,
            Damaged = 26,
            CheckSum = 46,
            NoSession = 99,
            NoProducerData = 100,
            ServiceJumper = 101,
            NoPrinterController = 102,
            PrinterFailure = 103,
            NoUserData = 104,
            ReadOnly = 105,
            NoCustomerDisplay = 106,
            MemoryErased = 107,
            DailyReportPending = 108,
            NoPaper = 109,
            DocumentWaits = 110,
            CharactersWait = 111,
            PrintoutStopped = 112,
            NoRates = 113,
            NoPortNumber = 114,
            ReceiptOpen = 200,
            NoReceipt = 201,
            Name = 202,
            Rate = 203,
            Message = 204,
            Quantity = 205,
            QuantityDecimals = 206,
            Unit = 207,
            Price = 208,
            Amount = 209,
            ReceiptCancelled = 210,
            NothingSold = 211,
            Drawer = 212,
            CommandNotAvailable = 213,
            PackageKind = 214,
            OutOfRange = 215,
            NoFreeLine = 216,
            RatesNotWritten = 217,
            ReceiptsPrinted = 218,
            Dates = 219,
            NoReports = 220,
            Numbers = 221,
            MonthNotOver = 222,
            ParameterN = 223,
            NotInThisDevice = 224,
            Null = 225,
            RateNotDefined = 226,
            ItemValue = 227,
            ClockNoDifference = 228,
            ClockTooFar = 229,
            ClockOnceADay = 230,
            ControlCharacter = 231,
            CurrencyName = 231,
            DataCheckSum = 232,
            IncompleteData = 233,
            SameData = 234,
            DailyReportFirst = 235,
            File = 236,
            FileFormat = 237,
            TooManyPackages = 238,
            Internal = 999,
        }

        /// <summary>Tax rates as the functions of a receipt take them. pControlPrintout and
        /// pCheckArticle count as the device does: A to D likewise, then G, E and F as 5, 6 and
        /// 7.</summary>
        public enum Rate
        {
            A = 1,
            B = 2,
            C = 3,
            D = 4,
            E = 5,
            F = 6,
            G = 7,
        }

        /// <summary>Values of ReadVAT and SetVAT that are no percentage.</summary>
        public const int RateExempt = 10000;

        /// <summary>Values of ReadVAT and SetVAT that are no percentage.</summary>
        public const int RateNotUsed = 25500;

        /// <summary>Device types, as DeviceType tells them.</summary>
        public enum Device
        {
            GX450A5 = 1,
            GX450A7 = 2,
            Quorra1 = 3,
            Quorra2 = 4,
            GX450B5 = 5,
            GX450B7 = 6,
            QuorraF = 7,
            Tola = 8,
            TolaF = 9,
            TolaE = 10,
            TolaEfv = 11,
            TolaFE = 12,
            Other = 13,
        }

        // ---- Session ----

        /// <summary>Opens the session: stores the settings, opens the port (8 data bits, even
        /// parity, one stop bit, flow control on CTS), has the device cancel a receipt that it
        /// still has open and, if it had one, checks that it is ready to print, and identifies
        /// it.</summary>
        public static void CommunicationInit(int Port, int BaudRate, int Timeout)
        {
            Check("CommunicationInit", Native.CommunicationInit(Port, BaudRate, Timeout));
        }

        /// <summary>The session start that every function uses, with the speed and the time-out of
        /// the last CommunicationInit.</summary>
        public static void CommunicationInitInternal(byte Port, byte Identify)
        {
            Check("CommunicationInitInternal", Native.CommunicationInitInternal(Port, Identify));
        }

        /// <summary>Ends the session: closes the port, forgets its number and the device type (13),
        /// ends the optimised transmission.</summary>
        public static void CommunicationEnd()
        {
            Check("CommunicationEnd", Native.CommunicationEnd());
        }

        /// <summary>Opens the port alone, with separate time-outs; a port that is open is closed
        /// first.</summary>
        public static void OpenPort(int Port, int BaudRate, int WriteTimeout, int ReadTimeout)
        {
            Check("OpenPort", Native.OpenPort(Port, BaudRate, WriteTimeout, ReadTimeout));
        }

        /// <summary>Closes the port and ends the optimised transmission; the session's state stays
        /// as it was, so the next call to the device fails with 20.</summary>
        public static void ClosePort()
        {
            Check("ClosePort", Native.ClosePort());
        }

        /// <summary>For the next receipt: leaves out the code-page query at its beginning and the
        /// confirmation of each item (types 1 to 7 and 13), and sends data in blocks.</summary>
        public static void OptimizeTransmission()
        {
            Check("OptimizeTransmission", Native.OptimizeTransmission());
        }

        /// <summary>The error number of the last call, which is then cleared: a second call gives
        /// 0.</summary>
        public static int LastError()
        {
            return Native.LastError();
        }

        /// <summary>In debug mode 32 functions first show their arguments: in a message box on
        /// Windows, in a frame on standard error elsewhere (which waits for Enter when standard
        /// input is a terminal).</summary>
        public static void SetDebugMode()
        {
            Check("SetDebugMode", Native.SetDebugMode());
        }

        /// <summary>In debug mode 32 functions first show their arguments: in a message box on
        /// Windows, in a frame on standard error elsewhere (which waits for Enter when standard
        /// input is a terminal).</summary>
        public static void ClearDebugMode()
        {
            Check("ClearDebugMode", Native.ClearDebugMode());
        }

        /// <summary>The library's version, 28 characters: a buffer of at least 29 bytes.</summary>
        public static void pDllVersion(byte[] Buffer)
        {
            Check("pDllVersion", Native.pDllVersion(Buffer));
        }

        /// <summary>The library's version, 28 characters: a buffer of at least 29 bytes.</summary>
        public static string xDllVersion()
        {
            return Value("xDllVersion", Native.xDllVersion());
        }

        /// <summary>The library's author, at most 57 characters: a buffer of at least 58
        /// bytes.</summary>
        public static void pDllAuthor(byte[] Buffer)
        {
            Check("pDllAuthor", Native.pDllAuthor(Buffer));
        }

        /// <summary>The library's author, at most 57 characters: a buffer of at least 58
        /// bytes.</summary>
        public static string xDllAuthor()
        {
            return Value("xDllAuthor", Native.xDllAuthor());
        }

        /// <summary>Names the device behind a COM port, for the next opening.</summary>
        public static void SetPortDevice(int Port, string DevicePath)
        {
            Check("SetPortDevice", Native.SetPortDevice(Port, DevicePath));
        }

        // ---- Device ----

        /// <summary>Asks the device for its type and program version.</summary>
        public static void DeviceType(ref int Type, ref int Version)
        {
            Check("DeviceType", Native.DeviceType(ref Type, ref Version));
        }

        /// <summary>Asks the device for its type and program version.</summary>
        public static int xDeviceType()
        {
            return Value("xDeviceType", Native.xDeviceType());
        }

        /// <summary>Asks the device for its type and program version.</summary>
        public static int xProgramVersion()
        {
            return Value("xProgramVersion", Native.xProgramVersion());
        }

        /// <summary>The name of the device type found at the session start, at most 19 characters:
        /// a buffer of at least 20 bytes.</summary>
        public static void pDeviceName(byte[] Buffer)
        {
            Check("pDeviceName", Native.pDeviceName(Buffer));
        }

        /// <summary>The name of the device type found at the session start, at most 19 characters:
        /// a buffer of at least 20 bytes.</summary>
        public static string xDeviceName()
        {
            return Value("xDeviceName", Native.xDeviceName());
        }

        /// <summary>The device's code page: 0 = 852, 1 = 1250, 2 = Mazovia.</summary>
        public static void IsCodePage1250(ref int Result)
        {
            Check("IsCodePage1250", Native.IsCodePage1250(ref Result));
        }

        /// <summary>The device's code page: 0 = 852, 1 = 1250, 2 = Mazovia.</summary>
        public static int xIsCodePage1250()
        {
            return Value("xIsCodePage1250", Native.xIsCodePage1250());
        }

        /// <summary>Waits until the printing unit is ready: 0, or why it is not.</summary>
        public static void PrintControl(int BeforePrinting)
        {
            Check("PrintControl", Native.PrintControl(BeforePrinting));
        }

        // ---- Receipt ----

        /// <summary>Opens a receipt and clears the totals.</summary>
        public static void ReceiptBegin()
        {
            Check("ReceiptBegin", Native.ReceiptBegin());
        }

        /// <summary>Why a receipt cannot be opened: 0, or the first reason found.</summary>
        public static void ReceiptConditions()
        {
            Check("ReceiptConditions", Native.ReceiptConditions());
        }

        /// <summary>Ends the receipt: discount or surcharge on the whole of it, deferred currency
        /// payments, total, forms of payment, additional lines, end.</summary>
        public static void ReceiptEndEx(int DiscountSurcharge, int TypeOfDiscountSurcharge)
        {
            Check("ReceiptEndEx", Native.ReceiptEndEx(DiscountSurcharge, TypeOfDiscountSurcharge));
        }

        /// <summary>ReceiptEndEx with a percent discount; 0 ends the receipt without one.</summary>
        public static void ReceiptEnd(int DiscountSurcharge)
        {
            Check("ReceiptEnd", Native.ReceiptEnd(DiscountSurcharge));
        }

        /// <summary>Cancels the open receipt.</summary>
        public static void ReceiptCancel()
        {
            Check("ReceiptCancel", Native.ReceiptCancel());
        }

        /// <summary>Why the device cancelled the last receipt.</summary>
        public static void CancellationReason(ref int Code, byte[] Reason)
        {
            Check("CancellationReason", Native.CancellationReason(ref Code, Reason));
        }

        /// <summary>Receipts since the last daily report, 0 to 65535.</summary>
        public static void ReceiptNumber(ref int Number)
        {
            Check("ReceiptNumber", Native.ReceiptNumber(ref Number));
        }

        /// <summary>Receipts since the last daily report, 0 to 65535.</summary>
        public static int xReceiptNumber()
        {
            return Value("xReceiptNumber", Native.xReceiptNumber());
        }

        /// <summary>Goes on with a printout that was stopped for want of paper.</summary>
        public static void PrintResume()
        {
            Check("PrintResume", Native.PrintResume());
        }

        // ---- Item ----

        /// <summary>Sells an item, or takes back (corrects) a sold one.</summary>
        public static void pReceiptItem(int Sale, byte[] Name, int TaxRate, int Communicate,
            int Quantity, int QAC, byte[] Unit, int Price, ref int Amount)
        {
            Check("pReceiptItem", Native.pReceiptItem(Sale, Name, TaxRate, Communicate, Quantity,
                QAC, Unit, Price, ref Amount));
        }

        /// <summary>The same with the value always worked out.</summary>
        public static void pReceiptItemEx(int Sale, byte[] Name, int TaxRate, int Communicate,
            int Quantity, int QAC, byte[] Unit, int Price)
        {
            Check("pReceiptItemEx", Native.pReceiptItemEx(Sale, Name, TaxRate, Communicate,
                Quantity, QAC, Unit, Price));
        }

        /// <summary>Copies an article name, padded with blanks to at least 40 characters and cut at
        /// 255: a buffer of 256 bytes holds every result. 202 when none of its first 28 characters
        /// is significant (the copy is made all the same).</summary>
        public static void NormNazwa(byte[] Destination, byte[] Name)
        {
            Check("NormNazwa", Native.NormNazwa(Destination, Name));
        }

        /// <summary>The same, padded and cut to 28 characters: a buffer of 29 bytes. 0, or
        /// 225.</summary>
        public static void NormNazwa1(byte[] Destination, byte[] Name)
        {
            Check("NormNazwa1", Native.NormNazwa1(Destination, Name));
        }

        /// <summary>Returns how many of the first 28 characters are significant: letters, digits,
        /// the signs , . % / \ and Polish letters in code page 852.</summary>
        public static int pCharsInArticleName(byte[] Name)
        {
            return Native.pCharsInArticleName(Name);
        }

        /// <summary>Returns 1 when the byte is a Polish letter in code page 852, else 0.</summary>
        public static int InZnakiPolskie(byte Character)
        {
            return Native.InZnakiPolskie(Character);
        }

        // ---- Payments and additional lines ----

        /// <summary>Stores a form of payment for the end of the receipt.</summary>
        public static void pFillPayment(int PaymentNo, byte[] PaymentName, int Total, int Change)
        {
            Check("pFillPayment", Native.pFillPayment(PaymentNo, PaymentName, Total, Change));
        }

        /// <summary>Sends a form of payment at once; the slots stay as they are.</summary>
        public static void pSendPayment(int PaymentNo, byte[] PaymentName, int Total, int Change)
        {
            Check("pSendPayment", Native.pSendPayment(PaymentNo, PaymentName, Total, Change));
        }

        /// <summary>Forgets the stored forms of payment.</summary>
        public static void ErasePayments()
        {
            Check("ErasePayments", Native.ErasePayments());
        }

        /// <summary>Stores a line to be printed after the receipt; there are six.</summary>
        public static void pFillLines(int Number, byte[] Line, ref int FreeLines)
        {
            Check("pFillLines", Native.pFillLines(Number, Line, ref FreeLines));
        }

        /// <summary>Stores a line to be printed after the receipt; there are six.</summary>
        public static int xFillLines(int Number, byte[] Line)
        {
            return Value("xFillLines", Native.xFillLines(Number, Line));
        }

        /// <summary>Forgets the stored lines.</summary>
        public static void EraseLines()
        {
            Check("EraseLines", Native.EraseLines());
        }

        /// <summary>A payment in a foreign currency, first part: name, rate and amount.</summary>
        public static void pCurrencyPayment1(byte[] CurrencyName, byte[] Rate, int Qantity,
            int Subtotal, int Send)
        {
            Check("pCurrencyPayment1", Native.pCurrencyPayment1(CurrencyName, Rate, Qantity,
                Subtotal, Send));
        }

        /// <summary>Second part: what was paid and given back, hundredths.</summary>
        public static void pCurrencyPayment2(int TotalInCurrency, int TotalInBaseCurrency,
            int Change, int TypeOfChange, int Send)
        {
            Check("pCurrencyPayment2", Native.pCurrencyPayment2(TotalInCurrency,
                TotalInBaseCurrency, Change, TypeOfChange, Send));
        }

        /// <summary>An additional payment (or change) in a foreign currency, sent at
        /// once.</summary>
        public static void pAdditionalCurrencyPayment(int Number, int IsChange, byte[] Name,
            int PaidInForeignCurrency, int ExchangeRate, int QAC, int PaidInBaseCurrency)
        {
            Check("pAdditionalCurrencyPayment", Native.pAdditionalCurrencyPayment(Number, IsChange,
                Name, PaidInForeignCurrency, ExchangeRate, QAC, PaidInBaseCurrency));
        }

        // ---- Discounts, packages, drawer ----

        /// <summary>Discount or surcharge on the last item, by amount: one for an item.</summary>
        public static void DiscountOrSurcharge(int Discount, int Amount)
        {
            Check("DiscountOrSurcharge", Native.DiscountOrSurcharge(Discount, Amount));
        }

        /// <summary>The same by percent; the receipt's totals are then read from the
        /// device.</summary>
        public static void PercentDiscountOrSurcharge(int Discount, int Percent)
        {
            Check("PercentDiscountOrSurcharge", Native.PercentDiscountOrSurcharge(Discount,
                Percent));
        }

        /// <summary>Sells or takes back returnable packages; they are not part of the fiscal
        /// totals.</summary>
        public static void PackageItem(int Parameter, int Number, int Quantity, int Price)
        {
            Check("PackageItem", Native.PackageItem(Parameter, Number, Quantity, Price));
        }

        /// <summary>Prints the subtotal of the open receipt.</summary>
        public static void PrintSubtotal()
        {
            Check("PrintSubtotal", Native.PrintSubtotal());
        }

        /// <summary>Opens cash drawer 1, 2 or 3, inside a receipt or outside.</summary>
        public static void OpenDrawer(int DrawerNumber)
        {
            Check("OpenDrawer", Native.OpenDrawer(DrawerNumber));
        }

        // ---- Invoice ----

        /// <summary>Opens an invoice: a receipt with a number, the buyer's lines and tax
        /// number.</summary>
        public static void pInvoiceBegin(byte[] Number, byte[] Name1, byte[] Name2, byte[] Name3,
            byte[] Name4, byte[] Name5, byte[] Name6, byte[] NIP)
        {
            Check("pInvoiceBegin", Native.pInvoiceBegin(Number, Name1, Name2, Name3, Name4, Name5,
                Name6, NIP));
        }

        // ---- Tax rates ----

        /// <summary>Reads the rates A to G and how many of them the device has (7, 6 or
        /// 4).</summary>
        public static void ReadVAT(ref int Count, ref int A, ref int B, ref int C, ref int D,
            ref int E, ref int F, ref int G)
        {
            Check("ReadVAT", Native.ReadVAT(ref Count, ref A, ref B, ref C, ref D, ref E, ref F, ref
                G));
        }

        /// <summary>The same into an array of eight: the count, then A to G.</summary>
        public static void xReadVAT(int[] Rates)
        {
            Native.xReadVAT(Rates);
            Check("xReadVAT", Native.LastError());
        }

        /// <summary>Writes the rates and reads them back.</summary>
        public static void SetVAT(int QuantityOfRates, int A, int B, int C, int D, int E, int F,
            int G)
        {
            Check("SetVAT", Native.SetVAT(QuantityOfRates, A, B, C, D, E, F, G));
        }

        // ---- Reports ----

        /// <summary>Prints the daily report and closes the day.</summary>
        public static void DailyReport(int Unconditionally)
        {
            Check("DailyReport", Native.DailyReport(Unconditionally));
        }

        /// <summary>Prints the articles whose rate is locked.</summary>
        public static void LockedArticlesReport()
        {
            Check("LockedArticlesReport", Native.LockedArticlesReport());
        }

        /// <summary>Prints the printer's status.</summary>
        public static void PrinterStatusReport()
        {
            Check("PrinterStatusReport", Native.PrinterStatusReport());
        }

        /// <summary>Prints the report between two dates.</summary>
        public static void PeriodReport(int Fiscal, int yy1, int mm1, int dd1, int yy2, int mm2,
            int dd2)
        {
            Check("PeriodReport", Native.PeriodReport(Fiscal, yy1, mm1, dd1, yy2, mm2, dd2));
        }

        /// <summary>Prints the report of a month.</summary>
        public static void MonthlyReport(int Fiscal, int Year, int Month)
        {
            Check("MonthlyReport", Native.MonthlyReport(Fiscal, Year, Month));
        }

        /// <summary>Prints the daily reports by their numbers, 16 bits of each.</summary>
        public static void NumberReport(int Fiscal, int FirstNumber, int LastNumber)
        {
            Check("NumberReport", Native.NumberReport(Fiscal, FirstNumber, LastNumber));
        }

        /// <summary>Number of the last daily report, 0 to 65535.</summary>
        public static void DailyReportNumber(ref int Number)
        {
            Check("DailyReportNumber", Native.DailyReportNumber(ref Number));
        }

        /// <summary>Number of the last daily report, 0 to 65535.</summary>
        public static int xDailyReportNumber()
        {
            return Value("xDailyReportNumber", Native.xDailyReportNumber());
        }

        // ---- Clock ----

        /// <summary>The device's clock as text: "dd.dd.dd;hh:mm", and ":ss" on types 4 and 7 to 13;
        /// the date's pairs in the device's order.</summary>
        public static void pReadClock(byte[] Buffer)
        {
            Check("pReadClock", Native.pReadClock(Buffer));
        }

        /// <summary>The device's clock as text: "dd.dd.dd;hh:mm", and ":ss" on types 4 and 7 to 13;
        /// the date's pairs in the device's order.</summary>
        public static string xReadClock()
        {
            return Value("xReadClock", Native.xReadClock());
        }

        /// <summary>Moves the clock to Hour (below 24) and Minute (below 60) of the same day, by an
        /// hour at most.</summary>
        public static void ChangeTime(int Hour, int Minute)
        {
            Check("ChangeTime", Native.ChangeTime(Hour, Minute));
        }

        // ---- Totals and counters ----

        /// <summary>The day's sales in hundredths, as decimal text of at most 11 characters: a
        /// buffer of at least 12 bytes.</summary>
        public static void pReadTotal(byte[] Buffer)
        {
            Check("pReadTotal", Native.pReadTotal(Buffer));
        }

        /// <summary>The day's sales in hundredths, as decimal text of at most 11 characters: a
        /// buffer of at least 12 bytes.</summary>
        public static string xReadTotal()
        {
            return Value("xReadTotal", Native.xReadTotal());
        }

        /// <summary>The day's sales of one rate.</summary>
        public static void pReadSelTotal(byte[] Selector, byte[] Buffer)
        {
            Check("pReadSelTotal", Native.pReadSelTotal(Selector, Buffer));
        }

        /// <summary>The day's sales of one rate.</summary>
        public static string xReadSelTotal(byte[] Selector)
        {
            return Value("xReadSelTotal", Native.xReadSelTotal(Selector));
        }

        /// <summary>The device's unique number, 11 characters: a buffer of at least 12
        /// bytes.</summary>
        public static void pReadUniqueNumber(byte[] Buffer)
        {
            Check("pReadUniqueNumber", Native.pReadUniqueNumber(Buffer));
        }

        /// <summary>The device's unique number, 11 characters: a buffer of at least 12
        /// bytes.</summary>
        public static string xReadUniqueNumber()
        {
            return Value("xReadUniqueNumber", Native.xReadUniqueNumber());
        }

        /// <summary>The daily totalizers of types 10 and 11, in hundredths and in the device's
        /// order; what does not fit 32 bits is held at their limit.</summary>
        public static void pReadDailyTotalizers(int Kind, ref long T1, ref long T2, ref long T3,
            ref long T4, ref long T5, ref long T6, ref long T7)
        {
            Check("pReadDailyTotalizers", Native.pReadDailyTotalizers(Kind, ref T1, ref T2, ref T3,
                ref T4, ref T5, ref T6, ref T7));
        }

        /// <summary>Two daily counters of types 10 and 11, 0 to 65535.</summary>
        public static void pReadDailyCounters(ref int Counter1, ref int Counter2)
        {
            Check("pReadDailyCounters", Native.pReadDailyCounters(ref Counter1, ref Counter2));
        }

        // ---- Status and configuration ----

        /// <summary>The device's four status bytes, 0 to 255 each.</summary>
        public static void ReadStatus(ref int Status1, ref int Status2, ref int Status3,
            ref int Status4)
        {
            Check("ReadStatus", Native.ReadStatus(ref Status1, ref Status2, ref Status3, ref
                Status4));
        }

        /// <summary>One of them, Which 0 to 3; 0 for any other.</summary>
        public static int xReadStatus(int Which)
        {
            return Value("xReadStatus", Native.xReadStatus(Which));
        }

        /// <summary>Reads the three bytes of a configuration group (its number's low
        /// byte).</summary>
        public static void ReadConfigBytes(int Group, ref int Byte1, ref int Byte2, ref int Byte3)
        {
            Check("ReadConfigBytes", Native.ReadConfigBytes(Group, ref Byte1, ref Byte2, ref
                Byte3));
        }

        /// <summary>Writes the three bytes of a configuration group.</summary>
        public static void WriteConfigBytes(byte Group, byte Byte1, byte Byte2, byte Byte3)
        {
            Check("WriteConfigBytes", Native.WriteConfigBytes(Group, Byte1, Byte2, Byte3));
        }

        /// <summary>Returns 1 when the bit at position Bit (modulo 32) or any above it is set in
        /// Value, else 0.</summary>
        public static int BitZBajtu(byte Value, byte Bit)
        {
            return Native.BitZBajtu(Value, Bit);
        }

        // ---- Footer and logo ----

        /// <summary>Writes the three lines printed under receipts: 40 characters of each, padded
        /// with blanks.</summary>
        public static void pWriteFooterLines(byte[] Line1, byte[] Line2, byte[] Line3)
        {
            Check("pWriteFooterLines", Native.pWriteFooterLines(Line1, Line2, Line3));
        }

        /// <summary>Reads them, 40 characters each in the device's code page: buffers of at least
        /// 41 bytes.</summary>
        public static void pReadFooterLines(byte[] Line1, byte[] Line2, byte[] Line3)
        {
            Check("pReadFooterLines", Native.pReadFooterLines(Line1, Line2, Line3));
        }

        /// <summary>Sends a logo: an uncompressed bitmap of 192 by 64 dots with 1 bit per dot,
        /// whose dots begin within the first 255 bytes.</summary>
        public static void pWriteLogo(string FileName)
        {
            Check("pWriteLogo", Native.pWriteLogo(FileName));
        }

        // ---- Non-fiscal printouts ----

        /// <summary>Begins the printout form of this number, at most 99.</summary>
        public static void NonFiscalPrintoutBegin(int Number)
        {
            Check("NonFiscalPrintoutBegin", Native.NonFiscalPrintoutBegin(Number));
        }

        /// <summary>Ends it and waits until it is printed.</summary>
        public static void NonFiscalPrintoutEnd()
        {
            Check("NonFiscalPrintoutEnd", Native.NonFiscalPrintoutEnd());
        }

        /// <summary>Prints a numbered line of the form.</summary>
        public static void pNonFiscalPrintoutLine(int Number, byte[] Text, int If0A)
        {
            Check("pNonFiscalPrintoutLine", Native.pNonFiscalPrintoutLine(Number, Text, If0A));
        }

        /// <summary>Prints a free line.</summary>
        public static void pAddNonFiscalPrintoutLine(byte[] Text)
        {
            Check("pAddNonFiscalPrintoutLine", Native.pAddNonFiscalPrintoutLine(Text));
        }

        /// <summary>The control printout of article names with their rates.</summary>
        public static void pControlPrintout(int Operation, byte[] Name, int TaxRate)
        {
            Check("pControlPrintout", Native.pControlPrintout(Operation, Name, TaxRate));
        }

        // ---- Cashier and sundry ----

        /// <summary>Feeds paper by a number of lines (its low byte).</summary>
        public static void WriteLineFeed(int LineFeeds)
        {
            Check("WriteLineFeed", Native.WriteLineFeed(LineFeeds));
        }

        /// <summary>The rate under which the device knows an article.</summary>
        public static void pCheckArticle(byte[] Name, ref int Rate, ref int Kind)
        {
            Check("pCheckArticle", Native.pCheckArticle(Name, ref Rate, ref Kind));
        }

        /// <summary>Sends any control sequence.</summary>
        public static void RSSequence(int ControlCode, int QuantityOfBytesToReceive,
            int QuantityOfBytesToSend, byte[] Received, byte[] ToSend)
        {
            Check("RSSequence", Native.RSSequence(ControlCode, QuantityOfBytesToReceive,
                QuantityOfBytesToSend, Received, ToSend));
        }

        /// <summary>Writes a user's line.</summary>
        public static void WriteUserQuorra(int Line, int Mode, byte[] Text)
        {
            Check("WriteUserQuorra", Native.WriteUserQuorra(Line, Mode, Text));
        }

        /// <summary>Sets the cash register's and the cashier's codes.</summary>
        public static void pWriteECRCashierCode(int ECRCode, byte[] CashierCode)
        {
            Check("pWriteECRCashierCode", Native.pWriteECRCashierCode(ECRCode, CashierCode));
        }

        // ---- Customer display ----

        /// <summary>Shows a text on the customer display of types 1, 2, 3, 5 and 6.</summary>
        public static void pDisplayGX450(int Number, byte[] Text)
        {
            Check("pDisplayGX450", Native.pDisplayGX450(Number, Text));
        }

        // ---- Texts ----

        /// <summary>Return the byte that stands for a code page 1250 character in the device's code
        /// page, as it is or in upper case.</summary>
        public static int NaLatin2(byte Character)
        {
            return Native.NaLatin2(Character);
        }

        /// <summary>Return the byte that stands for a code page 1250 character in the device's code
        /// page, as it is or in upper case.</summary>
        public static int NaLatin2AndUpper(byte Character)
        {
            return Native.NaLatin2AndUpper(Character);
        }

        /// <summary>The Polish text of an error number, at most 63 characters in code page 1250: a
        /// buffer of at least 64 bytes. 0 gives an empty text, an unlisted number a general
        /// one.</summary>
        public static void pErrMessage(int ErrNo, byte[] Buffer)
        {
            Check("pErrMessage", Native.pErrMessage(ErrNo, Buffer));
        }

        /// <summary>The Polish text of an error number, at most 63 characters in code page 1250: a
        /// buffer of at least 64 bytes. 0 gives an empty text, an unlisted number a general
        /// one.</summary>
        public static string xErrMessage(int ErrNo)
        {
            return Value("xErrMessage", Native.xErrMessage(ErrNo));
        }
        // -- End of what script/bindings writes --

        // The functions as the library exports them.
        [BestFitMapping(false, ThrowOnUnmappableChar = true)]
        private static class Native
        {
            // koraxdr.dll on Windows; elsewhere Koraxdr.dll.config or the loader finds the file.
            private const string Library = "koraxdr";
            // __stdcall on Windows, the C convention elsewhere.
            private const CallingConvention Convention = CallingConvention.Winapi;

            // -- From include/koraxdr.h by script/bindings --

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int CommunicationInit(int Port, int BaudRate, int Timeout);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int CommunicationInitInternal(byte Port, byte Identify);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int CommunicationEnd();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int OpenPort(int Port, int BaudRate, int WriteTimeout,
                int ReadTimeout);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ClosePort();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int OptimizeTransmission();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int LastError();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int SetDebugMode();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ClearDebugMode();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pDllVersion(byte[] Buffer);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern IntPtr xDllVersion();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pDllAuthor(byte[] Buffer);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern IntPtr xDllAuthor();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int SetPortDevice(int Port,
                [MarshalAs(UnmanagedType.LPStr)] string DevicePath);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int DeviceType(ref int Type, ref int Version);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int xDeviceType();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int xProgramVersion();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pDeviceName(byte[] Buffer);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern IntPtr xDeviceName();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int IsCodePage1250(ref int Result);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int xIsCodePage1250();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int PrintControl(int BeforePrinting);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ReceiptBegin();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ReceiptConditions();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ReceiptEndEx(int DiscountSurcharge,
                int TypeOfDiscountSurcharge);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ReceiptEnd(int DiscountSurcharge);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ReceiptCancel();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int CancellationReason(ref int Code, byte[] Reason);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ReceiptNumber(ref int Number);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int xReceiptNumber();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int PrintResume();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pReceiptItem(int Sale, byte[] Name, int TaxRate,
                int Communicate, int Quantity, int QAC, byte[] Unit, int Price, ref int Amount);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pReceiptItemEx(int Sale, byte[] Name, int TaxRate,
                int Communicate, int Quantity, int QAC, byte[] Unit, int Price);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int NormNazwa(byte[] Destination, byte[] Name);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int NormNazwa1(byte[] Destination, byte[] Name);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pCharsInArticleName(byte[] Name);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int InZnakiPolskie(byte Character);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pFillPayment(int PaymentNo, byte[] PaymentName, int Total,
                int Change);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pSendPayment(int PaymentNo, byte[] PaymentName, int Total,
                int Change);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ErasePayments();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pFillLines(int Number, byte[] Line, ref int FreeLines);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int xFillLines(int Number, byte[] Line);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int EraseLines();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pCurrencyPayment1(byte[] CurrencyName, byte[] Rate,
                int Qantity, int Subtotal, int Send);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pCurrencyPayment2(int TotalInCurrency, int TotalInBaseCurrency,
                int Change, int TypeOfChange, int Send);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pAdditionalCurrencyPayment(int Number, int IsChange,
                byte[] Name, int PaidInForeignCurrency, int ExchangeRate, int QAC,
                int PaidInBaseCurrency);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int DiscountOrSurcharge(int Discount, int Amount);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int PercentDiscountOrSurcharge(int Discount, int Percent);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int PackageItem(int Parameter, int Number, int Quantity,
                int Price);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int PrintSubtotal();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int OpenDrawer(int DrawerNumber);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pInvoiceBegin(byte[] Number, byte[] Name1, byte[] Name2,
                byte[] Name3, byte[] Name4, byte[] Name5, byte[] Name6, byte[] NIP);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ReadVAT(ref int Count, ref int A, ref int B, ref int C,
                ref int D, ref int E, ref int F, ref int G);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern IntPtr xReadVAT(int[] Rates);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int SetVAT(int QuantityOfRates, int A, int B, int C, int D, int E,
                int F, int G);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int DailyReport(int Unconditionally);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int LockedArticlesReport();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int PrinterStatusReport();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int PeriodReport(int Fiscal, int yy1, int mm1, int dd1, int yy2,
                int mm2, int dd2);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int MonthlyReport(int Fiscal, int Year, int Month);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int NumberReport(int Fiscal, int FirstNumber, int LastNumber);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int DailyReportNumber(ref int Number);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int xDailyReportNumber();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pReadClock(byte[] Buffer);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern IntPtr xReadClock();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ChangeTime(int Hour, int Minute);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pReadTotal(byte[] Buffer);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern IntPtr xReadTotal();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pReadSelTotal(byte[] Selector, byte[] Buffer);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern IntPtr xReadSelTotal(byte[] Selector);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pReadUniqueNumber(byte[] Buffer);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern IntPtr xReadUniqueNumber();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pReadDailyTotalizers(int Kind, ref long T1, ref long T2,
                ref long T3, ref long T4, ref long T5, ref long T6, ref long T7);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pReadDailyCounters(ref int Counter1, ref int Counter2);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ReadStatus(ref int Status1, ref int Status2, ref int Status3,
                ref int Status4);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int xReadStatus(int Which);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int ReadConfigBytes(int Group, ref int Byte1, ref int Byte2,
                ref int Byte3);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int WriteConfigBytes(byte Group, byte Byte1, byte Byte2,
                byte Byte3);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int BitZBajtu(byte Value, byte Bit);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pWriteFooterLines(byte[] Line1, byte[] Line2, byte[] Line3);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pReadFooterLines(byte[] Line1, byte[] Line2, byte[] Line3);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pWriteLogo([MarshalAs(UnmanagedType.LPStr)] string FileName);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int NonFiscalPrintoutBegin(int Number);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int NonFiscalPrintoutEnd();

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pNonFiscalPrintoutLine(int Number, byte[] Text, int If0A);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pAddNonFiscalPrintoutLine(byte[] Text);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pControlPrintout(int Operation, byte[] Name, int TaxRate);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int WriteLineFeed(int LineFeeds);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pCheckArticle(byte[] Name, ref int Rate, ref int Kind);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int RSSequence(int ControlCode, int QuantityOfBytesToReceive,
                int QuantityOfBytesToSend, byte[] Received, byte[] ToSend);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int WriteUserQuorra(int Line, int Mode, byte[] Text);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pWriteECRCashierCode(int ECRCode, byte[] CashierCode);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pDisplayGX450(int Number, byte[] Text);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int NaLatin2(byte Character);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int NaLatin2AndUpper(byte Character);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern int pErrMessage(int ErrNo, byte[] Buffer);

            [DllImport(Library, CallingConvention = Convention, ExactSpelling = true)]
            public static extern IntPtr xErrMessage(int ErrNo);
            // -- End of what script/bindings writes --
        }
    }
}
