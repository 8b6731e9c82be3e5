{ koraxdr from Free Pascal and Delphi: drives fiscal cash registers and fiscal printers over a
  serial line.

    CommunicationInit(1, 9600, 5);
    ReceiptBegin;
    pReceiptItemEx(1, PAnsiChar(KoraxText('Chleb razowy')), KORAX_RATE_C, 0, 1, 0, 'szt.', 799);
    ReceiptEnd(0);
    CommunicationEnd;

  Every function of the library is here under its own name, with its own parameters;
  include/koraxdr.h and docs/functions.md document each. Where these speak of an error number, EKorax
  is raised. A text is in code page 1250, as KoraxText makes it; a buffer for a text is a
  TKoraxBuffer. The library keeps one session with one device, and one thread at a time calls it. }
unit koraxdr;

{$IFDEF FPC}
  {$MODE DELPHI}
{$ENDIF}

interface

uses
  SysUtils;

const
{$IFDEF MSWINDOWS}
  KoraxLibrary = 'koraxdr.dll';
{$ELSE}
  KoraxLibrary = 'libkoraxdr.so.4';
{$ENDIF}

type
  { Holds every text that the library returns. }
  TKoraxBuffer = array[0..255] of AnsiChar;

  { The count of the rates, then A to G. }
  TKoraxRates = array[0..7] of Int32;
  PKoraxRates = ^TKoraxRates;

  { An error number of the library with its Polish text, and the function that gave it. }
  EKorax = class(Exception)
  private
    FFunctionName: string;
    FNumber: Int32;
    FText: UnicodeString;
  public
    constructor Create(const AFunctionName: string; ANumber: Int32);
    property FunctionName: string read FFunctionName;
    property Number: Int32 read FNumber;
    property Text: UnicodeString read FText;
  end;

  { A text that the library cannot take. }
  EKoraxText = class(Exception);

{ The text for the library. A character that code page 1250 does not have, or a zero, raises
  EKoraxText. }
function KoraxText(const Text: UnicodeString): RawByteString;

{ The text for those functions that send it as it is: printout lines and the name of an additional
  currency. }
function KoraxDeviceText(const Text: UnicodeString): RawByteString;

{ The text that the library has written or returned. }
function KoraxString(Text: PAnsiChar): UnicodeString;

{ -- From include/koraxdr.h by script/bindings -- }
const
  KoraxUpperHalf: array[$80..$FF] of Word = (
    $20AC, $FFFD, $201A, $FFFD, $201E, $2026, $2020, $2021,
    $FFFD, $2030, $0160, $2039, $015A, $0164, $017D, $0179,
    $FFFD, $2018, $2019, $201C, $201D, $2022, $2013, $2014,
    $FFFD, $2122, $0161, $203A, $015B, $0165, $017E, $017A,
    $00A0, $02C7, $02D8, $0141, $00A4, $0104, $00A6, $00A7,
    $00A8, $00A9, $015E, $00AB, $00AC, $00AD, $00AE, $017B,
    $00B0, $00B1, $02DB, $0142, $00B4, $00B5, $00B6, $00B7,
    $00B8, $0105, $015F, $00BB, $013D, $02DD, $013E, $017C,
    $0154, $00C1, $00C2, $0102, $00C4, $0139, $0106, $00C7,
    $010C, $00C9, $0118, $00CB, $011A, $00CD, $00CE, $010E,
    $0110, $0143, $0147, $00D3, $00D4, $0150, $00D6, $00D7,
    $0158, $016E, $00DA, $0170, $00DC, $00DD, $0162, $00DF,
    $0155, $00E1, $00E2, $0103, $00E4, $013A, $0107, $00E7,
    $010D, $00E9, $0119, $00EB, $011B, $00ED, $00EE, $010F,
    $0111, $0144, $0148, $00F3, $00F4, $0151, $00F6, $00F7,
    $0159, $016F, $00FA, $0171, $00FC, $00FD, $0163, $02D9);

{ Constants }

{ The interface that a program is compiled for (44400 is 4.44.0), for #if KORAXDR_VERSION >= 44400;
  pDllVersion tells that of the library that was loaded. }
const
  KORAXDR_VERSION_MAJOR = 4;
  KORAXDR_VERSION_MINOR = 44;
  KORAXDR_VERSION_PATCH = 0;
  KORAXDR_VERSION = 44400;

{ Error numbers. What each means and what to do about it: docs/errors.md. 231 has two names, since
  pAdditionalCurrencyPayment gives it for a currency name that is too short. }
