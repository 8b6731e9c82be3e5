// The C# binding: every character of code page 1250 comes back, and no other is taken; a failure
// throws by itself and names its function.
using System;
using System.Linq;
using Koraxdr;
using static Koraxdr.Driver;

internal static class BindingTest
{
    private static int failures;

    private static void Expect(bool holds, string what)
    {
        if (holds) return;
        Console.WriteLine("Not so: " + what);
        ++failures;
    }

    private static void ExpectThrown(string function, Error error, Action call)
    {
        try
        {
            call();
            Expect(false, function + " throws");
        }
        catch (KoraxException thrown)
        {
            Expect(thrown.Function == function && thrown.Number == (int)error && thrown.Text != ""
                && thrown.Message.StartsWith(function + ": " + (int)error + ", "),
                function + " tells its error, not \"" + thrown.Message + "\"");
        }
    }

    private static bool ComesBack(string text)
    {
        try
        {
            Expect(ToText(Text(text)) == text, text + " comes back");
            return true;
        }
        catch (ArgumentException)
        {
            return false;
        }
    }

    private static int Main()
    {
        int taken = Enumerable.Range(0, char.MaxValue + 1)
            .Count(letter => ComesBack("Karta" + (char)letter));
        Expect(taken == 127 + 123, taken + " characters are those of the code page");
        Expect(Text("Żółw").SequenceEqual(new byte[] { 0xAF, 0xF3, 0xB3, (byte)'w', 0 }),
            "a text is converted to code page 1250");
        Expect(DeviceText("Ż").SequenceEqual(new byte[] { 0xBD, 0 }),
            "a device text is converted to code page 852");

        SetPortDevice(1, "/nowhere/at/all");
        ExpectThrown("CommunicationInit", Error.Port, () => CommunicationInit(1, 9600, 1));
        ExpectThrown("xReceiptNumber", Error.Port, () => xReceiptNumber());
        // Nothing was opened twice in a row: the port is forgotten.
        ExpectThrown("xReadTotal", Error.NoPortNumber, () => xReadTotal());
        ExpectThrown("xReadVAT", Error.NoPortNumber, () => xReadVAT(new int[8]));
        Expect(LastError() == 0, "what was thrown is not kept");
        return failures == 0 ? 0 : 1;
    }
}
