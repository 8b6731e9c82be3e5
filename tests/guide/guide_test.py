"""The guide's C compiles, its programs run against koraxsim, its error texts are the library's.

    guide_test.py PROJECT C_COMPILER LIBRARY KORAXSIM
"""
import ctypes
import os
import pty
import re
import select
import subprocess
import sys
import tempfile
import time
import tty
import unittest
from pathlib import Path

PROJECT, COMPILER, LIBRARY, KORAXSIM = Path(sys.argv[1]), *sys.argv[2:5]
GUIDE = (PROJECT / "docs/guide.md").read_text()
SOLD = 0  # status of the guide's program "sale"


class Simulator:
    """A running koraxsim, and the way to it: a second pseudo-terminal that can break."""

    def __init__(self, folder):
        self.link, self.paper = folder / "device", folder / "paper"
        with self.paper.open("w") as paper:
            self.process = subprocess.Popen([KORAXSIM, "--link", self.link], stdout=paper)
        until = time.monotonic() + 30
        while not self.link.exists() and time.monotonic() < until:
            time.sleep(0.01)

    def closed_receipts(self, awaited=0):
        """How many are on the paper, which comes a moment after the answer."""
        until = time.monotonic() + 10
        while (count := self.paper.read_text().count("Paragon nr")) < awaited and time.monotonic() < until:
            time.sleep(0.01)
        return count

    def run(self, program, *arguments, limit=None, fault=None):
        """Runs a program. Once it has sent `limit` bytes it is killed (fault "crash") or its port
        vanishes ("cable"). Returns its status and how many bytes it sent."""
        near, far = pty.openpty()
        tty.setraw(far)
        device = os.open(self.link, os.O_RDWR | os.O_NOCTTY)
        process = subprocess.Popen([program, os.ttyname(far), *arguments])
        sent, watched = 0, [near, device]
        while process.poll() is None:
            for ready in select.select(watched, [], [], 0.02)[0]:
                if ready == device:
                    answer = os.read(device, 4096)
                    if near in watched:
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
                watched = [device]
                os.close(far)
                os.close(near)
        for end in watched + ([far] if near in watched else []):
            os.close(end)
        return process.returncode, sent

    def stop(self):
        self.process.terminate()
        return self.process.wait()


class Guide(unittest.TestCase):
    def setUp(self):
        scratch = tempfile.TemporaryDirectory()
        self.addCleanup(scratch.cleanup)
        self.folder = Path(scratch.name)

    def compiled(self, code, name):
        """The program, or the object of a piece that is none. Loose statements get a function."""
        if "#include" not in code:
            code = f"#include <koraxdr.h>\n#include <stdio.h>\nvoid f(void);\nvoid f(void) {{{code}}}"
        source, program = self.folder / f"{name}.c", self.folder / name
        source.write_text(code)
        ending = [LIBRARY, f"-Wl,-rpath,{Path(LIBRARY).parent}"] if "int main(" in code else ["-c"]
        subprocess.run([COMPILER, "-Wall", "-Wextra", "-Wpedantic", "-Werror", "-Wno-unused-function",
                        f"-I{PROJECT / 'include'}", "-o", program, source, *ending], check=True)
        return program

    def test_code(self):
        pieces = re.findall(r"^```c\n(.*?)^```$", GUIDE, re.M | re.S)
        self.assertGreaterEqual(len(pieces), 5)
        programs = [self.compiled(code, f"piece{i}") for i, code in enumerate(pieces)]
        first, sale = (p for p, code in zip(programs, pieces) if "int main(" in code)
        simulator = Simulator(self.folder)
        try:
            self.assertEqual(simulator.run(first)[0], 0)
            self.assertEqual(simulator.closed_receipts(1), 1)
            cuts = self.interrupt(simulator, sale)
        finally:
            self.assertEqual(simulator.stop(), 0)
        self.assertEqual(simulator.closed_receipts(), 2 + cuts)

    def interrupt(self, simulator, sale):
        """Whatever breaks at whichever byte: the coffee is sold once in the end."""
        whole = simulator.run(sale, self.folder / "whole")[1]
        rests = 70, 13, 6, 2, 0
        for limit in (whole - rest for rest in rests):
            for fault in ("crash", "cable"):
                with self.subTest(bytes=limit, of=whole, fault=fault):
                    before, journal = simulator.closed_receipts(), self.folder / f"{fault}{limit}"
                    status = simulator.run(sale, journal, limit=limit, fault=fault)[0]
                    for _ in range(4):  # a device amid a sequence gives up only after a while
                        if status != SOLD:
                            status = simulator.run(sale, journal)[0]
                    after = simulator.closed_receipts(before + 1)
                    self.assertEqual((status, after - before), (SOLD, 1))
        return 2 * len(rests)

    def test_error_texts(self):
        library = ctypes.CDLL(LIBRARY)
        library.xErrMessage.restype = ctypes.c_char_p
        rows = re.findall(r"^\| (\d+) \| `(.*?)` \|", GUIDE, re.M)
        self.assertGreaterEqual(len(rows), 30)
        for number, text in rows:
            self.assertEqual(library.xErrMessage(int(number)).decode("cp1250"), text, number)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
