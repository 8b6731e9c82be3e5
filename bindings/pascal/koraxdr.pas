{ koraxdr from Free Pascal and Delphi: drives fiscal cash registers and fiscal printers over a
  serial line.

    KoraxCheck(CommunicationInit(1, 9600, 5));
    KoraxCheck(ReceiptBegin);
    KoraxCheck(pReceiptItemEx(1, PAnsiChar(KoraxText('Chleb razowy')), 3, 0, 1, 0, 'szt.', 799));
    KoraxCheck(ReceiptEnd(0));
    CommunicationEnd;

  The functions stand here as the library exports them; include/koraxdr.h and docs/functions.md
  document each. A text is in code page 1250, as KoraxText makes it; a buffer for a text is a
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

  { An error number of the library with its Polish text. }
  EKorax = class(Exception)
  private
    FNumber: Int32;
    FText: UnicodeString;
  public
    constructor Create(ANumber: Int32);
    property Number: Int32 read FNumber;
    property Text: UnicodeString read FText;
  end;

  { A text that the library cannot take. }
  EKoraxText = class(Exception);

{ Raises EKorax when a function has returned an error number. }
procedure KoraxCheck(Error: Int32);

{ The value of an x... function; raises EKorax when it failed. }
function KoraxValue(Value: Int32): Int32; overload;
function KoraxValue(Value: PAnsiChar): UnicodeString; overload;

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


{ Session }

function CommunicationInit(Port, BaudRate, Timeout: Int32): Int32; winapi;
    external KoraxLibrary name 'CommunicationInit';
function CommunicationInitInternal(Port, Identify: Byte): Int32; winapi;
    external KoraxLibrary name 'CommunicationInitInternal';
function CommunicationEnd: Int32; winapi; external KoraxLibrary name 'CommunicationEnd';
function OpenPort(Port, BaudRate, WriteTimeout, ReadTimeout: Int32): Int32; winapi;
    external KoraxLibrary name 'OpenPort';
function ClosePort: Int32; winapi; external KoraxLibrary name 'ClosePort';
function OptimizeTransmission: Int32; winapi; external KoraxLibrary name 'OptimizeTransmission';
function LastError: Int32; winapi; external KoraxLibrary name 'LastError';
function SetDebugMode: Int32; winapi; external KoraxLibrary name 'SetDebugMode';
function ClearDebugMode: Int32; winapi; external KoraxLibrary name 'ClearDebugMode';
function pDllVersion(Buffer: PAnsiChar): Int32; winapi; external KoraxLibrary name 'pDllVersion';
function xDllVersion: PAnsiChar; winapi; external KoraxLibrary name 'xDllVersion';
function pDllAuthor(Buffer: PAnsiChar): Int32; winapi; external KoraxLibrary name 'pDllAuthor';
function xDllAuthor: PAnsiChar; winapi; external KoraxLibrary name 'xDllAuthor';
{$IFNDEF MSWINDOWS}
function SetPortDevice(Port: Int32; DevicePath: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'SetPortDevice';
{$ENDIF}

{ Device }

function DeviceType(var AType, Version: Int32): Int32; winapi;
    external KoraxLibrary name 'DeviceType';
function xDeviceType: Int32; winapi; external KoraxLibrary name 'xDeviceType';
function xProgramVersion: Int32; winapi; external KoraxLibrary name 'xProgramVersion';
function pDeviceName(Buffer: PAnsiChar): Int32; winapi; external KoraxLibrary name 'pDeviceName';
function xDeviceName: PAnsiChar; winapi; external KoraxLibrary name 'xDeviceName';
function IsCodePage1250(var AResult: Int32): Int32; winapi;
    external KoraxLibrary name 'IsCodePage1250';
function xIsCodePage1250: Int32; winapi; external KoraxLibrary name 'xIsCodePage1250';
function PrintControl(BeforePrinting: Int32): Int32; winapi;
    external KoraxLibrary name 'PrintControl';

{ Receipt }

function ReceiptBegin: Int32; winapi; external KoraxLibrary name 'ReceiptBegin';
function ReceiptConditions: Int32; winapi; external KoraxLibrary name 'ReceiptConditions';
function ReceiptEndEx(DiscountSurcharge, TypeOfDiscountSurcharge: Int32): Int32; winapi;
    external KoraxLibrary name 'ReceiptEndEx';
function ReceiptEnd(DiscountSurcharge: Int32): Int32; winapi;
    external KoraxLibrary name 'ReceiptEnd';
function ReceiptCancel: Int32; winapi; external KoraxLibrary name 'ReceiptCancel';
function CancellationReason(var Code: Int32; Reason: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'CancellationReason';
function ReceiptNumber(var Number: Int32): Int32; winapi;
    external KoraxLibrary name 'ReceiptNumber';
function xReceiptNumber: Int32; winapi; external KoraxLibrary name 'xReceiptNumber';
function PrintResume: Int32; winapi; external KoraxLibrary name 'PrintResume';

{ Item }

function pReceiptItem(Sale: Int32; Name: PAnsiChar; TaxRate, Communicate, Quantity, QAC: Int32;
    AUnit: PAnsiChar; Price: Int32; var Amount: Int32): Int32; winapi;
    external KoraxLibrary name 'pReceiptItem';
function pReceiptItemEx(Sale: Int32; Name: PAnsiChar; TaxRate, Communicate, Quantity, QAC: Int32;
    AUnit: PAnsiChar; Price: Int32): Int32; winapi; external KoraxLibrary name 'pReceiptItemEx';
function NormNazwa(Destination, Name: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'NormNazwa';
function NormNazwa1(Destination, Name: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'NormNazwa1';
function pCharsInArticleName(Name: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'pCharsInArticleName';
function InZnakiPolskie(Character: Byte): Int32; winapi;
    external KoraxLibrary name 'InZnakiPolskie';

{ Payments and additional lines }

function pFillPayment(PaymentNo: Int32; PaymentName: PAnsiChar; Total,
    Change: Int32): Int32; winapi; external KoraxLibrary name 'pFillPayment';
function pSendPayment(PaymentNo: Int32; PaymentName: PAnsiChar; Total,
    Change: Int32): Int32; winapi; external KoraxLibrary name 'pSendPayment';
function ErasePayments: Int32; winapi; external KoraxLibrary name 'ErasePayments';
function pFillLines(Number: Int32; Line: PAnsiChar; var FreeLines: Int32): Int32; winapi;
    external KoraxLibrary name 'pFillLines';
function xFillLines(Number: Int32; Line: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'xFillLines';
function EraseLines: Int32; winapi; external KoraxLibrary name 'EraseLines';
function pCurrencyPayment1(CurrencyName, Rate: PAnsiChar; Qantity, Subtotal,
    Send: Int32): Int32; winapi; external KoraxLibrary name 'pCurrencyPayment1';
function pCurrencyPayment2(TotalInCurrency, TotalInBaseCurrency, Change, TypeOfChange,
    Send: Int32): Int32; winapi; external KoraxLibrary name 'pCurrencyPayment2';
function pAdditionalCurrencyPayment(Number, IsChange: Int32; Name: PAnsiChar; PaidInForeignCurrency,
    ExchangeRate, QAC, PaidInBaseCurrency: Int32): Int32; winapi;
    external KoraxLibrary name 'pAdditionalCurrencyPayment';

{ Discounts, packages, drawer }

function DiscountOrSurcharge(Discount, Amount: Int32): Int32; winapi;
    external KoraxLibrary name 'DiscountOrSurcharge';
function PercentDiscountOrSurcharge(Discount, Percent: Int32): Int32; winapi;
    external KoraxLibrary name 'PercentDiscountOrSurcharge';
function PackageItem(Parameter, Number, Quantity, Price: Int32): Int32; winapi;
    external KoraxLibrary name 'PackageItem';
function PrintSubtotal: Int32; winapi; external KoraxLibrary name 'PrintSubtotal';
function OpenDrawer(DrawerNumber: Int32): Int32; winapi; external KoraxLibrary name 'OpenDrawer';

{ Invoice }

function pInvoiceBegin(Number, Name1, Name2, Name3, Name4, Name5, Name6,
    NIP: PAnsiChar): Int32; winapi; external KoraxLibrary name 'pInvoiceBegin';

{ Tax rates }

function ReadVAT(var Count, A, B, C, D, E, F, G: Int32): Int32; winapi;
    external KoraxLibrary name 'ReadVAT';
function xReadVAT(var Rates: TKoraxRates): PKoraxRates; winapi;
    external KoraxLibrary name 'xReadVAT';
function SetVAT(QuantityOfRates, A, B, C, D, E, F, G: Int32): Int32; winapi;
    external KoraxLibrary name 'SetVAT';

{ Reports }

function DailyReport(Unconditionally: Int32): Int32; winapi;
    external KoraxLibrary name 'DailyReport';
function LockedArticlesReport: Int32; winapi; external KoraxLibrary name 'LockedArticlesReport';
function PrinterStatusReport: Int32; winapi; external KoraxLibrary name 'PrinterStatusReport';
function PeriodReport(Fiscal, yy1, mm1, dd1, yy2, mm2, dd2: Int32): Int32; winapi;
    external KoraxLibrary name 'PeriodReport';
function MonthlyReport(Fiscal, Year, Month: Int32): Int32; winapi;
    external KoraxLibrary name 'MonthlyReport';
function NumberReport(Fiscal, FirstNumber, LastNumber: Int32): Int32; winapi;
    external KoraxLibrary name 'NumberReport';
function DailyReportNumber(var Number: Int32): Int32; winapi;
    external KoraxLibrary name 'DailyReportNumber';
function xDailyReportNumber: Int32; winapi; external KoraxLibrary name 'xDailyReportNumber';

{ Clock }

function pReadClock(Buffer: PAnsiChar): Int32; winapi; external KoraxLibrary name 'pReadClock';
function xReadClock: PAnsiChar; winapi; external KoraxLibrary name 'xReadClock';
function ChangeTime(Hour, Minute: Int32): Int32; winapi; external KoraxLibrary name 'ChangeTime';

{ Totals and counters }

function pReadTotal(Buffer: PAnsiChar): Int32; winapi; external KoraxLibrary name 'pReadTotal';
function xReadTotal: PAnsiChar; winapi; external KoraxLibrary name 'xReadTotal';
function pReadSelTotal(Selector, Buffer: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'pReadSelTotal';
function xReadSelTotal(Selector: PAnsiChar): PAnsiChar; winapi;
    external KoraxLibrary name 'xReadSelTotal';
function pReadUniqueNumber(Buffer: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'pReadUniqueNumber';
function xReadUniqueNumber: PAnsiChar; winapi; external KoraxLibrary name 'xReadUniqueNumber';
function pReadDailyTotalizers(Kind: Int32; var T1, T2, T3, T4, T5, T6, T7: Int64): Int32; winapi;
    external KoraxLibrary name 'pReadDailyTotalizers';
function pReadDailyCounters(var Counter1, Counter2: Int32): Int32; winapi;
    external KoraxLibrary name 'pReadDailyCounters';

{ Status and configuration }

function ReadStatus(var Status1, Status2, Status3, Status4: Int32): Int32; winapi;
    external KoraxLibrary name 'ReadStatus';
function xReadStatus(Which: Int32): Int32; winapi; external KoraxLibrary name 'xReadStatus';
function ReadConfigBytes(Group: Int32; var Byte1, Byte2, Byte3: Int32): Int32; winapi;
    external KoraxLibrary name 'ReadConfigBytes';
function WriteConfigBytes(Group, Byte1, Byte2, Byte3: Byte): Int32; winapi;
    external KoraxLibrary name 'WriteConfigBytes';
function BitZBajtu(Value, Bit: Byte): Int32; winapi; external KoraxLibrary name 'BitZBajtu';

{ Footer and logo }

function pWriteFooterLines(Line1, Line2, Line3: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'pWriteFooterLines';
function pReadFooterLines(Line1, Line2, Line3: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'pReadFooterLines';
function pWriteLogo(FileName: PAnsiChar): Int32; winapi; external KoraxLibrary name 'pWriteLogo';

{ Non-fiscal printouts }

function NonFiscalPrintoutBegin(Number: Int32): Int32; winapi;
    external KoraxLibrary name 'NonFiscalPrintoutBegin';
function NonFiscalPrintoutEnd: Int32; winapi; external KoraxLibrary name 'NonFiscalPrintoutEnd';
function pNonFiscalPrintoutLine(Number: Int32; Text: PAnsiChar; If0A: Int32): Int32; winapi;
    external KoraxLibrary name 'pNonFiscalPrintoutLine';
function pAddNonFiscalPrintoutLine(Text: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'pAddNonFiscalPrintoutLine';
function pControlPrintout(Operation: Int32; Name: PAnsiChar; TaxRate: Int32): Int32; winapi;
    external KoraxLibrary name 'pControlPrintout';

{ Cashier and sundry }

function WriteLineFeed(LineFeeds: Int32): Int32; winapi; external KoraxLibrary name 'WriteLineFeed';
function pCheckArticle(Name: PAnsiChar; var Rate, Kind: Int32): Int32; winapi;
    external KoraxLibrary name 'pCheckArticle';
function RSSequence(ControlCode, QuantityOfBytesToReceive, QuantityOfBytesToSend: Int32; Received,
    ToSend: PByte): Int32; winapi; external KoraxLibrary name 'RSSequence';
function WriteUserQuorra(Line, Mode: Int32; Text: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'WriteUserQuorra';
function pWriteECRCashierCode(ECRCode: Int32; CashierCode: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'pWriteECRCashierCode';

{ Customer display }

function pDisplayGX450(Number: Int32; Text: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'pDisplayGX450';

{ Texts }

function NaLatin2(Character: Byte): Int32; winapi; external KoraxLibrary name 'NaLatin2';
function NaLatin2AndUpper(Character: Byte): Int32; winapi;
    external KoraxLibrary name 'NaLatin2AndUpper';
function pErrMessage(ErrNo: Int32; Buffer: PAnsiChar): Int32; winapi;
    external KoraxLibrary name 'pErrMessage';
function xErrMessage(ErrNo: Int32): PAnsiChar; winapi; external KoraxLibrary name 'xErrMessage';
{ -- End of what script/bindings writes -- }

implementation

const
  NoLetter = $FFFD;

constructor EKorax.Create(ANumber: Int32);
var
  Buffer: TKoraxBuffer;
begin
  FNumber := ANumber;
  pErrMessage(ANumber, Buffer);
  FText := KoraxString(Buffer);
  inherited Create(IntToStr(ANumber) + ', ' + string(FText));
end;

procedure KoraxCheck(Error: Int32);
begin
  if Error <> 0 then
    raise EKorax.Create(Error);
end;

function KoraxValue(Value: Int32): Int32;
begin
  KoraxCheck(LastError);
  Result := Value;
end;

function KoraxValue(Value: PAnsiChar): UnicodeString;
begin
  { The next call overwrites the text. }
  Result := KoraxString(Value);
  KoraxCheck(LastError);
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
