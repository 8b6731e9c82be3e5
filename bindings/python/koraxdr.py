"""koraxdr from Python: drives fiscal cash registers and fiscal printers over a serial line.

    import koraxdr

    with koraxdr.session("/dev/ttyUSB0"):  # a COM port's number on Windows
        koraxdr.ReceiptBegin()
        koraxdr.pReceiptItemEx(1, "Masło osobne", 3, 0, 1, 0, "szt.", 799)
        koraxdr.ReceiptEnd(0)

Every function of the library is here under its own name, with its own parameters but for buffers
and cells: what the library would write there is returned, a single value or a tuple in the order
of the parameters. A cell that the library leaves as it was reads 0, a text empty. Where the
documentation of a function speaks of an error number, a KoraxError is raised. A p... function and
its x... twin therefore do the same here.

Texts are str. What code page 1250 does not have raises UnicodeEncodeError, a number that does not
fit its parameter OverflowError, before anything is sent. Of the letters outside ASCII the library
converts the Polish ones to the device's code page; others go to the device as they stand in code
page 1250.

The library keeps one session with one device and its calls are made one at a time: a call from a
second thread waits for the first. A receipt belongs to one thread all the same.

The library file is the one that load() or the environment variable KORAXDR_LIBRARY names, else
the one beside this module, else what the system finds.
"""
from __future__ import annotations

import contextlib
import ctypes
import enum
import operator
import os
import sys
import threading
from pathlib import Path

_WINDOWS = sys.platform == "win32"
_FILE = "koraxdr.dll" if _WINDOWS else "libkoraxdr.so.4"
_TEXT_BUFFER = 256  # holds every text that the library returns

_library = None
_lock = threading.RLock()
_session = threading.Lock()  # held while a session() stands
_PORT_OF_PATH = 255  # the last one, which an application hardly has


class KoraxError(Exception):
    """An error number of the library. Reading its text has cleared LastError."""

    def __init__(self, function: str, number: int, text: str):
        super().__init__(function, number, text)
        self.function = function
        self.number = number
        self.text = text  # in Polish

    def __str__(self) -> str:
        return f"{self.function}: {self.number}, {self.text}"


def load(file: str | os.PathLike[str] | None = None) -> None:
    """Loads the library: the named file, or the usual one. The first call does it by itself."""
    global _library
    with _lock:
        if _library is not None:
            if file is not None:
                raise RuntimeError("koraxdr is loaded already")
            return
        beside = Path(__file__).resolve().with_name(_FILE)
        name = file or os.environ.get("KORAXDR_LIBRARY") or (beside if beside.exists() else _FILE)
        _library = (ctypes.WinDLL if _WINDOWS else ctypes.CDLL)(os.fspath(name))


@contextlib.contextmanager
def session(device: int | str | os.PathLike[str], baud: int = 9600, timeout: int = 5):
    """A session with the device on a COM port, or behind a path or an address, ended in any case. There is
    one at a time: a second raises RuntimeError. A path takes COM port 255 for as long."""
    if not _session.acquire(blocking=False):
        raise RuntimeError("a session stands already")
    try:
        with _named(device) as port:
            CommunicationInit(port, baud, timeout)
            try:
                yield
            finally:
                CommunicationEnd()
    finally:
        _session.release()


@contextlib.contextmanager
def _named(device):
    """The number of the device's port."""
    if not isinstance(device, (str, os.PathLike)):
        yield device
        return
    SetPortDevice(_PORT_OF_PATH, device)
    try:
        yield _PORT_OF_PATH
    finally:
        SetPortDevice(_PORT_OF_PATH, "")  # else a later session by this number would find it


# ---- Arguments ----


def _integer(name, value, low, high, c_type):
    try:
        value = operator.index(value)
    except TypeError:
        raise TypeError(f"{name} is {type(value).__name__}, not int") from None
    if not low <= value <= high:
        raise OverflowError(f"{name} is {value}, outside {low} to {high}")
    return c_type(value)


def _int32(name, value):
    return _integer(name, value, -(2**31), 2**31 - 1, ctypes.c_int32)


def _uint8(name, value):
    return _integer(name, value, 0, 255, ctypes.c_uint8)


def _bytes(name, data):
    if b"\0" in data:
        raise ValueError(f"{name} holds a zero character, which would end the text")
    return ctypes.c_char_p(data)


def _encoded(name, value, code_page):
    if not isinstance(value, str):
        raise TypeError(f"{name} is {type(value).__name__}, not str")
    try:
        return value.encode(code_page)
    except UnicodeEncodeError as error:
        error.reason = f"{name}: {error.reason}"
        raise


def _text(name, value):
    return _bytes(name, _encoded(name, value, "cp1250"))


def _text_or_null(name, value):
    return None if value is None else _text(name, value)


def _text_852(name, value):
    return _bytes(name, _encoded(name, value, "cp852"))


def _device_text(name, value):
    """What the library sends as it is: the conversion that it makes elsewhere is made here."""
    return _bytes(name, bytes(map(NaLatin2, _encoded(name, value, "cp1250"))))


def _path(name, value):
    if not isinstance(value, (str, os.PathLike)):
        raise TypeError(f"{name} is {type(value).__name__}, not a path")
    path = os.fspath(value)
    return _bytes(name, path.encode("mbcs", "strict") if _WINDOWS else os.fsencode(path))


# ---- Results ----


class _Int32(ctypes.Array):
    _type_, _length_ = ctypes.c_int32, 1

    def result(self):
        return self[0]


class _Int64(ctypes.Array):
    _type_, _length_ = ctypes.c_int64, 1
    result = _Int32.result


class _Rates(ctypes.Array):
    _type_, _length_ = ctypes.c_int32, 8

    def result(self):
        return tuple(self)


class _Text(ctypes.Array):
    _type_, _length_ = ctypes.c_char, _TEXT_BUFFER

    def result(self):
        return _decoded(self.value)


class _DeviceText(ctypes.Array):
    _type_, _length_ = ctypes.c_char, _TEXT_BUFFER

    def result(self):
        letters = {NaLatin2(letter.encode("cp1250")[0]): letter for letter in "ĄĆĘŁŃÓŚŹŻąćęłńóśźż"}
        LastError()  # NaLatin2 leaves its answer there
        return "".join(letters.get(code, chr(code) if code < 0x80 else "\ufffd") for code in self.value)


def _in_out(name, value):
    return _Int32(_int32(name, value).value)


def _decoded(text):
    return text.decode("cp1250", "replace")


# ---- Calls ----


