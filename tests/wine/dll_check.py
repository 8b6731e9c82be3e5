"""The DLL as the linker made it: dll_check.py OBJDUMP DLL EXPORTS_TXT HEX_CHARACTERISTICS VERSION"""
import re
import subprocess
import sys

objdump, dll, exports, characteristics, version = sys.argv[1:]
shown = subprocess.run([objdump, "-p", dll], capture_output=True, text=True, check=True).stdout

with open(exports, encoding="utf-8") as file:
    wanted = {line.strip() for line in file if line.strip() and not line.startswith("#")}
table = shown.split("[Ordinal/Name Pointer] Table")[1].split("\n\n")[0]
exported = set(re.findall(r"\[ *\d+\] (\S+)", table))
assert len(wanted) > 50
assert exported == wanted, exported ^ wanted

imported = {name.lower() for name in re.findall(r"DLL Name: (\S+)", shown)}
assert imported <= {"kernel32.dll", "msvcrt.dll", "user32.dll", "ws2_32.dll"}, imported

found = re.search(r"DllCharacteristics\s+([0-9a-f]+)", shown)[1]
assert int(found, 16) == int(characteristics, 16), found

# The function that a smashed stack ends in is called from nearly every function with a buffer.
code = subprocess.run([objdump, "-d", "--no-show-raw-insn", dll], capture_output=True, text=True, check=True).stdout
guard = re.search(r"^ *([0-9a-f]+):\s+mov +\$0x2,%ecx\n.*int +\$0x29", code, re.MULTILINE)
assert guard, "no stack protection"
callers = len(re.findall(rf"call +(?:0x)?{guard[1]}\b", code))
assert callers > 50, callers

with open(dll, "rb") as file:
    resource = file.read().decode("utf-16-le", "replace")
assert re.search(rf"ProductVersion\0+{re.escape(version)}\0", resource)
