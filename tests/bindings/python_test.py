"""The Python binding on the finished library and the simulator: python_test.py KORAXSIM PROJECT"""
import re
import sys
import unittest
from decimal import Decimal
from pathlib import Path

from simulator import simulator

KORAXSIM, PROJECT = sys.argv[1], Path(sys.argv[2])
sys.path.insert(0, str(PROJECT / "bindings/python"))
import koraxdr


class WithoutDevice(unittest.TestCase):
    def test_buffers_have_room_for_every_text(self):
        header = " ".join((PROJECT / "include/koraxdr.h").read_text(encoding="utf-8").split())
        sizes = re.findall(r"(\d+)(?: \*)? bytes", header)
        self.assertGreater(len(sizes), 10)
        self.assertLessEqual(max(map(int, sizes)), koraxdr._TEXT_BUFFER)

    def test_error_numbers_are_raised(self):
        koraxdr.SetPortDevice(1, "/nowhere/at/all")
        with self.assertRaises(koraxdr.KoraxError) as raised:
            koraxdr.CommunicationInit(1, 9600, 1)
        error = raised.exception
        self.assertEqual((2, "CommunicationInit"), (error.number, error.function))
        self.assertTrue(error.text.startswith("Nie można otworzyć portu"), error.text)
        with self.assertRaises(koraxdr.KoraxError):
            koraxdr.xReceiptNumber()  # reports by LastError alone

    def test_what_the_library_cannot_take_is_refused(self):
        for wanted, parameter, call in (
                (UnicodeEncodeError, "PaymentName", lambda: koraxdr.pFillPayment(1, "Karta 中", 100, 0)),
                (ValueError, "PaymentName", lambda: koraxdr.pFillPayment(1, "Karta\0", 100, 0)),
                (TypeError, "PaymentName", lambda: koraxdr.pFillPayment(1, None, 100, 0)),
                (TypeError, "Total", lambda: koraxdr.pFillPayment(1, "Karta", 1.5, 0)),
                (TypeError, "Total", lambda: koraxdr.pFillPayment(1, "Karta", Decimal("1.5"), 0)),
                (OverflowError, "Total", lambda: koraxdr.pFillPayment(1, "Karta", 2**31, 0)),
                (OverflowError, "Change", lambda: koraxdr.pFillPayment(1, "Karta", 0, -2**31 - 1)),
                (TypeError, "DevicePath", lambda: koraxdr.SetPortDevice(1, 1)),
                (OverflowError, "Character", lambda: koraxdr.InZnakiPolskie(256)),
                (OverflowError, "QuantityOfBytesToReceive", lambda: koraxdr.RSSequence(0x46, 256)),
                (OverflowError, "ToSend", lambda: koraxdr.RSSequence(0x46, 1, bytes(256)))):
            with self.assertRaisesRegex(wanted, parameter):
                call()

    def test_a_number_is_not_the_path_of_an_earlier_session(self):
        with simulator(KORAXSIM) as (device, _):
            with koraxdr.session(device):
                pass
            for port in 1, 255:  # devices that the system may have but that hardly answer
                with self.assertRaises(koraxdr.KoraxError), koraxdr.session(port, timeout=1):
                    pass

    def test_texts_come_and_go(self):
        self.assertEqual("Żółwik" + " " * 34, koraxdr.NormNazwa("Żółwik"))
        self.assertEqual(255, len(koraxdr.NormNazwa("a" * 1000)))
        self.assertEqual(4, koraxdr.pCharsInArticleName("Żółw!"))


class WithDevice(unittest.TestCase):
    def setUp(self):
        self.device, self.paper = self.enterContext(simulator(KORAXSIM, 11))
        self.enterContext(koraxdr.session(str(self.device)))

    def test_there_is_one_session_at_a_time(self):
        koraxdr.ReceiptBegin()
        with self.assertRaises(RuntimeError), koraxdr.session(self.device):
            pass
        koraxdr.ReceiptCancel()  # by the session that stands

    def test_constants_are_those_of_the_header(self):
        self.assertEqual(koraxdr.Device.TOLA_EFV, koraxdr.xDeviceType())
        with self.assertRaises(koraxdr.KoraxError) as raised:
            koraxdr.ReceiptEnd(0)
        self.assertEqual(koraxdr.Error.NO_RECEIPT, raised.exception.number)

    def test_twins_give_the_same(self):
        for p, x in (("pDllVersion", "xDllVersion"), ("pDeviceName", "xDeviceName"), ("pReadTotal", "xReadTotal"),
                     ("pReadUniqueNumber", "xReadUniqueNumber"), ("ReadVAT", "xReadVAT"),
                     ("IsCodePage1250", "xIsCodePage1250"), ("DailyReportNumber", "xDailyReportNumber")):
            self.assertEqual(getattr(koraxdr, p)(), getattr(koraxdr, x)(), p)
        self.assertEqual(koraxdr.DeviceType(), (koraxdr.xDeviceType(), koraxdr.xProgramVersion()))
        self.assertEqual(koraxdr.ReadStatus(), tuple(map(koraxdr.xReadStatus, range(4))))
        self.assertEqual((11, (7, 2300, 800)), (koraxdr.xDeviceType(), koraxdr.ReadVAT()[:3]))
        self.assertRegex(koraxdr.pReadClock(), r"^\d\d\.\d\d\.\d\d;\d\d:\d\d")

    def test_results_of_several_cells_are_tuples(self):
        koraxdr.pInvoiceBegin("FV 1", "Łucja Żądło", "", "", "", "", "", "")
        self.assertEqual(1330, koraxdr.pReceiptItem(1, "Sól kamienna", 1, 0, 1900, 3, "kg", 700))
        self.assertEqual(5, koraxdr.pFillLines(Number=1, Line="Ósmy"))
        koraxdr.ReceiptEnd(0)
        self.assertEqual("1330", koraxdr.pReadTotal().strip())
        self.assertEqual([int] * 7, [type(one) for one in koraxdr.pReadDailyTotalizers(1)])
        self.assertEqual(2, len(koraxdr.pReadDailyCounters()))
        koraxdr.WriteConfigBytes(3, 1, 2, 255)
        self.assertEqual((1, 2, 255), koraxdr.ReadConfigBytes(3))
        self.assertEqual((0, ""), koraxdr.CancellationReason())
        printed = self.paper.read_text(encoding="utf-8")
        for text in "Łucja Żądło", "Sól kamienna", "Ósmy":
            self.assertIn(text, printed)

    def test_texts_in_the_devices_code_page(self):
        koraxdr.pWriteFooterLines("Zażółć", "gęślą", "jaźń")
        self.assertEqual(("Zażółć", "gęślą", "jaźń"), tuple(map(str.rstrip, koraxdr.pReadFooterLines())))
        self.assertEqual(0, koraxdr.LastError())
        koraxdr.NonFiscalPrintoutBegin(1)
        koraxdr.pAddNonFiscalPrintoutLine("Zażółć gęślą jaźń")
        koraxdr.NonFiscalPrintoutEnd()
        self.assertIn("Zażółć gęślą jaźń", self.paper.read_text(encoding="utf-8"))

    def test_any_control_sequence(self):
        self.assertEqual(1, len(koraxdr.RSSequence(0x46, 1, b"\2")))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