def _number(name, *arguments, result=ctypes.c_int32):
    load()
    function = getattr(_library, name)
    function.restype = result
    with _lock:
        return function(*arguments)


def _results(arguments):
    results = [argument.result() for argument in arguments if isinstance(argument, ctypes.Array)]
    return results[0] if len(results) == 1 else tuple(results) or None


def _raise_unless_zero(name, number):
    if number:
        text = _Text()
        _number("pErrMessage", ctypes.c_int32(number), text)
        raise KoraxError(name, number, text.result())


def _checked(name, *arguments):
    """Calls a function that returns an error number; returns what it wrote."""
    with _lock:
        _raise_unless_zero(name, _number(name, *arguments))
        return _results(arguments)


def _twin(name, *arguments, result=ctypes.c_int32):
    """Calls a function that leaves its error number to LastError; returns its value."""
    with _lock:
        value = _number(name, *arguments, result=result)
        written = _results(arguments)
        _raise_unless_zero(name, _number("LastError"))
        return value if written is None else written


def _twin_text(name, *arguments):
    with _lock:  # ctypes has copied the text when the call returns
        return _decoded(_twin(name, *arguments, result=ctypes.c_char_p))


def RSSequence(ControlCode: int, QuantityOfBytesToReceive: int, ToSend: bytes = b"") -> bytes:
    """Sends any control sequence. Starts no session and does not look for an open receipt.
      ControlCode               command byte (low byte)
      QuantityOfBytesToReceive  0 to 255: bytes answered right after the command, the
                                acknowledgement or status included
      ToSend                    at most 255 data bytes
    Returns that many bytes: the answer from its second byte on (the first where only one is
    answered); what is behind it is older."""
    count = _integer("QuantityOfBytesToReceive", QuantityOfBytesToReceive, 0, 255, ctypes.c_int32)
    length = _integer("the length of ToSend", len(ToSend), 0, 255, ctypes.c_int32)
    received = ctypes.create_string_buffer(256)
    with _lock:
        number = _number("RSSequence", _int32("ControlCode", ControlCode), count, length, received,
                         ctypes.c_char_p(bytes(ToSend)))
        _raise_unless_zero("RSSequence", number)
    return received.raw[:count.value]


# -- From include/koraxdr.h by script/bindings --


# ---- Constants ----


# The interface that a program is compiled for (44400 is 4.44.0), for #if KORAXDR_VERSION >= 44400;
# pDllVersion tells that of the library that was loaded.
VERSION_MAJOR = 4
VERSION_MINOR = 44
VERSION_PATCH = 0
VERSION = 44400


class Error(enum.IntEnum):
    """Error numbers. What each means and what to do about it: docs/errors.md. 231 has two names, since
    pAdditionalCurrencyPayment gives it for a currency name that is too short."""

    OK = 0
    PORT = 2
    PORT_BUSY = 5
    SEND_TIMEOUT = 20
    RECEIVE_TIMEOUT = 21
    UNEXPECTED_ANSWER = 23
    REFUSED = 24
    DAMAGED = 26
    CHECK_SUM = 46
    NO_SESSION = 99
    NO_PRODUCER_DATA = 100
    SERVICE_JUMPER = 101
    NO_PRINTER_CONTROLLER = 102
    PRINTER_FAILURE = 103
    NO_USER_DATA = 104
    READ_ONLY = 105
    NO_CUSTOMER_DISPLAY = 106
    MEMORY_ERASED = 107
    DAILY_REPORT_PENDING = 108
    NO_PAPER = 109
    DOCUMENT_WAITS = 110
    CHARACTERS_WAIT = 111
    PRINTOUT_STOPPED = 112
    NO_RATES = 113
    NO_PORT_NUMBER = 114
    RECEIPT_OPEN = 200
    NO_RECEIPT = 201
    NAME = 202
    RATE = 203
    MESSAGE = 204
    QUANTITY = 205
    QUANTITY_DECIMALS = 206
    UNIT = 207
    PRICE = 208
    AMOUNT = 209
    RECEIPT_CANCELLED = 210
    NOTHING_SOLD = 211
    DRAWER = 212
    COMMAND_NOT_AVAILABLE = 213
    PACKAGE_KIND = 214
    OUT_OF_RANGE = 215
    NO_FREE_LINE = 216
    RATES_NOT_WRITTEN = 217
    RECEIPTS_PRINTED = 218
    DATES = 219
    NO_REPORTS = 220
    NUMBERS = 221
    MONTH_NOT_OVER = 222
    PARAMETER_N = 223
    NOT_IN_THIS_DEVICE = 224
    NULL = 225
    RATE_NOT_DEFINED = 226
    ITEM_VALUE = 227
    CLOCK_NO_DIFFERENCE = 228
    CLOCK_TOO_FAR = 229
    CLOCK_ONCE_A_DAY = 230
    CONTROL_CHARACTER = 231
    CURRENCY_NAME = 231
    DATA_CHECK_SUM = 232
    INCOMPLETE_DATA = 233
    SAME_DATA = 234
    DAILY_REPORT_FIRST = 235
    FILE = 236
    FILE_FORMAT = 237
    TOO_MANY_PACKAGES = 238
    INTERNAL = 999


class Rate(enum.IntEnum):
    """Tax rates as the functions of a receipt take them. pControlPrintout and pCheckArticle count as
    the device does: A to D likewise, then G, E and F as 5, 6 and 7."""

    A = 1
    B = 2
    C = 3
    D = 4
    E = 5
    F = 6
    G = 7


# Values of ReadVAT and SetVAT that are no percentage.
RATE_EXEMPT = 10000
RATE_NOT_USED = 25500


class Device(enum.IntEnum):
    """Device types, as DeviceType tells them."""

    GX450A_5 = 1
    GX450A_7 = 2
    QUORRA_1 = 3
    QUORRA_2 = 4
    GX450B_5 = 5
    GX450B_7 = 6
    QUORRA_F = 7
    TOLA = 8
    TOLA_F = 9
    TOLA_E = 10
    TOLA_EFV = 11
    TOLA_F_E = 12
    OTHER = 13


# ---- Session ----


