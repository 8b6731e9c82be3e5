// Texts of the C# binding: every character of code page 1250 comes back, and no other is taken.
using System;
using System.Linq;
using static Koraxdr.Driver;

internal static class TextTest
{
    private static int Main()
    {
        int taken = 0;
        for (int letter = 0; letter <= char.MaxValue; ++letter)
        {
            string text = "Karta" + (char)letter;
            try
            {
                if (ToText(Text(text)) != text) return 1;
                ++taken;
            }
            catch (ArgumentException)
            {
                continue;
            }
        }
        bool copied = Text("Żółw").SequenceEqual(new byte[] { 0xAF, 0xF3, 0xB3, (byte)'w', 0 });
        bool converted = DeviceText("Ż").SequenceEqual(new byte[] { 0xBD, 0 });
        return taken == 127 + 123 && copied && converted ? 0 : 2;
    }
}
