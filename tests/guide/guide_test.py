"""The guide's C compiles, its programs are the examples, which keep what it promises, and the tables
of errors, reasons and types are the library's.

    guide_test.py PROJECT C_COMPILER LIBRARY KORAXSIM EXAMPLES
"""
import contextlib
import ctypes
import os
import pty
import re
import select
import subprocess
import sys
import tempfile
import threading
import tty
import unittest
from pathlib import Path

PROJECT, COMPILER, KORAXSIM, EXAMPLES = Path(sys.argv[1]), sys.argv[2], *sys.argv[4:6]
LIBRARY = ctypes.CDLL(sys.argv[3])
GUIDE, ERRORS, TABLES = (
    (PROJECT / f"docs/{page}.md").read_text() for page in ("guide", "errors", "device-tables"))
HEADER = (PROJECT / "include/koraxdr.h").read_text()
CONSTANTS = {name: int(value) for name, value in re.findall(r"^#define (KORAX_\w+) (\d+)$", HEADER, re.M)}
FIRST, SALE = Path(EXAMPLES, "first"), Path(EXAMPLES, "sale")
SOLD, NOT_SOLD = 0, 1  # status of "sale"
COUNTERS = (b"\x1b\x66", b"\x1b\xd9")  # the sequences that ask for receipts and daily reports
sys.path.insert(0, str(PROJECT / "tests/bindings"))
from simulator import simulator, wait_until


