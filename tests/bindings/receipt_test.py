"""A binding's receipt program against the simulator: receipt_test.py KORAXSIM COMMAND..."""
import os
import re
import subprocess
import sys
import unittest

from simulator import simulator, wait_until

KORAXSIM, *COMMAND = sys.argv[1:]


def run(device):
    return subprocess.run([*COMMAND, device], capture_output=True, encoding="utf-8", timeout=90,
                          env=os.environ | {"LC_ALL": "C.UTF-8"})


class Receipt(unittest.TestCase):
    def test_prints_the_total_that_the_program_worked_out(self):
        for device_type in 7, 10:
            with self.subTest(device_type), simulator(KORAXSIM, device_type) as (device, paper):
                said = run(device)
                self.assertEqual(0, said.returncode, said)
                total = re.search(r"^Receipt 1, total (\d+,\d\d)$", said.stdout, re.MULTILINE)
                self.assertTrue(total, said)
                wait_until(lambda: "S U M A" in paper.read_text(encoding="utf-8"))
                self.assertRegex(paper.read_text(encoding="utf-8"), rf"(?s)Jabłka ligol.*S U M A[^\n]* {' '.join(total[1])}\n")

    def test_tells_an_absent_port(self):
        said = run("/nowhere/at/all")
        self.assertEqual(1, said.returncode, said)
        self.assertIn("2, Nie można otworzyć portu szeregowego", said.stdout)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
