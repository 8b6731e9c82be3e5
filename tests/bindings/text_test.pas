{ Texts of the Pascal binding: every character of code page 1250 comes back, and no other is taken. }
program text_test;

{$MODE DELPHI}

uses
  SysUtils, koraxdr;

var
  Letter, Taken: Integer;
  Text: UnicodeString;

begin
  Taken := 0;
  for Letter := 0 to $FFFF do
  begin
    Text := UnicodeString('Karta') + WideChar(Letter);
    try
      if KoraxString(PAnsiChar(KoraxText(Text))) <> Text then
        Halt(1);
      Inc(Taken);
    except
      on EKoraxText do
        Continue;
    end;
  end;
  if Taken <> 127 + 123 then
    Halt(2);
  if KoraxText(WideChar($017B)) <> #$AF then
    Halt(3);
  if KoraxDeviceText(WideChar($017B)) <> #$BD then
    Halt(4);
end.