def CommunicationInit(Port: int, BaudRate: int, Timeout: int) -> None:
    """Opens the session: stores the settings, opens the port (8 data bits, even parity, one stop bit,
    flow control on CTS), has the device cancel a receipt that it still has open and, if it had one,
    checks that it is ready to print, and identifies it. A session that stands is begun anew;
    payments, additional lines, deferred currency payments and totals that have not been sent are
    forgotten, an open receipt's flags are kept.
      Port      COM port 1 to 255; only its low byte is used
      BaudRate  9600 unless the device was set otherwise
      Timeout   seconds for sending and for receiving; 0 = do not wait for bytes to come (and on
                Windows no limit for sending)
    After a program was killed wait 3 seconds before the first call: a device that stands in the
    middle of a sequence would take the session's bytes for the rest of it (see SetVAT).
    Errors: 2 KORAX_E_PORT, 114 KORAX_E_NO_PORT_NUMBER (port 0 while no port is in force), those of
    PrintControl and DeviceType. After a failure the port is closed and the port number forgotten:
    functions that start a session then fail with 2, once, and with 114 until the next
    CommunicationInit; those that start none with 20, or 213 since the type is forgotten. Opening
    takes about a third of a second."""
    _checked("CommunicationInit", _int32("Port", Port), _int32("BaudRate", BaudRate),
        _int32("Timeout", Timeout))


def CommunicationInitInternal(Port: int, Identify: int) -> None:
    """The session start that every function uses, with the speed and the time-out of the last
    CommunicationInit.
      Port      COM port 1 to 255
      Identify  0 opens the port without asking the device who it is: the device type stays 13
    Errors as CommunicationInit; 114 while the port in force is 0. Applications call
    CommunicationInit."""
    _checked("CommunicationInitInternal", _uint8("Port", Port), _uint8("Identify", Identify))


def CommunicationEnd() -> None:
    """Ends the session: closes the port, forgets its number and the device type (13), ends the
    optimised transmission. Always 0."""
    _checked("CommunicationEnd")


def OpenPort(Port: int, BaudRate: int, WriteTimeout: int, ReadTimeout: int) -> None:
    """Opens the port alone, with separate time-outs; a port that is open is closed first. Establishes
    no session: the next function that talks to the device starts one with CommunicationInit's
    values.
      Port          COM port 1 to 255; only its low byte is used
      BaudRate      baud
      WriteTimeout  seconds, 0 or more
      ReadTimeout   seconds, 0 or more; 0 = do not wait for bytes to come
    Errors: 2."""
    _checked("OpenPort", _int32("Port", Port), _int32("BaudRate", BaudRate),
        _int32("WriteTimeout", WriteTimeout), _int32("ReadTimeout", ReadTimeout))


def ClosePort() -> None:
    """Closes the port and ends the optimised transmission; the session's state stays as it was, so the
    next call to the device fails with 20. Always 0."""
    _checked("ClosePort")


def OptimizeTransmission() -> None:
    """For the next receipt: leaves out the code-page query at its beginning and the confirmation of
    each item (types 1 to 7 and 13), and sends data in blocks. ReceiptEndEx, ReceiptEnd, ClosePort
    and CommunicationEnd end it; ReceiptCancel does not. Always 0."""
    _checked("OptimizeTransmission")


def LastError() -> int:
    """The error number of the last call, which is then cleared: a second call gives 0."""
    return _number("LastError")


def SetDebugMode() -> None:
    """In debug mode 32 functions first show their arguments: in a message box on Windows, in a frame on
    standard error elsewhere (which waits for Enter when standard input is a terminal). The guide
    names them. Always 0."""
    _checked("SetDebugMode")


def ClearDebugMode() -> None:
    """See SetDebugMode."""
    _checked("ClearDebugMode")


def pDllVersion() -> str:
    """The library's version, 28 characters: a buffer of at least 29 bytes. Errors: 225."""
    return _checked("pDllVersion", _Text())


def xDllVersion() -> str:
    """See pDllVersion."""
    return _twin_text("xDllVersion")


def pDllAuthor() -> str:
    """The library's author, at most 57 characters: a buffer of at least 58 bytes. Errors: 225."""
    return _checked("pDllAuthor", _Text())


def xDllAuthor() -> str:
    """See pDllAuthor."""
    return _twin_text("xDllAuthor")


def SetPortDevice(Port: int, DevicePath: str | os.PathLike[str]) -> None:
    """Names the device behind a COM port, for the next opening. Without it COM n is COMn on Windows
    and /dev/ttyS(n-1) elsewhere.
      Port        1 to 255
      DevicePath  at most 256 characters:
                  "/dev/ttyUSB0"        a serial device, not on Windows
                  "tcp://HOST:PORT"     a TCP connection: a simulated device, or a converter that
                                        passes bytes as they are. HOST is an IPv4 address, an IPv6
                                        address in brackets, or localhost; PORT 1 to 65535. It is
                                        connected to within the send time-out; BaudRate is not used
                  ""                    the default again
    Errors: 215 (port, length or address), 225."""
    _checked("SetPortDevice", _int32("Port", Port), _path("DevicePath", DevicePath))


# ---- Device ----


def DeviceType() -> tuple[int, int]:
    """Asks the device for its type and program version. Starts no session: the port must be open.
      Type     1 to 13 (KORAX_TYPE_...; docs/device-tables.md has their names)
      Version  program version; left as it was for types 1, 2 and 5, 0 where the device has none
    On an error the cells are unchanged. The port closed: 20."""
    return _checked("DeviceType", _Int32(), _Int32())


def xDeviceType() -> int:
    """See DeviceType."""
    return _twin("xDeviceType")


def xProgramVersion() -> int:
    """See DeviceType."""
    return _twin("xProgramVersion")


def pDeviceName() -> str:
    """The name of the device type found at the session start, at most 19 characters: a buffer of at
    least 20 bytes. On an error it is unchanged."""
    return _checked("pDeviceName", _Text())


def xDeviceName() -> str:
    """See pDeviceName."""
    return _twin_text("xDeviceName")


def IsCodePage1250() -> int:
    """The device's code page: 0 = 852, 1 = 1250, 2 = Mazovia. Only tells it: texts are converted for
    the page that ReceiptBegin has asked for by itself. Receipt open: 200."""
    return _checked("IsCodePage1250", _Int32())


def xIsCodePage1250() -> int:
    """See IsCodePage1250."""
    return _twin("xIsCodePage1250")


def PrintControl(BeforePrinting: int) -> None:
    """Waits until the printing unit is ready: 0, or why it is not.
      BeforePrinting  1 before a printout, 0 after one
    Errors: 102 no contact with the printer's controller, 103 printer failure, 109 no paper, 112
    printout stopped for want of paper. Asks the device until its state is one of these or the link
    fails; with a BeforePrinting other than 0 and 1 a stopped printout is waited out."""
    _checked("PrintControl", _int32("BeforePrinting", BeforePrinting))