const
  KORAX_E_OK = 0;
  KORAX_E_PORT = 2;
  KORAX_E_PORT_BUSY = 5;
  KORAX_E_SEND_TIMEOUT = 20;
  KORAX_E_RECEIVE_TIMEOUT = 21;
  KORAX_E_UNEXPECTED_ANSWER = 23;
  KORAX_E_REFUSED = 24;
  KORAX_E_DAMAGED = 26;
  KORAX_E_CHECK_SUM = 46;
  KORAX_E_NO_SESSION = 99;
  KORAX_E_NO_PRODUCER_DATA = 100;
  KORAX_E_SERVICE_JUMPER = 101;
  KORAX_E_NO_PRINTER_CONTROLLER = 102;
  KORAX_E_PRINTER_FAILURE = 103;
  KORAX_E_NO_USER_DATA = 104;
  KORAX_E_READ_ONLY = 105;
  KORAX_E_NO_CUSTOMER_DISPLAY = 106;
  KORAX_E_MEMORY_ERASED = 107;
  KORAX_E_DAILY_REPORT_PENDING = 108;
  KORAX_E_NO_PAPER = 109;
  KORAX_E_DOCUMENT_WAITS = 110;
  KORAX_E_CHARACTERS_WAIT = 111;
  KORAX_E_PRINTOUT_STOPPED = 112;
  KORAX_E_NO_RATES = 113;
  KORAX_E_NO_PORT_NUMBER = 114;
  KORAX_E_RECEIPT_OPEN = 200;
  KORAX_E_NO_RECEIPT = 201;
  KORAX_E_NAME = 202;
  KORAX_E_RATE = 203;
  KORAX_E_MESSAGE = 204;
  KORAX_E_QUANTITY = 205;
  KORAX_E_QUANTITY_DECIMALS = 206;
  KORAX_E_UNIT = 207;
  KORAX_E_PRICE = 208;
  KORAX_E_AMOUNT = 209;
  KORAX_E_RECEIPT_CANCELLED = 210;
  KORAX_E_NOTHING_SOLD = 211;
  KORAX_E_DRAWER = 212;
  KORAX_E_COMMAND_NOT_AVAILABLE = 213;
  KORAX_E_PACKAGE_KIND = 214;
  KORAX_E_OUT_OF_RANGE = 215;
  KORAX_E_NO_FREE_LINE = 216;
  KORAX_E_RATES_NOT_WRITTEN = 217;
  KORAX_E_RECEIPTS_PRINTED = 218;
  KORAX_E_DATES = 219;
  KORAX_E_NO_REPORTS = 220;
  KORAX_E_NUMBERS = 221;
  KORAX_E_MONTH_NOT_OVER = 222;
  KORAX_E_PARAMETER_N = 223;
  KORAX_E_NOT_IN_THIS_DEVICE = 224;
  KORAX_E_NULL = 225;
  KORAX_E_RATE_NOT_DEFINED = 226;
  KORAX_E_ITEM_VALUE = 227;
  KORAX_E_CLOCK_NO_DIFFERENCE = 228;
  KORAX_E_CLOCK_TOO_FAR = 229;
  KORAX_E_CLOCK_ONCE_A_DAY = 230;
  KORAX_E_CONTROL_CHARACTER = 231;
  KORAX_E_CURRENCY_NAME = 231;
  KORAX_E_DATA_CHECK_SUM = 232;
  KORAX_E_INCOMPLETE_DATA = 233;
  KORAX_E_SAME_DATA = 234;
  KORAX_E_DAILY_REPORT_FIRST = 235;
  KORAX_E_FILE = 236;
  KORAX_E_FILE_FORMAT = 237;
  KORAX_E_TOO_MANY_PACKAGES = 238;
  KORAX_E_INTERNAL = 999;

{ Tax rates as the functions of a receipt take them. pControlPrintout and pCheckArticle count as the
  device does: A to D likewise, then G, E and F as 5, 6 and 7. }
const
  KORAX_RATE_A = 1;
  KORAX_RATE_B = 2;
  KORAX_RATE_C = 3;
  KORAX_RATE_D = 4;
  KORAX_RATE_E = 5;
  KORAX_RATE_F = 6;
  KORAX_RATE_G = 7;

{ Values of ReadVAT and SetVAT that are no percentage. }
const
  KORAX_RATE_EXEMPT = 10000;
  KORAX_RATE_NOT_USED = 25500;

{ Device types, as DeviceType tells them. }
const
  KORAX_TYPE_GX450A_5 = 1;
  KORAX_TYPE_GX450A_7 = 2;
  KORAX_TYPE_QUORRA_1 = 3;
  KORAX_TYPE_QUORRA_2 = 4;
  KORAX_TYPE_GX450B_5 = 5;
  KORAX_TYPE_GX450B_7 = 6;
  KORAX_TYPE_QUORRA_F = 7;
  KORAX_TYPE_TOLA = 8;
  KORAX_TYPE_TOLA_F = 9;
  KORAX_TYPE_TOLA_E = 10;
  KORAX_TYPE_TOLA_EFV = 11;
  KORAX_TYPE_TOLA_F_E = 12;
  KORAX_TYPE_OTHER = 13;


{ Session }

procedure CommunicationInit(Port, BaudRate, Timeout: Int32);
procedure CommunicationInitInternal(Port, Identify: Byte);
procedure CommunicationEnd;
procedure OpenPort(Port, BaudRate, WriteTimeout, ReadTimeout: Int32);
procedure ClosePort;
procedure OptimizeTransmission;
function LastError: Int32;
procedure SetDebugMode;
procedure ClearDebugMode;
procedure pDllVersion(Buffer: PAnsiChar);
function xDllVersion: UnicodeString;
procedure pDllAuthor(Buffer: PAnsiChar);
function xDllAuthor: UnicodeString;
procedure SetPortDevice(Port: Int32; DevicePath: PAnsiChar);

{ Device }

procedure DeviceType(var AType, Version: Int32);
function xDeviceType: Int32;
function xProgramVersion: Int32;
procedure pDeviceName(Buffer: PAnsiChar);
function xDeviceName: UnicodeString;
procedure IsCodePage1250(var AResult: Int32);
function xIsCodePage1250: Int32;
procedure PrintControl(BeforePrinting: Int32);

{ Receipt }

procedure ReceiptBegin;
procedure ReceiptConditions;
procedure ReceiptEndEx(DiscountSurcharge, TypeOfDiscountSurcharge: Int32);
procedure ReceiptEnd(DiscountSurcharge: Int32);
procedure ReceiptCancel;
procedure CancellationReason(var Code: Int32; Reason: PAnsiChar);
procedure ReceiptNumber(var Number: Int32);
function xReceiptNumber: Int32;
procedure PrintResume;

{ Item }

procedure pReceiptItem(Sale: Int32; Name: PAnsiChar; TaxRate, Communicate, Quantity, QAC: Int32;
    AUnit: PAnsiChar; Price: Int32; var Amount: Int32);
procedure pReceiptItemEx(Sale: Int32; Name: PAnsiChar; TaxRate, Communicate, Quantity, QAC: Int32;
    AUnit: PAnsiChar; Price: Int32);
procedure NormNazwa(Destination, Name: PAnsiChar);
procedure NormNazwa1(Destination, Name: PAnsiChar);
function pCharsInArticleName(Name: PAnsiChar): Int32;
function InZnakiPolskie(Character: Byte): Int32;

{ Payments and additional lines }

procedure pFillPayment(PaymentNo: Int32; PaymentName: PAnsiChar; Total, Change: Int32);
procedure pSendPayment(PaymentNo: Int32; PaymentName: PAnsiChar; Total, Change: Int32);
procedure ErasePayments;
procedure pFillLines(Number: Int32; Line: PAnsiChar; var FreeLines: Int32);
function xFillLines(Number: Int32; Line: PAnsiChar): Int32;
procedure EraseLines;
procedure pCurrencyPayment1(CurrencyName, Rate: PAnsiChar; Qantity, Subtotal, Send: Int32);
procedure pCurrencyPayment2(TotalInCurrency, TotalInBaseCurrency, Change, TypeOfChange,
    Send: Int32);
