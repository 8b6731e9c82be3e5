{ A receipt from a point-of-sale program: open a session, sell, pay, close.

    receipt /dev/ttyUSB0      on Linux: the serial device
    receipt 3                 the COM port's number

  The byte order mark at the beginning of this file tells both compilers that it is UTF-8. }
program receipt;

{$IFDEF FPC}
  {$MODE DELPHI}
{$ENDIF}
{$APPTYPE CONSOLE}

uses
{$IFDEF UNIX}
  cwstring,
{$ENDIF}
  SysUtils, koraxdr;

const
  Baud = 9600;
  TimeoutSeconds = 5;
  ComPort = 1;
  Correction = 0;
  Sale = 1;
  AmountDiscount = 1;

function OpenLine(const Device: string): Int32;
begin
  Result := StrToIntDef(Device, 0);
{$IFNDEF MSWINDOWS}
  if Result = 0 then
  begin
    Result := ComPort;
    SetPortDevice(Result, PAnsiChar(AnsiString(Device)));
  end;
{$ENDIF}
end;

{ Sells an item, or takes a sold one back; returns what it adds to the total. A quantity comes with
  its number of decimals: 1500 and 3 are 1.500 kg. }
function Item(Kind: Int32; const Name: UnicodeString; Rate, Quantity, Decimals: Int32;
  const AUnit: UnicodeString; Price: Int32): Int32;
var
  DeviceType: Int32;
  Fitting: UnicodeString;
begin
  { Types 7 and 9 take 28 characters of a name, the others 40 and more. }
  DeviceType := xDeviceType;
  Fitting := Name;
  if (DeviceType = KORAX_TYPE_QUORRA_F) or (DeviceType = KORAX_TYPE_TOLA_F) then
    Fitting := Copy(Name, 1, 28);
  Result := 0; { asks the library to work it out }
  pReceiptItem(Kind, PAnsiChar(KoraxText(Fitting)), Rate, 0, Quantity, Decimals,
    PAnsiChar(KoraxText(AUnit)), Price, Result);
  if Kind = Correction then
    Result := -Result;
end;

{ Prints the receipt; returns its total in hundredths. }
function Sell: Int32;
const
  Discount = 150;
  ByCard = 2000;
  Cash = 5000;
var
  FreeLines: Int32;
begin
  ReceiptBegin;
  Result := Item(Sale, 'Chleb żytni krojony', KORAX_RATE_C, 2, 0, 'szt.', 449);
  Inc(Result, Item(Sale, 'Jabłka ligol', KORAX_RATE_C, 1356, 3, 'kg', 399));
  Inc(Result, Item(Sale, 'Kawa palona mielona świeżo parzona', KORAX_RATE_A, 1, 0, 'opak', 2799));
  Inc(Result, Item(Sale, 'Czekolada gorzka z całymi orzechami', KORAX_RATE_A, 3, 0, 'szt.', 649));
  Inc(Result, Item(Correction, 'Czekolada gorzka z całymi orzechami', KORAX_RATE_A, 1, 0, 'szt.', 649));
  Inc(Result, Item(Sale, 'Gazeta codzienna', KORAX_RATE_B, 1, 0, 'szt.', 350));

  { A discount on the whole receipt, and two forms of payment with change. They are sent by the end
    of the receipt, on the device types that know them. }
  Dec(Result, Discount);
  pFillPayment(1, 'Karta', ByCard, 0);
  pFillPayment(2, PAnsiChar(KoraxText('Gotówka')), Cash, ByCard + Cash - Result);
  FreeLines := 0;
  pFillLines(1, PAnsiChar(KoraxText('Dziękujemy i zapraszamy!')), FreeLines);
  ReceiptEndEx(Discount, AmountDiscount);
end;

{ Leaves no receipt open, and says what has happened. }
procedure GiveUp(Error: EKorax);
var
  Code: Int32;
  Reason: TKoraxBuffer;
begin
  WriteLn(Error.FunctionName, ': ', Error.Number, ', ', Error.Text);
  try
    if Error.Number <> KORAX_E_RECEIPT_CANCELLED then
    begin
      ReceiptCancel;
      Exit;
    end;
    Code := 0;
    CancellationReason(Code, Reason);
    WriteLn('The device gave reason ', Code, ': ', KoraxString(Reason));
  except
    on EKorax do; { no receipt was open, or the device is gone }
  end;
end;

procedure Run(const Device: string);
var
  Total: Int32;
begin
  CommunicationInit(OpenLine(Device), Baud, TimeoutSeconds);
  WriteLn('Device: ', xDeviceName);
  WriteLn('Driver: ', xDllVersion);
  Total := Sell;
  WriteLn(Format('Receipt %d, total %d,%.2d',
    [xReceiptNumber, Total div 100, Total mod 100]));
end;

begin
  if ParamCount <> 1 then
  begin
    WriteLn('usage: receipt DEVICE');
    Halt(2);
  end;
  try
    Run(ParamStr(1));
  except
    on Error: EKorax do
    begin
      GiveUp(Error);
      ExitCode := 1;
    end;
  end;
  CommunicationEnd;
end.