# ---- Receipt ----


def ReceiptBegin() -> None:
    """Opens a receipt and clears the totals.
    Errors: 200 a receipt is open in the device; when the device refuses, the reason that
    ReceiptConditions finds, or 24. A receipt that only the driver believes to be open is forgotten
    first. On types 5, 6 and 9 a printout that waits for paper shows as 224; PrintControl(1) gives
    112."""
    _checked("ReceiptBegin")


def ReceiptConditions() -> None:
    """Why a receipt cannot be opened: 0, or the first reason found.
    Errors: 100 no producer data, 101 service jumper, 102 no contact with the printer's controller,
    103 printer failure, 104 no user data, 105 fiscal module read-only, 106 no customer display, 107
    memory erased, 108 daily report pending, 109 no paper, 112 printout stopped, 113 no tax rates,
    200 receipt open, 224 always on types 5, 6 and 9 when nothing else is wrong."""
    _checked("ReceiptConditions")


def ReceiptEndEx(DiscountSurcharge: int, TypeOfDiscountSurcharge: int) -> None:
    """Ends the receipt: discount or surcharge on the whole of it, deferred currency payments, total,
    forms of payment, additional lines, end.
      TypeOfDiscountSurcharge  0 percent discount, 1 amount discount, 2 amount surcharge, other: none
      DiscountSurcharge        percent 1 to 99 (any other value: no discount), or hundredths
    Errors: 201 no receipt is open. After an error before the end itself the receipt stays open and
    what was not sent stays stored. When the device refuses the end (24) the receipt counts as
    closed; when it refuses it and no line had been printed the result is 0, so a receipt that was
    begun, cancelled by a session start and ended gives 0 as well: compare ReceiptNumber. Forms of
    payment are sent on types 4, 8 and 10 to 13 only; on the others they stay stored. Nobody compares
    them with the total, neither the library nor the device: what they say is printed. The lines are
    cut at 253 characters."""
    _checked("ReceiptEndEx", _int32("DiscountSurcharge", DiscountSurcharge),
        _int32("TypeOfDiscountSurcharge", TypeOfDiscountSurcharge))


def ReceiptEnd(DiscountSurcharge: int) -> None:
    """ReceiptEndEx with a percent discount; 0 ends the receipt without one."""
    _checked("ReceiptEnd", _int32("DiscountSurcharge", DiscountSurcharge))


def ReceiptCancel() -> None:
    """Cancels the open receipt.
    Errors: 201 no receipt is open; 210 the device has cancelled it already (it then counts as
    closed). Where the device has no receipt open (its end was not heard): 24 KORAX_E_REFUSED when
    lines have been printed, 21 on types 10 and 11 when none have, and the driver still believes it
    open; on the other types 0 when none have. On types 10 and 11 an unexpected answer gives 0 with
    the receipt still open for the driver. ReceiptBegin settles all of these with the device."""
    _checked("ReceiptCancel")


def CancellationReason() -> tuple[int, str]:
    """Why the device cancelled the last receipt.
      Code    0 = it did not; 32 = by a command of the application; 49 to 89 = a rule of the device
              (docs/device-tables.md)
      Reason  the Polish text of a known code, else empty: a buffer of at least 160 bytes
    A null Reason gives 225 with the code stored."""
    return _checked("CancellationReason", _Int32(), _Text())


def ReceiptNumber() -> int:
    """Receipts since the last daily report, 0 to 65535. Receipt open: 200, in a new session too, until
    ReceiptBegin or ReceiptCancel has settled with the device what the driver believes.
    Number must not be null: it is not checked."""
    return _checked("ReceiptNumber", _Int32())


def xReceiptNumber() -> int:
    """See ReceiptNumber."""
    return _twin("xReceiptNumber")


def PrintResume() -> None:
    """Goes on with a printout that was stopped for want of paper. Receipt open: 200. Errors: 109 still
    no paper."""
    _checked("PrintResume")


# ---- Item ----


def pReceiptItem(Sale: int, Name: str, TaxRate: int, Communicate: int, Quantity: int, QAC: int,
        Unit: str, Price: int, Amount: int = 0) -> int:
    """Sells an item, or takes back (corrects) a sold one.
      Sale         1 = sale, any other value = correction
      Name         article name. 28 characters are printed on types 1 to 4, 7 and 9 and on type 8
                   with a program version below 2; 40 on types 8 and 12; up to 120 on types 5, 6,
                   10, 11 and 13. On types 7 and 9 pass no more than 28: a longer name reaches the
                   device in a form that it refuses
      TaxRate      1 to 7 = A to G (KORAX_RATE_A to KORAX_RATE_G)
      Communicate  message number 0 to 7 sent with the line; 0 = none
      Quantity     1 to 99 999 999 on types 4, 8 and 10 to 13, else 1 to 999 999
      QAC          decimals of the quantity, 0 to 4
      Unit         4 characters are used
      Price        1 to 999 999 999, hundredths
      Amount       the line's value in hundredths. 0 asks the library to work it out (price times
                   quantity, half up) and write it here; any other value is sent as it is
    The item is sent even when a check fails: the device decides. When it takes the line, types 8 to
    12 report the failed check all the same, the others forgive it (not with OptimizeTransmission).
    When it cancels the receipt, types 8 to 12 give 210, the others the failed check, or 210 where
    none failed. Where the answer to a receipt's end was lost, the driver still believes it open: an
    item can then give 0 and be sold nowhere. After 20 or 21 begin the session anew.
    A name of 41 and more characters is sent as lines of text on types 5, 6, 10, 11 and 13. They
    carry neither sign nor message: a correction is sold once more (and the receipt cancelled when
    its total comes), Communicate is lost. A refusal (NAK) of such lines reads as 21. Keep names that
    may have to be corrected to 40 characters.
    Errors: 201 no receipt is open, 203 TaxRate, 204 Communicate, 205 Quantity, 206 QAC, 208 Price,
    227 the value exceeds 999 999 999, 209 Amount is not price times quantity: of several the last in
    this order. A value that was to be worked out and is too large gives 227 with nothing sent and
    the receipt still open. 210 KORAX_E_RECEIPT_CANCELLED: the device has cancelled the receipt (it
    counts as closed; see CancellationReason)."""
    return _checked("pReceiptItem", _int32("Sale", Sale), _text("Name", Name),
        _int32("TaxRate", TaxRate), _int32("Communicate", Communicate), _int32("Quantity", Quantity),
        _int32("QAC", QAC), _text("Unit", Unit), _int32("Price", Price), _in_out("Amount", Amount))