procedure pAdditionalCurrencyPayment(Number, IsChange: Int32; Name: PAnsiChar;
    PaidInForeignCurrency, ExchangeRate, QAC, PaidInBaseCurrency: Int32);

{ Discounts, packages, drawer }

procedure DiscountOrSurcharge(Discount, Amount: Int32);
procedure PercentDiscountOrSurcharge(Discount, Percent: Int32);
procedure PackageItem(Parameter, Number, Quantity, Price: Int32);
procedure PrintSubtotal;
procedure OpenDrawer(DrawerNumber: Int32);

{ Invoice }

procedure pInvoiceBegin(Number, Name1, Name2, Name3, Name4, Name5, Name6, NIP: PAnsiChar);

{ Tax rates }

procedure ReadVAT(var Count, A, B, C, D, E, F, G: Int32);
procedure xReadVAT(var Rates: TKoraxRates);
procedure SetVAT(QuantityOfRates, A, B, C, D, E, F, G: Int32);

{ Reports }

procedure DailyReport(Unconditionally: Int32);
procedure LockedArticlesReport;
procedure PrinterStatusReport;
procedure PeriodReport(Fiscal, yy1, mm1, dd1, yy2, mm2, dd2: Int32);
procedure MonthlyReport(Fiscal, Year, Month: Int32);
procedure NumberReport(Fiscal, FirstNumber, LastNumber: Int32);
procedure DailyReportNumber(var Number: Int32);
function xDailyReportNumber: Int32;

{ Clock }

procedure pReadClock(Buffer: PAnsiChar);
function xReadClock: UnicodeString;
procedure ChangeTime(Hour, Minute: Int32);

{ Totals and counters }

procedure pReadTotal(Buffer: PAnsiChar);
function xReadTotal: UnicodeString;
procedure pReadSelTotal(Selector, Buffer: PAnsiChar);
function xReadSelTotal(Selector: PAnsiChar): UnicodeString;
procedure pReadUniqueNumber(Buffer: PAnsiChar);
function xReadUniqueNumber: UnicodeString;
procedure pReadDailyTotalizers(Kind: Int32; var T1, T2, T3, T4, T5, T6, T7: Int64);
procedure pReadDailyCounters(var Counter1, Counter2: Int32);

{ Status and configuration }

procedure ReadStatus(var Status1, Status2, Status3, Status4: Int32);
function xReadStatus(Which: Int32): Int32;
procedure ReadConfigBytes(Group: Int32; var Byte1, Byte2, Byte3: Int32);
procedure WriteConfigBytes(Group, Byte1, Byte2, Byte3: Byte);
function BitZBajtu(Value, Bit: Byte): Int32;

{ Footer and logo }

procedure pWriteFooterLines(Line1, Line2, Line3: PAnsiChar);
procedure pReadFooterLines(Line1, Line2, Line3: PAnsiChar);
procedure pWriteLogo(FileName: PAnsiChar);

{ Non-fiscal printouts }

procedure NonFiscalPrintoutBegin(Number: Int32);
procedure NonFiscalPrintoutEnd;
procedure pNonFiscalPrintoutLine(Number: Int32; Text: PAnsiChar; If0A: Int32);
procedure pAddNonFiscalPrintoutLine(Text: PAnsiChar);
procedure pControlPrintout(Operation: Int32; Name: PAnsiChar; TaxRate: Int32);

{ Cashier and sundry }

procedure WriteLineFeed(LineFeeds: Int32);
procedure pCheckArticle(Name: PAnsiChar; var Rate, Kind: Int32);
procedure RSSequence(ControlCode, QuantityOfBytesToReceive, QuantityOfBytesToSend: Int32; Received,
    ToSend: PByte);
procedure WriteUserQuorra(Line, Mode: Int32; Text: PAnsiChar);
procedure pWriteECRCashierCode(ECRCode: Int32; CashierCode: PAnsiChar);

{ Customer display }

procedure pDisplayGX450(Number: Int32; Text: PAnsiChar);

{ Texts }

function NaLatin2(Character: Byte): Int32;
function NaLatin2AndUpper(Character: Byte): Int32;
procedure pErrMessage(ErrNo: Int32; Buffer: PAnsiChar);
function xErrMessage(ErrNo: Int32): UnicodeString;
{ -- End of what script/bindings writes -- }

implementation

const
  NoLetter = $FFFD;

procedure Check(const FunctionName: string; Error: Int32); forward;
function Value(const FunctionName: string; Value: Int32): Int32; overload; forward;
function Value(const FunctionName: string; Value: PAnsiChar): UnicodeString; overload; forward;

{ -- From include/koraxdr.h by script/bindings -- }
function Native_CommunicationInit(Port, BaudRate, Timeout: Int32): Int32;
    winapi; external KoraxLibrary name 'CommunicationInit';
function Native_CommunicationInitInternal(Port, Identify: Byte): Int32;
    winapi; external KoraxLibrary name 'CommunicationInitInternal';
function Native_CommunicationEnd: Int32; winapi; external KoraxLibrary name 'CommunicationEnd';
function Native_OpenPort(Port, BaudRate, WriteTimeout, ReadTimeout: Int32): Int32;
    winapi; external KoraxLibrary name 'OpenPort';
function Native_ClosePort: Int32; winapi; external KoraxLibrary name 'ClosePort';
function Native_OptimizeTransmission: Int32;
    winapi; external KoraxLibrary name 'OptimizeTransmission';
