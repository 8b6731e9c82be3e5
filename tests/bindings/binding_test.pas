{ The Pascal binding: every character of code page 1250 comes back, and no other is taken; a failure
  raises by itself and names its function. }
program binding_test;

{$MODE DELPHI}

uses
  SysUtils, koraxdr;

type
  TCall = procedure;

var
  Rates: TKoraxRates;

procedure Expect(Holds: Boolean; const What: string);
begin
  if Holds then
    Exit;
  WriteLn('Not so: ', What);
  ExitCode := 1;
end;

procedure ExpectRaised(const FunctionName: string; Number: Int32; Call: TCall);
begin
  try
    Call;
    Expect(False, FunctionName + ' raises');
  except
    on Error: EKorax do
      Expect((Error.FunctionName = FunctionName) and (Error.Number = Number) and (Error.Text <> ''),
        FunctionName + ' tells its error, not "' + Error.Message + '"');
  end;
end;

procedure Open;
begin
  CommunicationInit(1, 9600, 1);
end;

procedure AskNumber;
begin
  xReceiptNumber;
end;

procedure AskTotal;
begin
  xReadTotal;
end;

procedure AskRates;
begin
  xReadVAT(Rates);
end;

procedure Texts;
var
  Letter, Taken: Integer;
  Text: UnicodeString;
begin
  Taken := 0;
  for Letter := 0 to $FFFF do
  begin
    Text := UnicodeString('Karta') + WideChar(Letter);
    try
      Expect(KoraxString(PAnsiChar(KoraxText(Text))) = Text, IntToHex(Letter, 4) + ' comes back');
      Inc(Taken);
    except
      on EKoraxText do
        Continue;
    end;
  end;
  Expect(Taken = 127 + 123, IntToStr(Taken) + ' characters are those of the code page');
  Expect(KoraxText(WideChar($017B)) = #$AF, 'a text is converted to code page 1250');
  Expect(KoraxDeviceText(WideChar($017B)) = #$BD, 'a device text is converted to code page 852');
end;

begin
  Texts;
  SetPortDevice(1, '/nowhere/at/all');
  ExpectRaised('CommunicationInit', KORAX_E_PORT, Open);
  ExpectRaised('xReceiptNumber', KORAX_E_PORT, AskNumber);
  { Nothing was opened twice in a row: the port is forgotten. }
  ExpectRaised('xReadTotal', KORAX_E_NO_PORT_NUMBER, AskTotal);
  ExpectRaised('xReadVAT', KORAX_E_NO_PORT_NUMBER, AskRates);
  Expect(LastError = 0, 'what was raised is not kept');
end.
