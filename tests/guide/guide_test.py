"""The guide's C compiles, its programs are the examples, which keep what it promises, and its error
texts are the library's.

    guide_test.py PROJECT C_COMPILER LIBRARY KORAXSIM EXAMPLES
"""
import ctypes
import os
import pty
import re
import select
import subprocess
import sys
import tempfile
import tty
import unittest
from pathlib import Path

PROJECT, COMPILER, LIBRARY, KORAXSIM, EXAMPLES = Path(sys.argv[1]), *sys.argv[2:6]
GUIDE = (PROJECT / "docs/guide.md").read_text()
FIRST, SALE = Path(EXAMPLES, "first"), Path(EXAMPLES, "sale")
SOLD = 0  # status of "sale"
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

    def run_program(self, program, *arguments, limit=None, fault=None):
        """Runs a program over a pseudo-terminal of its own. Once it has sent `limit` bytes it is killed
        (fault "crash") or its port vanishes ("cable"). Returns its status and how many bytes it sent."""
        near, far = pty.openpty()
        tty.setraw(far)
        device = os.open(self.device, os.O_RDWR | os.O_NOCTTY)
        process = subprocess.Popen([program, os.ttyname(far), *arguments])
        sent, ends = 0, [near, far, device]
        while process.poll() is None:
            for ready in select.select([end for end in ends if end != far], [], [], 0.02)[0]:
                if ready == device:
                    answer = os.read(device, 4096)
                    if near in ends:
                        os.write(near, answer)
                else:
                    os.write(device, os.read(near, 1))
                    sent += 1
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
        self.interrupt()

    def interrupt(self):
        """Whatever breaks at whichever byte: the coffee is sold once in the end."""
        whole = self.run_program(SALE, self.folder / "whole")[1]
        sold = 2
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

    def test_error_texts(self):
        library = ctypes.CDLL(LIBRARY)
        library.xErrMessage.restype = ctypes.c_char_p
        rows = re.findall(r"^\| (\d+) \| `(.*?)` \|", GUIDE, re.M)
        self.assertGreaterEqual(len(rows), 30)
        for number, text in rows:
            self.assertEqual(library.xErrMessage(int(number)).decode("cp1250"), text, number)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