def pReceiptItemEx(Sale: int, Name: str, TaxRate: int, Communicate: int, Quantity: int, QAC: int,
        Unit: str, Price: int) -> None:
    """The same with the value always worked out."""
    _checked("pReceiptItemEx", _int32("Sale", Sale), _text("Name", Name), _int32("TaxRate", TaxRate),
        _int32("Communicate", Communicate), _int32("Quantity", Quantity), _int32("QAC", QAC),
        _text("Unit", Unit), _int32("Price", Price))


def NormNazwa(Name: str) -> str:
    """Copies an article name, padded with blanks to at least 40 characters and cut at 255: a buffer of
    256 bytes holds every result. 202 when none of its first 28 characters is significant (the copy
    is made all the same)."""
    return _checked("NormNazwa", _Text(), _text("Name", Name))


def NormNazwa1(Name: str) -> str:
    """The same, padded and cut to 28 characters: a buffer of 29 bytes. 0, or 225."""
    return _checked("NormNazwa1", _Text(), _text("Name", Name))


def pCharsInArticleName(Name: str) -> int:
    r"""Returns how many of the first 28 characters are significant: letters, digits, the signs , . % / \
    and Polish letters in code page 852. A null name gives 225, also as the last error."""
    return _number("pCharsInArticleName", _text_852("Name", Name))


def InZnakiPolskie(Character: int) -> int:
    """Returns 1 when the byte is a Polish letter in code page 852, else 0. The answer is stored as the
    last error too."""
    return _number("InZnakiPolskie", _uint8("Character", Character))


# ---- Payments and additional lines ----


def pFillPayment(PaymentNo: int, PaymentName: str, Total: int, Change: int) -> None:
    """Stores a form of payment for the end of the receipt.
      PaymentNo    1 to 4; what the slot held is replaced
      PaymentName  13 characters are used; an empty name is stored as blanks
      Total        paid, hundredths
      Change       given back, hundredths
    Errors: 215 PaymentNo."""
    _checked("pFillPayment", _int32("PaymentNo", PaymentNo), _text("PaymentName", PaymentName),
        _int32("Total", Total), _int32("Change", Change))


def pSendPayment(PaymentNo: int, PaymentName: str, Total: int, Change: int) -> None:
    """Sends a form of payment at once; the slots stay as they are. Errors: 213 unless the type is 4 or
    8 to 13; 215 PaymentNo."""
    _checked("pSendPayment", _int32("PaymentNo", PaymentNo), _text("PaymentName", PaymentName),
        _int32("Total", Total), _int32("Change", Change))


def ErasePayments() -> None:
    """Forgets the stored forms of payment. Always 0."""
    _checked("ErasePayments")


def pFillLines(Number: int, Line: str) -> int:
    """Stores a line to be printed after the receipt; there are six.
      Number     the device's number of the line, below 23
      Line       255 characters are kept, 253 are sent, on types 10 to 12 in page 852
      FreeLines  how many lines are free after the call
    Errors: 215 Number (FreeLines unchanged), 216 all lines are used."""
    return _checked("pFillLines", _int32("Number", Number), _text("Line", Line), _Int32())


def xFillLines(Number: int, Line: str) -> int:
    """See pFillLines."""
    return _twin("xFillLines", _int32("Number", Number), _text("Line", Line))


def EraseLines() -> None:
    """Forgets the stored lines. Always 0."""
    _checked("EraseLines")


def pCurrencyPayment1(CurrencyName: str, Rate: str, Qantity: int, Subtotal: int, Send: int) -> None:
    """A payment in a foreign currency, first part: name, rate and amount.
      CurrencyName  3 characters are used
      Rate          10 characters are used
      Qantity       low byte; its meaning is the device's
      Subtotal      hundredths
      Send          not 0 sends it at once, 0 keeps it for the end of the receipt
    Errors: 213 unless the type is 8, 10, 11 or 12."""
    _checked("pCurrencyPayment1", _text("CurrencyName", CurrencyName), _text("Rate", Rate),
        _int32("Qantity", Qantity), _int32("Subtotal", Subtotal), _int32("Send", Send))


def pCurrencyPayment2(TotalInCurrency: int, TotalInBaseCurrency: int, Change: int,
        TypeOfChange: int, Send: int) -> None:
    """Second part: what was paid and given back, hundredths.
      TypeOfChange  0 = change in the base currency, 1 = in the foreign one, other = sent as both
      Send          as in pCurrencyPayment1
    Errors: 213 unless the type is 8 or 10 to 13."""
    _checked("pCurrencyPayment2", _int32("TotalInCurrency", TotalInCurrency),
        _int32("TotalInBaseCurrency", TotalInBaseCurrency), _int32("Change", Change),
        _int32("TypeOfChange", TypeOfChange), _int32("Send", Send))


def pAdditionalCurrencyPayment(Number: int, IsChange: int, Name: str, PaidInForeignCurrency: int,
        ExchangeRate: int, QAC: int, PaidInBaseCurrency: int) -> None:
    """An additional payment (or change) in a foreign currency, sent at once.
      Number                 low byte
      IsChange               low byte
      Name                   at least 3 characters; the first 3 are sent as they are
      PaidInForeignCurrency  hundredths
      ExchangeRate           scaled by 10 to the power QAC
      QAC                    low byte: decimals of the rate
      PaidInBaseCurrency     hundredths
    Errors: 213 on types 1, 2, 3, 5 and 6, on type 4 below program version 6 and on type 8 below 2;
    231 Name is shorter than 3. 231 and what the device answers are not kept as the last error:
    LastError gives 0."""
    _checked("pAdditionalCurrencyPayment", _int32("Number", Number), _int32("IsChange", IsChange),
        _device_text("Name", Name), _int32("PaidInForeignCurrency", PaidInForeignCurrency),
        _int32("ExchangeRate", ExchangeRate), _int32("QAC", QAC),
        _int32("PaidInBaseCurrency", PaidInBaseCurrency))


# ---- Discounts, packages, drawer ----


def DiscountOrSurcharge(Discount: int, Amount: int) -> None:
    """Discount or surcharge on the last item, by amount: one for an item. A second one on the same
    item, one on a correction or before the first item cancels the receipt (210, reason 87).
      Discount  not 0 = discount, 0 = surcharge
      Amount    hundredths
    Errors: 201 no receipt is open, 210 the device has cancelled the receipt, 213 unless the type is
    8, 10, 11 or 13."""
    _checked("DiscountOrSurcharge", _int32("Discount", Discount), _int32("Amount", Amount))