function Native_LastError: Int32; winapi; external KoraxLibrary name 'LastError';
function Native_SetDebugMode: Int32; winapi; external KoraxLibrary name 'SetDebugMode';
function Native_ClearDebugMode: Int32; winapi; external KoraxLibrary name 'ClearDebugMode';
function Native_pDllVersion(Buffer: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pDllVersion';
function Native_xDllVersion: PAnsiChar; winapi; external KoraxLibrary name 'xDllVersion';
function Native_pDllAuthor(Buffer: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pDllAuthor';
function Native_xDllAuthor: PAnsiChar; winapi; external KoraxLibrary name 'xDllAuthor';
function Native_SetPortDevice(Port: Int32; DevicePath: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'SetPortDevice';
function Native_DeviceType(var AType, Version: Int32): Int32;
    winapi; external KoraxLibrary name 'DeviceType';
function Native_xDeviceType: Int32; winapi; external KoraxLibrary name 'xDeviceType';
function Native_xProgramVersion: Int32; winapi; external KoraxLibrary name 'xProgramVersion';
function Native_pDeviceName(Buffer: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pDeviceName';
function Native_xDeviceName: PAnsiChar; winapi; external KoraxLibrary name 'xDeviceName';
function Native_IsCodePage1250(var AResult: Int32): Int32;
    winapi; external KoraxLibrary name 'IsCodePage1250';
function Native_xIsCodePage1250: Int32; winapi; external KoraxLibrary name 'xIsCodePage1250';
function Native_PrintControl(BeforePrinting: Int32): Int32;
    winapi; external KoraxLibrary name 'PrintControl';
function Native_ReceiptBegin: Int32; winapi; external KoraxLibrary name 'ReceiptBegin';
function Native_ReceiptConditions: Int32; winapi; external KoraxLibrary name 'ReceiptConditions';
function Native_ReceiptEndEx(DiscountSurcharge, TypeOfDiscountSurcharge: Int32): Int32;
    winapi; external KoraxLibrary name 'ReceiptEndEx';
function Native_ReceiptEnd(DiscountSurcharge: Int32): Int32;
    winapi; external KoraxLibrary name 'ReceiptEnd';
function Native_ReceiptCancel: Int32; winapi; external KoraxLibrary name 'ReceiptCancel';
function Native_CancellationReason(var Code: Int32; Reason: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'CancellationReason';
function Native_ReceiptNumber(var Number: Int32): Int32;
    winapi; external KoraxLibrary name 'ReceiptNumber';
function Native_xReceiptNumber: Int32; winapi; external KoraxLibrary name 'xReceiptNumber';
function Native_PrintResume: Int32; winapi; external KoraxLibrary name 'PrintResume';
function Native_pReceiptItem(Sale: Int32; Name: PAnsiChar; TaxRate, Communicate, Quantity,
    QAC: Int32; AUnit: PAnsiChar; Price: Int32; var Amount: Int32): Int32;
    winapi; external KoraxLibrary name 'pReceiptItem';
function Native_pReceiptItemEx(Sale: Int32; Name: PAnsiChar; TaxRate, Communicate, Quantity,
    QAC: Int32; AUnit: PAnsiChar; Price: Int32): Int32;
    winapi; external KoraxLibrary name 'pReceiptItemEx';
function Native_NormNazwa(Destination, Name: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'NormNazwa';
function Native_NormNazwa1(Destination, Name: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'NormNazwa1';
function Native_pCharsInArticleName(Name: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pCharsInArticleName';
function Native_InZnakiPolskie(Character: Byte): Int32;
    winapi; external KoraxLibrary name 'InZnakiPolskie';
function Native_pFillPayment(PaymentNo: Int32; PaymentName: PAnsiChar; Total, Change: Int32): Int32;
    winapi; external KoraxLibrary name 'pFillPayment';
function Native_pSendPayment(PaymentNo: Int32; PaymentName: PAnsiChar; Total, Change: Int32): Int32;
    winapi; external KoraxLibrary name 'pSendPayment';
function Native_ErasePayments: Int32; winapi; external KoraxLibrary name 'ErasePayments';
function Native_pFillLines(Number: Int32; Line: PAnsiChar; var FreeLines: Int32): Int32;
    winapi; external KoraxLibrary name 'pFillLines';
function Native_xFillLines(Number: Int32; Line: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'xFillLines';
function Native_EraseLines: Int32; winapi; external KoraxLibrary name 'EraseLines';
function Native_pCurrencyPayment1(CurrencyName, Rate: PAnsiChar; Qantity, Subtotal,
    Send: Int32): Int32; winapi; external KoraxLibrary name 'pCurrencyPayment1';
function Native_pCurrencyPayment2(TotalInCurrency, TotalInBaseCurrency, Change, TypeOfChange,
    Send: Int32): Int32; winapi; external KoraxLibrary name 'pCurrencyPayment2';
function Native_pAdditionalCurrencyPayment(Number, IsChange: Int32; Name: PAnsiChar;
    PaidInForeignCurrency, ExchangeRate, QAC, PaidInBaseCurrency: Int32): Int32;
    winapi; external KoraxLibrary name 'pAdditionalCurrencyPayment';
function Native_DiscountOrSurcharge(Discount, Amount: Int32): Int32;
    winapi; external KoraxLibrary name 'DiscountOrSurcharge';
function Native_PercentDiscountOrSurcharge(Discount, Percent: Int32): Int32;
    winapi; external KoraxLibrary name 'PercentDiscountOrSurcharge';
function Native_PackageItem(Parameter, Number, Quantity, Price: Int32): Int32;
    winapi; external KoraxLibrary name 'PackageItem';
function Native_PrintSubtotal: Int32; winapi; external KoraxLibrary name 'PrintSubtotal';
function Native_OpenDrawer(DrawerNumber: Int32): Int32;
    winapi; external KoraxLibrary name 'OpenDrawer';
function Native_pInvoiceBegin(Number, Name1, Name2, Name3, Name4, Name5, Name6,
    NIP: PAnsiChar): Int32; winapi; external KoraxLibrary name 'pInvoiceBegin';
function Native_ReadVAT(var Count, A, B, C, D, E, F, G: Int32): Int32;
    winapi; external KoraxLibrary name 'ReadVAT';
function Native_xReadVAT(var Rates: TKoraxRates): PKoraxRates;
    winapi; external KoraxLibrary name 'xReadVAT';
function Native_SetVAT(QuantityOfRates, A, B, C, D, E, F, G: Int32): Int32;
    winapi; external KoraxLibrary name 'SetVAT';
function Native_DailyReport(Unconditionally: Int32): Int32;
    winapi; external KoraxLibrary name 'DailyReport';
function Native_LockedArticlesReport: Int32;
    winapi; external KoraxLibrary name 'LockedArticlesReport';
function Native_PrinterStatusReport: Int32;
    winapi; external KoraxLibrary name 'PrinterStatusReport';
function Native_PeriodReport(Fiscal, yy1, mm1, dd1, yy2, mm2, dd2: Int32): Int32;
    winapi; external KoraxLibrary name 'PeriodReport';
function Native_MonthlyReport(Fiscal, Year, Month: Int32): Int32;
    winapi; external KoraxLibrary name 'MonthlyReport';
function Native_NumberReport(Fiscal, FirstNumber, LastNumber: Int32): Int32;
    winapi; external KoraxLibrary name 'NumberReport';
function Native_DailyReportNumber(var Number: Int32): Int32;
    winapi; external KoraxLibrary name 'DailyReportNumber';
function Native_xDailyReportNumber: Int32; winapi; external KoraxLibrary name 'xDailyReportNumber';
function Native_pReadClock(Buffer: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pReadClock';
function Native_xReadClock: PAnsiChar; winapi; external KoraxLibrary name 'xReadClock';
function Native_ChangeTime(Hour, Minute: Int32): Int32;
    winapi; external KoraxLibrary name 'ChangeTime';
function Native_pReadTotal(Buffer: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pReadTotal';
function Native_xReadTotal: PAnsiChar; winapi; external KoraxLibrary name 'xReadTotal';
function Native_pReadSelTotal(Selector, Buffer: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pReadSelTotal';
function Native_xReadSelTotal(Selector: PAnsiChar): PAnsiChar;
    winapi; external KoraxLibrary name 'xReadSelTotal';
function Native_pReadUniqueNumber(Buffer: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pReadUniqueNumber';
function Native_xReadUniqueNumber: PAnsiChar;
    winapi; external KoraxLibrary name 'xReadUniqueNumber';
function Native_pReadDailyTotalizers(Kind: Int32; var T1, T2, T3, T4, T5, T6, T7: Int64): Int32;
    winapi; external KoraxLibrary name 'pReadDailyTotalizers';
function Native_pReadDailyCounters(var Counter1, Counter2: Int32): Int32;
    winapi; external KoraxLibrary name 'pReadDailyCounters';
function Native_ReadStatus(var Status1, Status2, Status3, Status4: Int32): Int32;
    winapi; external KoraxLibrary name 'ReadStatus';
function Native_xReadStatus(Which: Int32): Int32; winapi; external KoraxLibrary name 'xReadStatus';
function Native_ReadConfigBytes(Group: Int32; var Byte1, Byte2, Byte3: Int32): Int32;
    winapi; external KoraxLibrary name 'ReadConfigBytes';
function Native_WriteConfigBytes(Group, Byte1, Byte2, Byte3: Byte): Int32;
    winapi; external KoraxLibrary name 'WriteConfigBytes';
function Native_BitZBajtu(Value, Bit: Byte): Int32; winapi; external KoraxLibrary name 'BitZBajtu';
function Native_pWriteFooterLines(Line1, Line2, Line3: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pWriteFooterLines';
function Native_pReadFooterLines(Line1, Line2, Line3: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pReadFooterLines';
function Native_pWriteLogo(FileName: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pWriteLogo';
function Native_NonFiscalPrintoutBegin(Number: Int32): Int32;
    winapi; external KoraxLibrary name 'NonFiscalPrintoutBegin';
function Native_NonFiscalPrintoutEnd: Int32;
    winapi; external KoraxLibrary name 'NonFiscalPrintoutEnd';
function Native_pNonFiscalPrintoutLine(Number: Int32; Text: PAnsiChar; If0A: Int32): Int32;
    winapi; external KoraxLibrary name 'pNonFiscalPrintoutLine';
function Native_pAddNonFiscalPrintoutLine(Text: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pAddNonFiscalPrintoutLine';
function Native_pControlPrintout(Operation: Int32; Name: PAnsiChar; TaxRate: Int32): Int32;
    winapi; external KoraxLibrary name 'pControlPrintout';
function Native_WriteLineFeed(LineFeeds: Int32): Int32;
    winapi; external KoraxLibrary name 'WriteLineFeed';
function Native_pCheckArticle(Name: PAnsiChar; var Rate, Kind: Int32): Int32;
    winapi; external KoraxLibrary name 'pCheckArticle';
function Native_RSSequence(ControlCode, QuantityOfBytesToReceive, QuantityOfBytesToSend: Int32;
    Received, ToSend: PByte): Int32; winapi; external KoraxLibrary name 'RSSequence';
function Native_WriteUserQuorra(Line, Mode: Int32; Text: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'WriteUserQuorra';
function Native_pWriteECRCashierCode(ECRCode: Int32; CashierCode: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pWriteECRCashierCode';
function Native_pDisplayGX450(Number: Int32; Text: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pDisplayGX450';
function Native_NaLatin2(Character: Byte): Int32; winapi; external KoraxLibrary name 'NaLatin2';
function Native_NaLatin2AndUpper(Character: Byte): Int32;
    winapi; external KoraxLibrary name 'NaLatin2AndUpper';
function Native_pErrMessage(ErrNo: Int32; Buffer: PAnsiChar): Int32;
    winapi; external KoraxLibrary name 'pErrMessage';
function Native_xErrMessage(ErrNo: Int32): PAnsiChar;
    winapi; external KoraxLibrary name 'xErrMessage';

procedure CommunicationInit(Port, BaudRate, Timeout: Int32);
begin
  Check('CommunicationInit', Native_CommunicationInit(Port, BaudRate, Timeout));
end;

procedure CommunicationInitInternal(Port, Identify: Byte);
begin
  Check('CommunicationInitInternal', Native_CommunicationInitInternal(Port, Identify));
end;

procedure CommunicationEnd;
begin
  Check('CommunicationEnd', Native_CommunicationEnd);
end;

procedure OpenPort(Port, BaudRate, WriteTimeout, ReadTimeout: Int32);
begin
  Check('OpenPort', Native_OpenPort(Port, BaudRate, WriteTimeout, ReadTimeout));
end;

procedure ClosePort;
begin
  Check('ClosePort', Native_ClosePort);
end;

procedure OptimizeTransmission;
begin
  Check('OptimizeTransmission', Native_OptimizeTransmission);
end;

function LastError: Int32;
begin
  Result := Native_LastError;
end;

procedure SetDebugMode;
begin
  Check('SetDebugMode', Native_SetDebugMode);
end;

procedure ClearDebugMode;
begin
  Check('ClearDebugMode', Native_ClearDebugMode);
end;

procedure pDllVersion(Buffer: PAnsiChar);
begin
  Check('pDllVersion', Native_pDllVersion(Buffer));
end;

function xDllVersion: UnicodeString;
begin
  Result := Value('xDllVersion', Native_xDllVersion);
end;

procedure pDllAuthor(Buffer: PAnsiChar);
begin
  Check('pDllAuthor', Native_pDllAuthor(Buffer));
end;

function xDllAuthor: UnicodeString;
begin
  Result := Value('xDllAuthor', Native_xDllAuthor);
end;

procedure SetPortDevice(Port: Int32; DevicePath: PAnsiChar);
begin
  Check('SetPortDevice', Native_SetPortDevice(Port, DevicePath));
end;

procedure DeviceType(var AType, Version: Int32);
begin
  Check('DeviceType', Native_DeviceType(AType, Version));
end;

function xDeviceType: Int32;
begin
  Result := Value('xDeviceType', Native_xDeviceType);
end;

function xProgramVersion: Int32;
begin
  Result := Value('xProgramVersion', Native_xProgramVersion);
end;

procedure pDeviceName(Buffer: PAnsiChar);
begin
  Check('pDeviceName', Native_pDeviceName(Buffer));
end;

function xDeviceName: UnicodeString;
begin
  Result := Value('xDeviceName', Native_xDeviceName);
end;

procedure IsCodePage1250(var AResult: Int32);
begin
  Check('IsCodePage1250', Native_IsCodePage1250(AResult));
end;

function xIsCodePage1250: Int32;
begin
  Result := Value('xIsCodePage1250', Native_xIsCodePage1250);
end;

procedure PrintControl(BeforePrinting: Int32);
begin
  Check('PrintControl', Native_PrintControl(BeforePrinting));
end;

procedure ReceiptBegin;
begin
  Check('ReceiptBegin', Native_ReceiptBegin);
end;

procedure ReceiptConditions;
begin
  Check('ReceiptConditions', Native_ReceiptConditions);
end;

procedure ReceiptEndEx(DiscountSurcharge, TypeOfDiscountSurcharge: Int32);
begin
  Check('ReceiptEndEx', Native_ReceiptEndEx(DiscountSurcharge, TypeOfDiscountSurcharge));
end;

procedure ReceiptEnd(DiscountSurcharge: Int32);
begin
  Check('ReceiptEnd', Native_ReceiptEnd(DiscountSurcharge));
end;

procedure ReceiptCancel;
begin
  Check('ReceiptCancel', Native_ReceiptCancel);
end;

procedure CancellationReason(var Code: Int32; Reason: PAnsiChar);
begin
  Check('CancellationReason', Native_CancellationReason(Code, Reason));
end;

procedure ReceiptNumber(var Number: Int32);
begin
  Check('ReceiptNumber', Native_ReceiptNumber(Number));
end;

function xReceiptNumber: Int32;
begin
  Result := Value('xReceiptNumber', Native_xReceiptNumber);
end;

procedure PrintResume;
begin
  Check('PrintResume', Native_PrintResume);
end;

procedure pReceiptItem(Sale: Int32; Name: PAnsiChar; TaxRate, Communicate, Quantity, QAC: Int32;
    AUnit: PAnsiChar; Price: Int32; var Amount: Int32);
begin
  Check('pReceiptItem', Native_pReceiptItem(Sale, Name, TaxRate, Communicate, Quantity, QAC, AUnit,
      Price, Amount));
end;

procedure pReceiptItemEx(Sale: Int32; Name: PAnsiChar; TaxRate, Communicate, Quantity, QAC: Int32;
    AUnit: PAnsiChar; Price: Int32);
begin
  Check('pReceiptItemEx', Native_pReceiptItemEx(Sale, Name, TaxRate, Communicate, Quantity, QAC,
      AUnit, Price));
end;

procedure NormNazwa(Destination, Name: PAnsiChar);
begin
  Check('NormNazwa', Native_NormNazwa(Destination, Name));
end;

procedure NormNazwa1(Destination, Name: PAnsiChar);
begin
  Check('NormNazwa1', Native_NormNazwa1(Destination, Name));
end;

function pCharsInArticleName(Name: PAnsiChar): Int32;
begin
  Result := Native_pCharsInArticleName(Name);
end;

function InZnakiPolskie(Character: Byte): Int32;
begin
  Result := Native_InZnakiPolskie(Character);
end;

procedure pFillPayment(PaymentNo: Int32; PaymentName: PAnsiChar; Total, Change: Int32);
begin
  Check('pFillPayment', Native_pFillPayment(PaymentNo, PaymentName, Total, Change));
end;

procedure pSendPayment(PaymentNo: Int32; PaymentName: PAnsiChar; Total, Change: Int32);
begin
  Check('pSendPayment', Native_pSendPayment(PaymentNo, PaymentName, Total, Change));
end;

procedure ErasePayments;
begin
  Check('ErasePayments', Native_ErasePayments);
end;

procedure pFillLines(Number: Int32; Line: PAnsiChar; var FreeLines: Int32);
begin
  Check('pFillLines', Native_pFillLines(Number, Line, FreeLines));
end;

function xFillLines(Number: Int32; Line: PAnsiChar): Int32;
begin
  Result := Value('xFillLines', Native_xFillLines(Number, Line));
end;

procedure EraseLines;
begin
  Check('EraseLines', Native_EraseLines);
end;

procedure pCurrencyPayment1(CurrencyName, Rate: PAnsiChar; Qantity, Subtotal, Send: Int32);
begin
  Check('pCurrencyPayment1', Native_pCurrencyPayment1(CurrencyName, Rate, Qantity, Subtotal, Send));
end;

procedure pCurrencyPayment2(TotalInCurrency, TotalInBaseCurrency, Change, TypeOfChange,
    Send: Int32);
begin
  Check('pCurrencyPayment2', Native_pCurrencyPayment2(TotalInCurrency, TotalInBaseCurrency, Change,
      TypeOfChange, Send));
end;

procedure pAdditionalCurrencyPayment(Number, IsChange: Int32; Name: PAnsiChar;
    PaidInForeignCurrency, ExchangeRate, QAC, PaidInBaseCurrency: Int32);
begin
  Check('pAdditionalCurrencyPayment', Native_pAdditionalCurrencyPayment(Number, IsChange, Name,
      PaidInForeignCurrency, ExchangeRate, QAC, PaidInBaseCurrency));
end;

procedure DiscountOrSurcharge(Discount, Amount: Int32);
begin
  Check('DiscountOrSurcharge', Native_DiscountOrSurcharge(Discount, Amount));
end;

procedure PercentDiscountOrSurcharge(Discount, Percent: Int32);
begin
  Check('PercentDiscountOrSurcharge', Native_PercentDiscountOrSurcharge(Discount, Percent));
end;

procedure PackageItem(Parameter, Number, Quantity, Price: Int32);
begin
  Check('PackageItem', Native_PackageItem(Parameter, Number, Quantity, Price));
end;

procedure PrintSubtotal;
begin
  Check('PrintSubtotal', Native_PrintSubtotal);
end;

procedure OpenDrawer(DrawerNumber: Int32);
begin
  Check('OpenDrawer', Native_OpenDrawer(DrawerNumber));
end;

procedure pInvoiceBegin(Number, Name1, Name2, Name3, Name4, Name5, Name6, NIP: PAnsiChar);
begin
  Check('pInvoiceBegin', Native_pInvoiceBegin(Number, Name1, Name2, Name3, Name4, Name5, Name6,
      NIP));
end;

procedure ReadVAT(var Count, A, B, C, D, E, F, G: Int32);
begin
  Check('ReadVAT', Native_ReadVAT(Count, A, B, C, D, E, F, G));
end;

procedure xReadVAT(var Rates: TKoraxRates);
begin
  Native_xReadVAT(Rates);
  Check('xReadVAT', Native_LastError);
end;

procedure SetVAT(QuantityOfRates, A, B, C, D, E, F, G: Int32);
begin
  Check('SetVAT', Native_SetVAT(QuantityOfRates, A, B, C, D, E, F, G));
end;

procedure DailyReport(Unconditionally: Int32);
begin
  Check('DailyReport', Native_DailyReport(Unconditionally));
end;

procedure LockedArticlesReport;
begin
  Check('LockedArticlesReport', Native_LockedArticlesReport);
end;

procedure PrinterStatusReport;
begin
  Check('PrinterStatusReport', Native_PrinterStatusReport);
end;

procedure PeriodReport(Fiscal, yy1, mm1, dd1, yy2, mm2, dd2: Int32);
begin
  Check('PeriodReport', Native_PeriodReport(Fiscal, yy1, mm1, dd1, yy2, mm2, dd2));
end;

procedure MonthlyReport(Fiscal, Year, Month: Int32);
begin
  Check('MonthlyReport', Native_MonthlyReport(Fiscal, Year, Month));
end;

procedure NumberReport(Fiscal, FirstNumber, LastNumber: Int32);
begin
  Check('NumberReport', Native_NumberReport(Fiscal, FirstNumber, LastNumber));
end;

procedure DailyReportNumber(var Number: Int32);
begin
  Check('DailyReportNumber', Native_DailyReportNumber(Number));
end;

function xDailyReportNumber: Int32;
begin
  Result := Value('xDailyReportNumber', Native_xDailyReportNumber);
end;

procedure pReadClock(Buffer: PAnsiChar);
begin
  Check('pReadClock', Native_pReadClock(Buffer));
end;

function xReadClock: UnicodeString;
begin
  Result := Value('xReadClock', Native_xReadClock);
end;

procedure ChangeTime(Hour, Minute: Int32);
begin
  Check('ChangeTime', Native_ChangeTime(Hour, Minute));
end;

procedure pReadTotal(Buffer: PAnsiChar);
begin
  Check('pReadTotal', Native_pReadTotal(Buffer));
end;

function xReadTotal: UnicodeString;
begin
  Result := Value('xReadTotal', Native_xReadTotal);
end;

procedure pReadSelTotal(Selector, Buffer: PAnsiChar);
begin
  Check('pReadSelTotal', Native_pReadSelTotal(Selector, Buffer));
end;

function xReadSelTotal(Selector: PAnsiChar): UnicodeString;
begin
  Result := Value('xReadSelTotal', Native_xReadSelTotal(Selector));
end;

procedure pReadUniqueNumber(Buffer: PAnsiChar);
begin
  Check('pReadUniqueNumber', Native_pReadUniqueNumber(Buffer));
end;

function xReadUniqueNumber: UnicodeString;
begin
  Result := Value('xReadUniqueNumber', Native_xReadUniqueNumber);
end;

procedure pReadDailyTotalizers(Kind: Int32; var T1, T2, T3, T4, T5, T6, T7: Int64);
begin
  Check('pReadDailyTotalizers', Native_pReadDailyTotalizers(Kind, T1, T2, T3, T4, T5, T6, T7));
end;

procedure pReadDailyCounters(var Counter1, Counter2: Int32);
begin
  Check('pReadDailyCounters', Native_pReadDailyCounters(Counter1, Counter2));
end;

procedure ReadStatus(var Status1, Status2, Status3, Status4: Int32);
begin
  Check('ReadStatus', Native_ReadStatus(Status1, Status2, Status3, Status4));
end;

function xReadStatus(Which: Int32): Int32;
begin
  Result := Value('xReadStatus', Native_xReadStatus(Which));
end;

procedure ReadConfigBytes(Group: Int32; var Byte1, Byte2, Byte3: Int32);
begin
  Check('ReadConfigBytes', Native_ReadConfigBytes(Group, Byte1, Byte2, Byte3));
end;

procedure WriteConfigBytes(Group, Byte1, Byte2, Byte3: Byte);
begin
  Check('WriteConfigBytes', Native_WriteConfigBytes(Group, Byte1, Byte2, Byte3));
end;

function BitZBajtu(Value, Bit: Byte): Int32;
begin
  Result := Native_BitZBajtu(Value, Bit);
end;

procedure pWriteFooterLines(Line1, Line2, Line3: PAnsiChar);
begin
  Check('pWriteFooterLines', Native_pWriteFooterLines(Line1, Line2, Line3));
end;

procedure pReadFooterLines(Line1, Line2, Line3: PAnsiChar);
begin
  Check('pReadFooterLines', Native_pReadFooterLines(Line1, Line2, Line3));
end;

procedure pWriteLogo(FileName: PAnsiChar);
begin
  Check('pWriteLogo', Native_pWriteLogo(FileName));
end;

procedure NonFiscalPrintoutBegin(Number: Int32);
begin
  Check('NonFiscalPrintoutBegin', Native_NonFiscalPrintoutBegin(Number));
end;

procedure NonFiscalPrintoutEnd;
begin
  Check('NonFiscalPrintoutEnd', Native_NonFiscalPrintoutEnd);
end;

procedure pNonFiscalPrintoutLine(Number: Int32; Text: PAnsiChar; If0A: Int32);
begin
  Check('pNonFiscalPrintoutLine', Native_pNonFiscalPrintoutLine(Number, Text, If0A));
end;

procedure pAddNonFiscalPrintoutLine(Text: PAnsiChar);
begin
  Check('pAddNonFiscalPrintoutLine', Native_pAddNonFiscalPrintoutLine(Text));
end;

procedure pControlPrintout(Operation: Int32; Name: PAnsiChar; TaxRate: Int32);
begin
  Check('pControlPrintout', Native_pControlPrintout(Operation, Name, TaxRate));
end;

procedure WriteLineFeed(LineFeeds: Int32);
begin
  Check('WriteLineFeed', Native_WriteLineFeed(LineFeeds));
end;

procedure pCheckArticle(Name: PAnsiChar; var Rate, Kind: Int32);
begin
  Check('pCheckArticle', Native_pCheckArticle(Name, Rate, Kind));
end;

procedure RSSequence(ControlCode, QuantityOfBytesToReceive, QuantityOfBytesToSend: Int32; Received,
    ToSend: PByte);
begin
  Check('RSSequence', Native_RSSequence(ControlCode, QuantityOfBytesToReceive,
      QuantityOfBytesToSend, Received, ToSend));
end;

procedure WriteUserQuorra(Line, Mode: Int32; Text: PAnsiChar);
begin
  Check('WriteUserQuorra', Native_WriteUserQuorra(Line, Mode, Text));
end;

procedure pWriteECRCashierCode(ECRCode: Int32; CashierCode: PAnsiChar);
begin
  Check('pWriteECRCashierCode', Native_pWriteECRCashierCode(ECRCode, CashierCode));
end;

procedure pDisplayGX450(Number: Int32; Text: PAnsiChar);
begin
  Check('pDisplayGX450', Native_pDisplayGX450(Number, Text));
end;

function NaLatin2(Character: Byte): Int32;
begin
  Result := Native_NaLatin2(Character);
end;

function NaLatin2AndUpper(Character: Byte): Int32;
begin
  Result := Native_NaLatin2AndUpper(Character);
end;

procedure pErrMessage(ErrNo: Int32; Buffer: PAnsiChar);
begin
  Check('pErrMessage', Native_pErrMessage(ErrNo, Buffer));
end;

function xErrMessage(ErrNo: Int32): UnicodeString;
begin
  Result := Value('xErrMessage', Native_xErrMessage(ErrNo));
end;
{ -- End of what script/bindings writes -- }

constructor EKorax.Create(const AFunctionName: string; ANumber: Int32);
var
  Buffer: TKoraxBuffer;
begin
  FFunctionName := AFunctionName;
  FNumber := ANumber;
  Native_pErrMessage(ANumber, Buffer);
  FText := KoraxString(Buffer);
  inherited Create(AFunctionName + ': ' + IntToStr(ANumber) + ', ' + string(FText));
end;

procedure Check(const FunctionName: string; Error: Int32);
begin
  if Error <> 0 then
    raise EKorax.Create(FunctionName, Error);
end;

{ An x... function leaves its error to LastError. }
function Value(const FunctionName: string; Value: Int32): Int32;
begin
  Check(FunctionName, Native_LastError);
  Result := Value;
end;

function Value(const FunctionName: string; Value: PAnsiChar): UnicodeString;
begin
  Result := KoraxString(Value); { the next call overwrites the text }
  Check(FunctionName, Native_LastError);
end;

function Code(Letter: Word; Position: Integer): AnsiChar;
var
  Upper: Byte;
begin
  if (Letter > 0) and (Letter < $80) then
    Exit(AnsiChar(Letter));
  if Letter <> NoLetter then
    for Upper := Low(KoraxUpperHalf) to High(KoraxUpperHalf) do
      if KoraxUpperHalf[Upper] = Letter then
        Exit(AnsiChar(Upper));
  raise EKoraxText.CreateFmt('U+%.4X at position %d is not in code page 1250', [Letter, Position]);
end;

function KoraxText(const Text: UnicodeString): RawByteString;
var
  I: Integer;
begin
  SetLength(Result, Length(Text));
  for I := 1 to Length(Text) do
    Result[I] := Code(Ord(Text[I]), I);
  SetCodePage(Result, 1250, False);
end;

function KoraxDeviceText(const Text: UnicodeString): RawByteString;
var
  I: Integer;
begin
  Result := KoraxText(Text);
  for I := 1 to Length(Result) do
    Result[I] := AnsiChar(NaLatin2(Ord(Result[I])));
end;

function KoraxString(Text: PAnsiChar): UnicodeString;
var
  I: Integer;
begin
  SetLength(Result, StrLen(Text));
  for I := 1 to Length(Result) do
    if Text[I - 1] < #$80 then
      Result[I] := WideChar(Ord(Text[I - 1]))
    else
      Result[I] := WideChar(KoraxUpperHalf[Ord(Text[I - 1])]);
end;

end.