class Guide(unittest.TestCase):
    def setUp(self):
        self.folder = Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.device, self.paper = self.enterContext(simulator(KORAXSIM))

    def assert_sold(self, count):
        def receipts():
            return self.paper.read_text().count("Paragon nr")

        wait_until(lambda: receipts() >= count)
        self.assertEqual(count, receipts())

    def run_program(self, program, *arguments, limit=None, fault=None, counter=None, preload=""):
        """Runs a program over a pseudo-terminal of its own. Once it has sent `limit` bytes it is killed
        (fault "crash") or its port vanishes ("cable"). A bit is turned in the answer to the
        `counter`-th question for a counter. Returns its status and how many bytes it sent."""
        near, far = pty.openpty()
        tty.setraw(far)
        device = os.open(self.device, os.O_RDWR | os.O_NOCTTY)
        process = subprocess.Popen([program, os.ttyname(far), *arguments],
                                   env={**os.environ, "LD_PRELOAD": str(preload)})
        sent, ends = 0, [near, far, device]
        self.questions, last, answered = 0, b"", 0
        while process.poll() is None:
            for ready in select.select([end for end in ends if end != far], [], [], 0.02)[0]:
                if ready == device:
                    answer = bytearray(os.read(device, 4096))
                    if last in COUNTERS and self.questions == counter and answered < 2 <= answered + len(answer):
                        answer[1 - answered] ^= 1  # behind the acknowledgement
                    answered += len(answer)
                    if near in ends:
                        os.write(near, answer)
                else:
                    byte = os.read(near, 1)
                    os.write(device, byte)
                    sent, last, answered = sent + 1, (last + byte)[-2:], 0
                    self.questions += last in COUNTERS
            if sent != limit:
                continue
            limit = None
            if fault == "crash":
                process.kill()
            else:
                ends = [device]
                os.close(far)
                os.close(near)
        for end in ends:
            os.close(end)
        return process.returncode, sent

    def compile(self, code):
        """Loose statements get a function."""
        if "#include" not in code:
            code = f"#include <koraxdr.h>\n#include <stdio.h>\nvoid f(void);\nvoid f(void) {{{code}}}"
        subprocess.run([COMPILER, "-Wall", "-Wextra", "-Wpedantic", "-Werror", "-Wno-unused-function",
                        f"-I{PROJECT / 'include'}", "-fsyntax-only", "-xc", "-"],
                       input=code, text=True, check=True)

    def test_code(self):
        programs = []
        for code in re.findall(r"^```c\n(.*?)^```$", GUIDE, re.M | re.S):
            if "int main(" in code:
                programs.append(re.match(r"/\* (\w+) ", code)[1])
                self.assertEqual(code, (PROJECT / f"examples/{programs[-1]}.c").read_text())
            else:
                self.compile(code)
        self.assertEqual(programs, [FIRST.name, SALE.name])

    def test_programs(self):
        self.assertEqual(self.run_program(FIRST)[0], 0)
        self.assert_sold(1)
        sold = self.interrupt(1)
        sold = self.turn_bits(sold)
        self.lose_journal(sold)

    def interrupt(self, sold):
        """Whatever breaks at whichever byte: the coffee is sold once in the end."""
        whole = self.run_program(SALE, self.folder / "whole")[1]
        sold += 1
        for limit in (whole - rest for rest in (70, 13, 6, 2, 0)):
            for fault in ("crash", "cable"):
                with self.subTest(bytes=limit, of=whole, fault=fault):
                    journal = self.folder / f"{fault}{limit}"
                    status = self.run_program(SALE, journal, limit=limit, fault=fault)[0]
                    for _ in range(4):  # a device amid a sequence gives up only after a while
                        if status != SOLD:
                            status = self.run_program(SALE, journal)[0]
                    sold += 1
                    self.assertEqual(status, SOLD)
                    self.assert_sold(sold)
        return sold

    def turn_bits(self, sold):
        """One counter that arrives as another number changes nothing, whichever it is."""
        self.run_program(SALE, self.folder / "questions")
        sold += 1
        for counter in range(1, self.questions + 1):
            with self.subTest(counter=counter):
                status = self.run_program(SALE, self.folder / f"bit{counter}", counter=counter)[0]
                sold += 1
                self.assertEqual(status, SOLD)
                self.assert_sold(sold)
        return sold

    def lose_journal(self, sold):
        """A row that does not reach the disk, itself or its file's entry, begins no receipt."""
        for name, kind in {"row": "S_ISREG", "entry": "S_ISDIR"}.items():
            with self.subTest(lost=name):
                library = self.folder / f"{name}.so"
                code = f"""#include <sys/stat.h>
                    int fsync(int file) {{ struct stat is; return fstat(file, &is) || {kind}(is.st_mode) ? -1 : 0; }}"""
                subprocess.run([COMPILER, "-shared", "-fPIC", "-o", library, "-xc", "-"], input=code,
                               text=True, check=True)
                status = self.run_program(SALE, self.folder / name, preload=library)[0]
                self.assertEqual(status, NOT_SOLD)
                self.assert_sold(sold)

    def test_error_texts(self):
        LIBRARY.xErrMessage.restype = ctypes.c_char_p
        rows = re.findall(r"^\| (\d+) \| `(\w+)` \| (?:`(.*?)`)? \|", ERRORS, re.M)
        errors = {name: value for name, value in CONSTANTS.items() if name.startswith("KORAX_E_")}
        self.assertEqual(errors, {name: int(number) for number, name, _ in rows})
        for number, name, text in rows:
            self.assertEqual(LIBRARY.xErrMessage(int(number)).decode("cp1250"), text, name)

    def test_constants_in_words(self):
        """A number beside the name of a constant is its value, and every name is one of the header's."""
        for text in GUIDE, ERRORS, TABLES, HEADER:
            for name in re.findall(r"KORAX_(?:E|RATE|TYPE)_[A-Z0-9_]*[A-Z0-9]\b", text):
                self.assertIn(name, CONSTANTS)
            for number, name in re.findall(r"\b(\d+) `?(KORAX_[A-Z0-9_]*[A-Z0-9])\b", text):
                self.assertEqual(CONSTANTS[name], int(number), name)

    def test_device_types(self):
        rows = re.findall(r"^\| (\d+) \| `(KORAX_TYPE_\w+)` \| `(.*?)` \|$", TABLES, re.M)
        self.assertEqual(13, len(rows))
        for number, _, name in rows:
            with simulator(KORAXSIM, number) as (device, _):
                buffer = ctypes.create_string_buffer(20)
                LIBRARY.SetPortDevice(1, os.fsencode(device))
                self.assertEqual(0, LIBRARY.CommunicationInit(1, 9600, 5))
                LIBRARY.pDeviceName(buffer)
                LIBRARY.CommunicationEnd()
                self.assertEqual(name, buffer.value.decode("cp1250"))

    def test_cancellation_reasons(self):
        """A device that gives one code after the other as its reason, of the simplest type."""
        table = TABLES.split("## Cancellation reasons")[1].split("## ")[0]
        rows = dict(re.findall(r"^\| (\d+) \| `(.*?)` \|", table, re.M))
        near, far = pty.openpty()
        tty.setraw(far)
        codes = iter(range(256))

        def device():
            answers = {b"\x1b\x23": lambda: b"\x15", b"\x1b\xff": lambda: b"\x06\x05",
                       b"\x1b\x50": lambda: bytes((6, next(codes)))}
            with contextlib.suppress(OSError):
                while True:
                    os.write(near, answers[os.read(near, 2)]())

        threading.Thread(target=device, daemon=True).start()
        code, text = ctypes.c_int32(), ctypes.create_string_buffer(256)
        LIBRARY.SetPortDevice(1, os.ttyname(far).encode())
        self.assertEqual(0, LIBRARY.CommunicationInit(1, 9600, 5))
        for expected in range(256):
            self.assertEqual(0, LIBRARY.CancellationReason(ctypes.byref(code), text))
            self.assertEqual(rows.get(str(expected), ""), text.value.decode("cp1250"), expected)
        LIBRARY.CommunicationEnd()
        os.close(far)
        os.close(near)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