def PercentDiscountOrSurcharge(Discount: int, Percent: int) -> None:
    """The same by percent; the receipt's totals are then read from the device.
      Percent  16 bits are sent; percent 1 to 99
    Errors as DiscountOrSurcharge."""
    _checked("PercentDiscountOrSurcharge", _int32("Discount", Discount), _int32("Percent", Percent))


def PackageItem(Parameter: int, Number: int, Quantity: int, Price: int) -> None:
    """Sells or takes back returnable packages; they are not part of the fiscal totals.
      Parameter  0 sold, 1 taken back, 2 and 3 the same corrected
      Number     package number, 16 bits are sent
      Quantity   16 bits are sent
      Price      hundredths
    Errors: 201 no receipt is open, 210 the device has cancelled the receipt, 213 unless the type is
    4, 8 or 10 to 13, 214 Parameter, 238 the device did not take the line."""
    _checked("PackageItem", _int32("Parameter", Parameter), _int32("Number", Number),
        _int32("Quantity", Quantity), _int32("Price", Price))


def PrintSubtotal() -> None:
    """Prints the subtotal of the open receipt. Errors: 201 no receipt is open, 213 unless the type is
    4, 8 or 10 to 13."""
    _checked("PrintSubtotal")


def OpenDrawer(DrawerNumber: int) -> None:
    """Opens cash drawer 1, 2 or 3, inside a receipt or outside. Errors: 212 DrawerNumber."""
    _checked("OpenDrawer", _int32("DrawerNumber", DrawerNumber))


# ---- Invoice ----


def pInvoiceBegin(Number: str, Name1: str, Name2: str, Name3: str, Name4: str, Name5: str,
        Name6: str, NIP: str) -> None:
    """Opens an invoice: a receipt with a number, the buyer's lines and tax number. Items, payments, end
    and cancellation go on as for a receipt. OptimizeTransmission leaves out the code-page query.
      Number          at most 20 characters
      Name1 to Name6  at most 40 characters each; empty ones are blank lines, and all six empty print
                      none. Sent in page 852 whatever the device's
      NIP             at most 13 characters; empty = none
    Longer texts are not cut to their fields: a name then runs on into the next line.
    Errors: 200 a receipt is open in the device; 213 unless the type is 11; when the device refuses,
    the reason that ReceiptConditions finds. When it finds none the result is 0 although no invoice
    is open: the next item then fails with 201. When the buyer's data are refused (a control
    character) the invoice is cancelled and the result is ReceiptCancel's, 0 included: the same."""
    _checked("pInvoiceBegin", _text("Number", Number), _text("Name1", Name1), _text("Name2", Name2),
        _text("Name3", Name3), _text("Name4", Name4), _text("Name5", Name5), _text("Name6", Name6),
        _text("NIP", NIP))


# ---- Tax rates ----


def ReadVAT() -> tuple[int, int, int, int, int, int, int, int]:
    """Reads the rates A to G and how many of them the device has (7, 6 or 4). With 6 or 4, G is the
    exempt rate (10000); rates that a device does not have read 25500. Receipt open: 200.
    When the device fails otherwise than by refusing the command the result can be 0 with every cell
    unchanged: preset Count and look at it. The cells must not be null: they are not checked."""
    return _checked("ReadVAT", _Int32(), _Int32(), _Int32(), _Int32(), _Int32(), _Int32(), _Int32(),
        _Int32())


def xReadVAT() -> tuple[int, ...]:
    """The same into an array of eight: the count, then A to G. Returns the array; it is written
    whatever the result (0 where nothing was read)."""
    return _twin("xReadVAT", _Rates())


def SetVAT(QuantityOfRates: int, A: int, B: int, C: int, D: int, E: int, F: int, G: int) -> None:
    """Writes the rates and reads them back. Devices with six rates take A to F, those with four A to D
    in whole percent.
      QuantityOfRates  not used: the device's own count decides
      A to G           hundredths of a percent, 10000 (KORAX_RATE_EXEMPT) or 25500
                       (KORAX_RATE_NOT_USED)
    A program that is killed in the middle leaves the device waiting for the rest, and the next
    session start can complete the rates with its own bytes (0x1B, 0x23: 69.47 %). Wait 3 seconds
    before it and read the rates back.
    Receipt open: 200. Errors: 217 KORAX_E_RATES_NOT_WRITTEN the rates read back differ (also when a
    fraction of a percent was given to a four-rate device), 218 KORAX_E_RECEIPTS_PRINTED receipts
    have been printed since the last daily report."""
    _checked("SetVAT", _int32("QuantityOfRates", QuantityOfRates), _int32("A", A), _int32("B", B),
        _int32("C", C), _int32("D", D), _int32("E", E), _int32("F", F), _int32("G", G))


# ---- Reports ----


def DailyReport(Unconditionally: int) -> None:
    """Prints the daily report and closes the day.
      Unconditionally  not 0 prints it without a sale since the last one, on types 3, 4 and 8 to 13
    Errors: 211 nothing sold since the last daily report."""
    _checked("DailyReport", _int32("Unconditionally", Unconditionally))


def LockedArticlesReport() -> None:
    """Prints the articles whose rate is locked."""
    _checked("LockedArticlesReport")


def PrinterStatusReport() -> None:
    """Prints the printer's status."""
    _checked("PrinterStatusReport")


def PeriodReport(Fiscal: int, yy1: int, mm1: int, dd1: int, yy2: int, mm2: int, dd2: int) -> None:
    """Prints the report between two dates.
      Fiscal  not 0 = fiscal, 0 = summary
      yy      year 1 to 99;  mm  month 1 to 12;  dd  day 1 to 31
    Errors: 215 a date is out of range. A date that does not exist, or no report in that time, is for
    the device to tell on paper."""
    _checked("PeriodReport", _int32("Fiscal", Fiscal), _int32("yy1", yy1), _int32("mm1", mm1),
        _int32("dd1", dd1), _int32("yy2", yy2), _int32("mm2", mm2), _int32("dd2", dd2))


def MonthlyReport(Fiscal: int, Year: int, Month: int) -> None:
    """Prints the report of a month.
      Fiscal  1 = fiscal, 0 = summary
      Year    the two last digits;  Month  1 to 12: the device judges both
    Errors: 219 wrong date, 220 no reports in that time, 221 wrong numbers, 222 the month is not
    over, 223 Fiscal, or the device refuses the kind, 224 unless the type is 4 or 7 to 13."""
    _checked("MonthlyReport", _int32("Fiscal", Fiscal), _int32("Year", Year), _int32("Month", Month))


