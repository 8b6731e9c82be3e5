{ Texts of the Pascal binding: every character of code page 1250 comes back, and no other is taken. }
program text_test;

{$MODE DELPHI}

uses
  SysUtils, koraxdr;

function IsRefused(const Text: UnicodeString): Boolean;
begin
  Result := False;
  try
    KoraxText(Text);
  except
    on EKoraxText do
      Result := True;
  end;
end;

var
  Letter, Taken: Integer;
  Text: UnicodeString;

begin
  Taken := 0;
  for Letter := 0 to $FFFF do
  begin
    Text := UnicodeString('Karta') + WideChar(Letter);
    if IsRefused(Text) then
      Continue;
    Inc(Taken);
    if KoraxString(PAnsiChar(KoraxText(Text))) <> Text then
      Halt(1);
  end;
  if Taken <> 127 + 123 then
    Halt(2);
  if KoraxText(WideChar($017B)) <> #$AF then
    Halt(3);
  if KoraxDeviceText(WideChar($017B)) <> #$BD then
    Halt(4);
end.