def NumberReport(Fiscal: int, FirstNumber: int, LastNumber: int) -> None:
    """Prints the daily reports by their numbers, 16 bits of each. Errors as MonthlyReport."""
    _checked("NumberReport", _int32("Fiscal", Fiscal), _int32("FirstNumber", FirstNumber),
        _int32("LastNumber", LastNumber))


def DailyReportNumber() -> int:
    """Number of the last daily report, 0 to 65535. Receipt open: 200.
    Number must not be null: it is not checked."""
    return _checked("DailyReportNumber", _Int32())


def xDailyReportNumber() -> int:
    """See DailyReportNumber."""
    return _twin("xDailyReportNumber")


# ---- Clock ----


def pReadClock() -> str:
    """The device's clock as text: "dd.dd.dd;hh:mm", and ":ss" on types 4 and 7 to 13; the date's pairs
    in the device's order. At most 17 characters: a buffer of at least 18 bytes. Receipt open: 200.
    On an error the text is empty (225: untouched)."""
    return _checked("pReadClock", _Text())


def xReadClock() -> str:
    """See pReadClock."""
    return _twin_text("xReadClock")


def ChangeTime(Hour: int, Minute: int) -> None:
    """Moves the clock to Hour (below 24) and Minute (below 60) of the same day, by an hour at most.
    Receipt open: 200. Errors: 218 receipts have been printed since the last daily report, 223 Hour
    or Minute, 228 no difference, 229 more than 60 minutes, 230 moved already today. After a 20 or 21
    the clock may have been moved."""
    _checked("ChangeTime", _int32("Hour", Hour), _int32("Minute", Minute))


# ---- Totals and counters ----


def pReadTotal() -> str:
    """The day's sales in hundredths, as decimal text of at most 11 characters: a buffer of at least 12
    bytes. Totals wrap at 32 bits. On an error the buffer is unchanged.
    Errors: 113 no rate is defined, 224 unless the type is 4, 7, 8 or 10 to 13."""
    return _checked("pReadTotal", _Text())


def xReadTotal() -> str:
    """See pReadTotal."""
    return _twin_text("xReadTotal")


def pReadSelTotal(Selector: str) -> str:
    """The day's sales of one rate.
      Selector  "A" to "G"; followed by "+" the sum of all rates instead. Must not be null: it is not
                checked. Any other text leaves Buffer unchanged
      Buffer    at least 12 bytes
    Errors: 224 as pReadTotal; 226 the rate numbered by the low three bits of the second character is
    not used ("+" numbers rate C)."""
    return _checked("pReadSelTotal", _text("Selector", Selector), _Text())


def xReadSelTotal(Selector: str) -> str:
    """See pReadSelTotal."""
    return _twin_text("xReadSelTotal", _text("Selector", Selector))


def pReadUniqueNumber() -> str:
    """The device's unique number, 11 characters: a buffer of at least 12 bytes."""
    return _checked("pReadUniqueNumber", _Text())


def xReadUniqueNumber() -> str:
    """See pReadUniqueNumber."""
    return _twin_text("xReadUniqueNumber")


def pReadDailyTotalizers(Kind: int) -> tuple[int, int, int, int, int, int, int]:
    """The daily totalizers of types 10 and 11, in hundredths and in the device's order; what does not
    fit 32 bits is held at their limit.
      Kind  1 or 2
    Errors: 23 malformed answer, 215 Kind (returned, not kept as the last error), 224 another type.
    On an error the cells are unchanged."""
    return _checked("pReadDailyTotalizers", _int32("Kind", Kind), _Int64(), _Int64(), _Int64(),
        _Int64(), _Int64(), _Int64(), _Int64())


def pReadDailyCounters() -> tuple[int, int]:
    """Two daily counters of types 10 and 11, 0 to 65535. Errors as pReadDailyTotalizers."""
    return _checked("pReadDailyCounters", _Int32(), _Int32())


# ---- Status and configuration ----


def ReadStatus() -> tuple[int, int, int, int]:
    """The device's four status bytes, 0 to 255 each. On an error those read before it are new and the
    others unchanged. The cells must not be null: they are not checked."""
    return _checked("ReadStatus", _Int32(), _Int32(), _Int32(), _Int32())


def xReadStatus(Which: int) -> int:
    """One of them, Which 0 to 3; 0 for any other. All four are read."""
    return _twin("xReadStatus", _int32("Which", Which))


def ReadConfigBytes(Group: int) -> tuple[int, int, int]:
    """Reads the three bytes of a configuration group (its number's low byte). On an error the cells are
    unchanged. The cells must not be null: they are not checked."""
    return _checked("ReadConfigBytes", _int32("Group", Group), _Int32(), _Int32(), _Int32())


def WriteConfigBytes(Group: int, Byte1: int, Byte2: int, Byte3: int) -> None:
    """Writes the three bytes of a configuration group."""
    _checked("WriteConfigBytes", _uint8("Group", Group), _uint8("Byte1", Byte1), _uint8("Byte2", Byte2),
        _uint8("Byte3", Byte3))


def BitZBajtu(Value: int, Bit: int) -> int:
    """Returns 1 when the bit at position Bit (modulo 32) or any above it is set in Value, else 0. The
    answer is stored as the last error too. Sends nothing."""
    return _number("BitZBajtu", _uint8("Value", Value), _uint8("Bit", Bit))


# ---- Footer and logo ----


def pWriteFooterLines(Line1: str, Line2: str, Line3: str) -> None:
    """Writes the three lines printed under receipts: 40 characters of each, padded with blanks. Starts
    no session and does not look for an open receipt, which the device cancels then (24, reason 49);
    the type of the last session start decides. Before the first receipt or control printout the text
    goes out in page 852: begin one first. Lines written before an error stay written. Errors: 213
    unless the type is 8 or 10 to 13, 223 line number, 231 KORAX_E_CONTROL_CHARACTER, 232 check sum,
    233 not all data came, 234 the same data again, 235 a daily report has to be made first."""
    _checked("pWriteFooterLines", _text("Line1", Line1), _text("Line2", Line2), _text("Line3", Line3))


def pReadFooterLines() -> tuple[str, str, str]:
    """Reads them, 40 characters each in the device's code page: buffers of at least 41 bytes. Errors as
    pWriteFooterLines."""
    return _checked("pReadFooterLines", _DeviceText(), _DeviceText(), _DeviceText())


def pWriteLogo(FileName: str | os.PathLike[str]) -> None:
    """Sends a logo: an uncompressed bitmap of 192 by 64 dots with 1 bit per dot, whose dots begin
    within the first 255 bytes. Colour 0 has to be the printed one: where palette entry 0 is white
    almost nothing is printed. Receipt open: 200. Lines sent before an error stay written. Errors:
    236 the file cannot be opened, 237 it is not such a bitmap or ends early (nothing is sent), 224
    unless the type is 8 to 13, and as pWriteFooterLines."""
    _checked("pWriteLogo", _path("FileName", FileName))


# ---- Non-fiscal printouts ----


def NonFiscalPrintoutBegin(Number: int) -> None:
    """Begins the printout form of this number, at most 99. Errors: 215 Number; those of PrintControl."""
    _checked("NonFiscalPrintoutBegin", _int32("Number", Number))


def NonFiscalPrintoutEnd() -> None:
    """Ends it and waits until it is printed."""
    _checked("NonFiscalPrintoutEnd")


def pNonFiscalPrintoutLine(Number: int, Text: str, If0A: int) -> None:
    """Prints a numbered line of the form. Nothing is answered: a refusal shows at the next call.
      Number  at most 99
      Text    sent as it is, in the device's code page; at most 252 characters, longer ones are sent
              wrong or not at all
      If0A    not 0 ends the line with a line feed
    Errors: 215 Number. When the send fails, the seconds of the send time-out (1 to 62) stand as
    the error number; a time-out of 0, which OpenPort can set, looks like success."""
    _checked("pNonFiscalPrintoutLine", _int32("Number", Number), _device_text("Text", Text),
        _int32("If0A", If0A))


def pAddNonFiscalPrintoutLine(Text: str) -> None:
    """Prints a free line.
      Text  sent as it is, in the device's code page, at most 252 characters; one that begins with
            "B" is printed as a bar code of its other characters: at most 238 of them are sent, and
            the device judges how many it can print
    Errors: 21 no answer to a bar code, 24 the device refuses it; a send that fails as in
    pNonFiscalPrintoutLine."""
    _checked("pAddNonFiscalPrintoutLine", _device_text("Text", Text))


def pControlPrintout(Operation: int, Name: str | None, TaxRate: int) -> None:
    """The control printout of article names with their rates.
      Operation  1 begins it, 2 ends it, any other value prints a line
      Name       28 characters are used (may be null for 1 and 2)
      TaxRate    low byte, sent as it is: devices count A to D as 1 to 4, then G, E, F as 5, 6, 7
    Errors: 20 the line could not be sent; those of PrintControl."""
    _checked("pControlPrintout", _int32("Operation", Operation), _text_or_null("Name", Name),
        _int32("TaxRate", TaxRate))


# ---- Cashier and sundry ----


def WriteLineFeed(LineFeeds: int) -> None:
    """Feeds paper by a number of lines (its low byte). Receipt open: 200."""
    _checked("WriteLineFeed", _int32("LineFeeds", LineFeeds))


def pCheckArticle(Name: str) -> tuple[int, int]:
    """The rate under which the device knows an article.
      Name  28 characters are used
      Rate  0 = no such article, else the rate's number as the device counts: A to D are 1 to 4, then
            G, E, F are 5, 6, 7
      Kind  0 = no such article, 1 or 2 = its kind
    Receipt open: 200. Errors: 202 too few significant characters, 224 unless the type is 8 to 12;
    neither is kept as the last error. On an error the cells are unchanged."""
    return _checked("pCheckArticle", _text("Name", Name), _Int32(), _Int32())


def WriteUserQuorra(Line: int, Mode: int, Text: str) -> None:
    """Writes a user's line.
      Line  low byte
      Mode  low byte; with bit 0 set 20 characters of Text are used, else 40
    Receipt open: 200. Errors: 102 no contact with the printer's controller, 107 memory erased."""
    _checked("WriteUserQuorra", _int32("Line", Line), _int32("Mode", Mode), _text("Text", Text))


def pWriteECRCashierCode(ECRCode: int, CashierCode: str) -> None:
    """Sets the cash register's and the cashier's codes.
      ECRCode      0 to 999 on types 10 and 11, else 0 to 99
      CashierCode  21 characters are used on types 10 and 11, else 2
    Types 10 and 11 get the code in their page, which a receipt or a control printout has to have
    asked for; the others get the two characters as they are.
    Receipt open: 200. Errors: 21 no answer, 24 refused; on types 10 and 11 a send that fails as in
    pNonFiscalPrintoutLine. In debug mode the arguments go to standard output."""
    _checked("pWriteECRCashierCode", _int32("ECRCode", ECRCode), _text("CashierCode", CashierCode))


# ---- Customer display ----


def pDisplayGX450(Number: int, Text: str) -> None:
    """Shows a text on the customer display of types 1, 2, 3, 5 and 6. What comes out depends on the
    kind of display that the device reports:
      numbered    9 characters of the text on display Number
      one line    the first character at the places 1, 3, 5 and 7, as far as the text reaches, and in
                  between what the last command had sent: no use but for an empty text, which clears
      two lines   40 characters in lines of 20, but only when an earlier answer happens to have left
                  a certain bit behind; otherwise nothing, and the result is 0
      none        nothing, with 0
      Number  number of the display where displays are numbered; 4 clears every kind
      Text    converted to the device's code page
    Receipt open: 200. Errors: 213 KORAX_E_COMMAND_NOT_AVAILABLE another type."""
    _checked("pDisplayGX450", _int32("Number", Number), _text("Text", Text))


# ---- Texts ----


def NaLatin2(Character: int) -> int:
    """Return the byte that stands for a code page 1250 character in the device's code page, as it is or
    in upper case. The result is stored as the last error too. In code page 1250 the upper-case form
    raises only the letters a to z."""
    return _number("NaLatin2", _uint8("Character", Character))


def NaLatin2AndUpper(Character: int) -> int:
    """See NaLatin2."""
    return _number("NaLatin2AndUpper", _uint8("Character", Character))


def pErrMessage(ErrNo: int) -> str:
    """The Polish text of an error number, at most 63 characters in code page 1250: a buffer of at least
    64 bytes. 0 gives an empty text, an unlisted number a general one. Errors: 225."""
    return _checked("pErrMessage", _int32("ErrNo", ErrNo), _Text())


def xErrMessage(ErrNo: int) -> str:
    """See pErrMessage."""
    return _twin_text("xErrMessage", _int32("ErrNo", ErrNo))


# -- End of what script/bindings writes --
