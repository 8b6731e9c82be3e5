/* koraxdr: drives fiscal cash registers and fiscal printers over a serial line.
 *
 * HOW A CALL WORKS
 *
 * Every function is called by one thread at a time; the library starts no threads and keeps one
 * session with one device. Unless its entry says otherwise a function returns an error number, 0
 * for success, and keeps it as the last error, which LastError() reads and clears. pErrMessage()
 * gives the Polish text of a number.
 *
 *   p... functions fill the caller's buffer or cell and return the error number.
 *   x... twins return the value itself and leave the error to LastError(). Texts come back in one
 *        static buffer that the next x call overwrites; after a failure a returned number is 0 or
 *        stale, so ask LastError() first.
 *
 * A function that talks to the device starts a session when none is established, with the port of
 * the last CommunicationInit(). CommunicationEnd() forgets that port: call CommunicationInit()
 * before anything else.
 *
 * UNITS
 *
 *   amounts, prices   hundredths of the currency unit, signed 32 bits
 *   quantities        scaled by 10 to the power of their decimals: 1500 with 3 decimals is 1.500
 *   tax rates         hundredths of a percent: 2300 is 23.00 %; 10000 = exempt, 25500 = not used
 *   time-outs         seconds for each byte or block that is moved
 *   texts             code page 1250, ended by a zero byte; see below
 *
 * TEXTS
 *
 * The library converts the 18 Polish letters to the device's code page (852, 1250 or Mazovia) and
 * passes every other byte as it is. ReceiptBegin and pInvoiceBegin (not after OptimizeTransmission)
 * and the beginning of a control printout ask for the page; until the first of them it is taken for
 * 852, so that footer lines, codes and printouts that are written earlier reach a device of another
 * page wrong. Texts that are not converted, or to 852 always, say so.
 *
 * No text may hold a control character (below 0x20): most are sent as they are, and the device
 * takes a line feed for the end of a line and what follows for a command. A line feed in an
 * additional line cancels the receipt; "\n\x1b#" there cancels it with ReceiptEnd giving 0. One of
 * them in a name that comes from outside the shop is enough: take them out of every text.
 *
 * ERRORS THAT ANY CALL TO THE DEVICE CAN RETURN
 *
 *   2      KORAX_E_PORT (session start): no such port, in use, or it refuses its settings
 *   114    KORAX_E_NO_PORT_NUMBER (session start): call CommunicationInit()
 *   20     KORAX_E_SEND_TIMEOUT: a byte could not be sent within the time-out, or no port is open
 *   21     KORAX_E_RECEIVE_TIMEOUT: an expected byte did not come in time or came damaged, or the
 *          port is gone
 *   23     KORAX_E_UNEXPECTED_ANSWER: the device answered something unexpected
 *   24     KORAX_E_REFUSED: the device refused the command (NAK); often it does not know it
 *   26, 46 the device found the transmission damaged (KORAX_E_DAMAGED, KORAX_E_CHECK_SUM)
 *   101 to 105, 107 to 118, 200 to 209, 211, 212, 215, 217, 220 to 232
 *          the device's own status, passed on; texts by pErrMessage()
 *   102, 103, 109, 112
 *          the printing unit: no contact, failure, no paper, printout stopped for want of paper
 *
 * The entries below list these only where they mean more. docs/errors.md has every number with its
 * constant and what to do. After an error of a call the session stands; only a failed session start
 * ends it. A call after a port has vanished fails with 20 or 21; CommunicationInit() on the
 * returned port goes on.
 *
 * A null text, buffer or cell gives 225 before anything is sent, unless the entry says that it must
 * not be null. "Receipt open: 200" means that the function refuses to run inside a receipt.
 *
 * On Windows the functions are __stdcall and their names undecorated.
 */
#ifndef KORAXDR_H
#define KORAXDR_H

#include <stdint.h>

#if defined(_WIN32)
#define KORAX_CALL __stdcall
#if defined(KORAXDR_BUILDING)
#define KORAX_API
#else
#define KORAX_API __declspec(dllimport)
#endif
#else
#define KORAX_CALL
#define KORAX_API __attribute__((visibility("default")))
#endif

/* ---- Constants ---- */

/* The interface that a program is compiled for (44400 is 4.44.0), for #if KORAXDR_VERSION >= 44400;
 * pDllVersion tells that of the library that was loaded. */
#define KORAXDR_VERSION_MAJOR 4
#define KORAXDR_VERSION_MINOR 44
#define KORAXDR_VERSION_PATCH 0
#define KORAXDR_VERSION \
    (KORAXDR_VERSION_MAJOR * 10000 + KORAXDR_VERSION_MINOR * 100 + KORAXDR_VERSION_PATCH)

/* Error numbers. What each means and what to do about it: docs/errors.md. 231 has two names, since
 * pAdditionalCurrencyPayment gives it for a currency name that is too short. */
#define KORAX_E_OK 0
#define KORAX_E_PORT 2
#define KORAX_E_PORT_BUSY 5
#define KORAX_E_SEND_TIMEOUT 20
#define KORAX_E_RECEIVE_TIMEOUT 21
#define KORAX_E_UNEXPECTED_ANSWER 23
#define KORAX_E_REFUSED 24
#define KORAX_E_DAMAGED 26
#define KORAX_E_CHECK_SUM 46
#define KORAX_E_NO_SESSION 99
#define KORAX_E_NO_PRODUCER_DATA 100
#define KORAX_E_SERVICE_JUMPER 101
#define KORAX_E_NO_PRINTER_CONTROLLER 102
#define KORAX_E_PRINTER_FAILURE 103
#define KORAX_E_NO_USER_DATA 104
#define KORAX_E_READ_ONLY 105
#define KORAX_E_NO_CUSTOMER_DISPLAY 106
#define KORAX_E_MEMORY_ERASED 107
#define KORAX_E_DAILY_REPORT_PENDING 108
#define KORAX_E_NO_PAPER 109
#define KORAX_E_DOCUMENT_WAITS 110
#define KORAX_E_CHARACTERS_WAIT 111
#define KORAX_E_PRINTOUT_STOPPED 112
#define KORAX_E_NO_RATES 113
#define KORAX_E_NO_PORT_NUMBER 114
#define KORAX_E_RECEIPT_OPEN 200
#define KORAX_E_NO_RECEIPT 201
#define KORAX_E_NAME 202
#define KORAX_E_RATE 203
#define KORAX_E_MESSAGE 204
#define KORAX_E_QUANTITY 205
#define KORAX_E_QUANTITY_DECIMALS 206
#define KORAX_E_UNIT 207
#define KORAX_E_PRICE 208
#define KORAX_E_AMOUNT 209
#define KORAX_E_RECEIPT_CANCELLED 210
#define KORAX_E_NOTHING_SOLD 211
#define KORAX_E_DRAWER 212
#define KORAX_E_COMMAND_NOT_AVAILABLE 213
#define KORAX_E_PACKAGE_KIND 214
#define KORAX_E_OUT_OF_RANGE 215
#define KORAX_E_NO_FREE_LINE 216
#define KORAX_E_RATES_NOT_WRITTEN 217
#define KORAX_E_RECEIPTS_PRINTED 218
#define KORAX_E_DATES 219
#define KORAX_E_NO_REPORTS 220
#define KORAX_E_NUMBERS 221
#define KORAX_E_MONTH_NOT_OVER 222
#define KORAX_E_PARAMETER_N 223
#define KORAX_E_NOT_IN_THIS_DEVICE 224
#define KORAX_E_NULL 225
#define KORAX_E_RATE_NOT_DEFINED 226
#define KORAX_E_ITEM_VALUE 227
#define KORAX_E_CLOCK_NO_DIFFERENCE 228
#define KORAX_E_CLOCK_TOO_FAR 229
#define KORAX_E_CLOCK_ONCE_A_DAY 230
#define KORAX_E_CONTROL_CHARACTER 231
#define KORAX_E_CURRENCY_NAME 231
#define KORAX_E_DATA_CHECK_SUM 232
#define KORAX_E_INCOMPLETE_DATA 233
#define KORAX_E_SAME_DATA 234
#define KORAX_E_DAILY_REPORT_FIRST 235
#define KORAX_E_FILE 236
#define KORAX_E_FILE_FORMAT 237
#define KORAX_E_TOO_MANY_PACKAGES 238
#define KORAX_E_INTERNAL 999

/* Tax rates as the functions of a receipt take them. pControlPrintout and pCheckArticle count as
 * the device does: A to D likewise, then G, E and F as 5, 6 and 7. */
#define KORAX_RATE_A 1
#define KORAX_RATE_B 2
#define KORAX_RATE_C 3
#define KORAX_RATE_D 4
#define KORAX_RATE_E 5
#define KORAX_RATE_F 6
#define KORAX_RATE_G 7

/* Values of ReadVAT and SetVAT that are no percentage. */
#define KORAX_RATE_EXEMPT 10000
#define KORAX_RATE_NOT_USED 25500

/* Device types, as DeviceType tells them. */
#define KORAX_TYPE_GX450A_5 1
#define KORAX_TYPE_GX450A_7 2
#define KORAX_TYPE_QUORRA_1 3
#define KORAX_TYPE_QUORRA_2 4
#define KORAX_TYPE_GX450B_5 5
#define KORAX_TYPE_GX450B_7 6
#define KORAX_TYPE_QUORRA_F 7
#define KORAX_TYPE_TOLA 8
#define KORAX_TYPE_TOLA_F 9
#define KORAX_TYPE_TOLA_E 10
#define KORAX_TYPE_TOLA_EFV 11
#define KORAX_TYPE_TOLA_F_E 12
#define KORAX_TYPE_OTHER 13

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Session ---- */

/* Opens the session: stores the settings, opens the port (8 data bits, even parity, one stop bit,
 * flow control on CTS), has the device cancel a receipt that it still has open and, if it had one,
 * checks that it is ready to print, and identifies it. A session that stands is begun anew;
 * payments, additional lines, deferred currency payments and totals that have not been sent are
 * forgotten, an open receipt's flags are kept.
 *   Port      COM port 1 to 255; only its low byte is used
 *   BaudRate  9600 unless the device was set otherwise
 *   Timeout   seconds for sending and for receiving; 0 = do not wait for bytes to come (and on
 *             Windows no limit for sending)
 * After a program was killed wait 3 seconds before the first call: a device that stands in the
 * middle of a sequence would take the session's bytes for the rest of it (see SetVAT).
 * Errors: 2 KORAX_E_PORT, 114 KORAX_E_NO_PORT_NUMBER (port 0 while no port is in force), those of
 * PrintControl and DeviceType. After a failure the port is closed and the port number forgotten:
 * functions that start a session then fail with 2, once, and with 114 until the next
 * CommunicationInit; those that start none with 20, or 213 since the type is forgotten. Opening
 * takes about a third of a second. */
KORAX_API int32_t KORAX_CALL CommunicationInit(int32_t Port, int32_t BaudRate, int32_t Timeout);

/* The session start that every function uses, with the speed and the time-out of the last
 * CommunicationInit.
 *   Port      COM port 1 to 255
 *   Identify  0 opens the port without asking the device who it is: the device type stays 13
 * Errors as CommunicationInit; 114 while the port in force is 0. Applications call
 * CommunicationInit. */
KORAX_API int32_t KORAX_CALL CommunicationInitInternal(uint8_t Port, uint8_t Identify);

/* Ends the session: closes the port, forgets its number and the device type (13), ends the
 * optimised transmission. Always 0. */
KORAX_API int32_t KORAX_CALL CommunicationEnd(void);

/* Opens the port alone, with separate time-outs; a port that is open is closed first. Establishes
 * no session: the next function that talks to the device starts one with CommunicationInit's
 * values.
 *   Port          COM port 1 to 255; only its low byte is used
 *   BaudRate      baud
 *   WriteTimeout  seconds, 0 or more
 *   ReadTimeout   seconds, 0 or more; 0 = do not wait for bytes to come
 * Errors: 2. */
KORAX_API int32_t KORAX_CALL OpenPort(int32_t Port, int32_t BaudRate, int32_t WriteTimeout,
                                      int32_t ReadTimeout);

/* Closes the port and ends the optimised transmission; the session's state stays as it was, so the
 * next call to the device fails with 20. Always 0. */
KORAX_API int32_t KORAX_CALL ClosePort(void);

/* For the next receipt: leaves out the code-page query at its beginning and the confirmation of
 * each item (types 1 to 7 and 13), and sends data in blocks. ReceiptEndEx, ReceiptEnd, ClosePort
 * and CommunicationEnd end it; ReceiptCancel does not. Always 0. */
KORAX_API int32_t KORAX_CALL OptimizeTransmission(void);

/* The error number of the last call, which is then cleared: a second call gives 0. */
KORAX_API int32_t KORAX_CALL LastError(void);

/* In debug mode 32 functions first show their arguments: in a message box on Windows, in a frame on
 * standard error elsewhere (which waits for Enter when standard input is a terminal). The guide
 * names them. Always 0. */
KORAX_API int32_t KORAX_CALL SetDebugMode(void);
KORAX_API int32_t KORAX_CALL ClearDebugMode(void);

/* The library's version, 28 characters: a buffer of at least 29 bytes. Errors: 225. */
KORAX_API int32_t KORAX_CALL pDllVersion(char* Buffer);
KORAX_API char* KORAX_CALL xDllVersion(void);

/* The library's author, at most 57 characters: a buffer of at least 58 bytes. Errors: 225. */
KORAX_API int32_t KORAX_CALL pDllAuthor(char* Buffer);
KORAX_API char* KORAX_CALL xDllAuthor(void);

/* Names the device behind a COM port, for the next opening. Without it COM n is COMn on Windows
 * and /dev/ttyS(n-1) elsewhere.
 *   Port        1 to 255
 *   DevicePath  at most 256 characters:
 *               "/dev/ttyUSB0"        a serial device, not on Windows
 *               "tcp://HOST:PORT"     a TCP connection: a simulated device, or a converter that
 *                                     passes bytes as they are. HOST is an IPv4 address, an IPv6
 *                                     address in brackets, or localhost; PORT 1 to 65535. It is
 *                                     connected to within the send time-out; BaudRate is not used
 *               ""                    the default again
 * Errors: 215 (port, length or address), 225. */
KORAX_API int32_t KORAX_CALL SetPortDevice(int32_t Port, const char* DevicePath);

/* ---- Device ---- */

/* Asks the device for its type and program version. Starts no session: the port must be open.
 *   Type     1 to 13 (KORAX_TYPE_...; docs/device-tables.md has their names)
 *   Version  program version; left as it was for types 1, 2 and 5, 0 where the device has none
 * On an error the cells are unchanged. The port closed: 20. */
KORAX_API int32_t KORAX_CALL DeviceType(int32_t* Type, int32_t* Version);
KORAX_API int32_t KORAX_CALL xDeviceType(void);
KORAX_API int32_t KORAX_CALL xProgramVersion(void);

/* The name of the device type found at the session start, at most 19 characters: a buffer of at
 * least 20 bytes. On an error it is unchanged. */
KORAX_API int32_t KORAX_CALL pDeviceName(char* Buffer);
KORAX_API char* KORAX_CALL xDeviceName(void);

/* The device's code page: 0 = 852, 1 = 1250, 2 = Mazovia. Only tells it: texts are converted for
 * the page that ReceiptBegin has asked for by itself. Receipt open: 200. */
KORAX_API int32_t KORAX_CALL IsCodePage1250(int32_t* Result);
KORAX_API int32_t KORAX_CALL xIsCodePage1250(void);

/* Waits until the printing unit is ready: 0, or why it is not.
 *   BeforePrinting  1 before a printout, 0 after one
 * Errors: 102 no contact with the printer's controller, 103 printer failure, 109 no paper, 112
 * printout stopped for want of paper. Asks the device until its state is one of these or the link
 * fails; with a BeforePrinting other than 0 and 1 a stopped printout is waited out. */
KORAX_API int32_t KORAX_CALL PrintControl(int32_t BeforePrinting);

/* ---- Receipt ---- */

/* Opens a receipt and clears the totals.
 * Errors: 200 a receipt is open in the device; when the device refuses, the reason that
 * ReceiptConditions finds, or 24. A receipt that only the driver believes to be open is forgotten
 * first. On types 5, 6 and 9 a printout that waits for paper shows as 224; PrintControl(1) gives
 * 112. */
KORAX_API int32_t KORAX_CALL ReceiptBegin(void);

/* Why a receipt cannot be opened: 0, or the first reason found.
 * Errors: 100 no producer data, 101 service jumper, 102 no contact with the printer's controller,
 * 103 printer failure, 104 no user data, 105 fiscal module read-only, 106 no customer display, 107
 * memory erased, 108 daily report pending, 109 no paper, 112 printout stopped, 113 no tax rates,
 * 200 receipt open, 224 always on types 5, 6 and 9 when nothing else is wrong. */
KORAX_API int32_t KORAX_CALL ReceiptConditions(void);

/* Ends the receipt: discount or surcharge on the whole of it, deferred currency payments, total,
 * forms of payment, additional lines, end.
 *   TypeOfDiscountSurcharge  0 percent discount, 1 amount discount, 2 amount surcharge, other: none
 *   DiscountSurcharge        percent 1 to 99 (any other value: no discount), or hundredths
 * Errors: 201 no receipt is open. After an error before the end itself the receipt stays open and
 * what was not sent stays stored. When the device refuses the end (24) the receipt counts as
 * closed; when it refuses it and no line had been printed the result is 0, so a receipt that was
 * begun, cancelled by a session start and ended gives 0 as well: compare ReceiptNumber. Forms of
 * payment are sent on types 4, 8 and 10 to 13 only; on the others they stay stored. Nobody compares
 * them with the total, neither the library nor the device: what they say is printed. The lines are
 * cut at 253 characters. */
KORAX_API int32_t KORAX_CALL ReceiptEndEx(int32_t DiscountSurcharge,
                                          int32_t TypeOfDiscountSurcharge);

/* ReceiptEndEx with a percent discount; 0 ends the receipt without one. */
KORAX_API int32_t KORAX_CALL ReceiptEnd(int32_t DiscountSurcharge);

/* Cancels the open receipt.
 * Errors: 201 no receipt is open; 210 the device has cancelled it already (it then counts as
 * closed). Where the device has no receipt open (its end was not heard): 24 KORAX_E_REFUSED when
 * lines have been printed, 21 on types 10 and 11 when none have, and the driver still believes it
 * open; on the other types 0 when none have. On types 10 and 11 an unexpected answer gives 0 with
 * the receipt still open for the driver. ReceiptBegin settles all of these with the device. */
KORAX_API int32_t KORAX_CALL ReceiptCancel(void);

/* Why the device cancelled the last receipt.
 *   Code    0 = it did not; 32 = by a command of the application; 49 to 89 = a rule of the device
 *           (docs/device-tables.md)
 *   Reason  the Polish text of a known code, else empty: a buffer of at least 160 bytes
 * A null Reason gives 225 with the code stored. */
KORAX_API int32_t KORAX_CALL CancellationReason(int32_t* Code, char* Reason);

/* Receipts since the last daily report, 0 to 65535. Receipt open: 200, in a new session too, until
 * ReceiptBegin or ReceiptCancel has settled with the device what the driver believes.
 * Number must not be null: it is not checked. */
KORAX_API int32_t KORAX_CALL ReceiptNumber(int32_t* Number);
KORAX_API int32_t KORAX_CALL xReceiptNumber(void);

/* Goes on with a printout that was stopped for want of paper. Receipt open: 200. Errors: 109 still
 * no paper. */
KORAX_API int32_t KORAX_CALL PrintResume(void);

/* ---- Item ---- */

/* Sells an item, or takes back (corrects) a sold one.
 *   Sale         1 = sale, any other value = correction
 *   Name         article name. 28 characters are printed on types 1 to 4, 7 and 9 and on type 8
 *                with a program version below 2; 40 on types 8 and 12; up to 120 on types 5, 6,
 *                10, 11 and 13. On types 7 and 9 pass no more than 28: a longer name reaches the
 *                device in a form that it refuses
 *   TaxRate      1 to 7 = A to G (KORAX_RATE_A to KORAX_RATE_G)
 *   Communicate  message number 0 to 7 sent with the line; 0 = none
 *   Quantity     1 to 99 999 999 on types 4, 8 and 10 to 13, else 1 to 999 999
 *   QAC          decimals of the quantity, 0 to 4
 *   Unit         4 characters are used
 *   Price        1 to 999 999 999, hundredths
 *   Amount       the line's value in hundredths. 0 asks the library to work it out (price times
 *                quantity, half up) and write it here; any other value is sent as it is
 * The item is sent even when a check fails: the device decides. When it takes the line, types 8 to
 * 12 report the failed check all the same, the others forgive it (not with OptimizeTransmission).
 * When it cancels the receipt, types 8 to 12 give 210, the others the failed check, or 210 where
 * none failed. Where the answer to a receipt's end was lost, the driver still believes it open: an
 * item can then give 0 and be sold nowhere. After 20 or 21 begin the session anew.
 * A name of 41 and more characters is sent as lines of text on types 5, 6, 10, 11 and 13. They
 * carry neither sign nor message: a correction is sold once more (and the receipt cancelled when
 * its total comes), Communicate is lost. A refusal (NAK) of such lines reads as 21. Keep names that
 * may have to be corrected to 40 characters.
 * Errors: 201 no receipt is open, 203 TaxRate, 204 Communicate, 205 Quantity, 206 QAC, 208 Price,
 * 227 the value exceeds 999 999 999, 209 Amount is not price times quantity: of several the last in
 * this order. A value that was to be worked out and is too large gives 227 with nothing sent and
 * the receipt still open. 210 KORAX_E_RECEIPT_CANCELLED: the device has cancelled the receipt (it
 * counts as closed; see CancellationReason). */
KORAX_API int32_t KORAX_CALL pReceiptItem(int32_t Sale, const char* Name, int32_t TaxRate,
                                          int32_t Communicate, int32_t Quantity, int32_t QAC,
                                          const char* Unit, int32_t Price, int32_t* Amount);

/* The same with the value always worked out. */
KORAX_API int32_t KORAX_CALL pReceiptItemEx(int32_t Sale, const char* Name, int32_t TaxRate,
                                            int32_t Communicate, int32_t Quantity, int32_t QAC,
                                            const char* Unit, int32_t Price);

/* Copies an article name, padded with blanks to at least 40 characters and cut at 255: a buffer of
 * 256 bytes holds every result. 202 when none of its first 28 characters is significant (the copy
 * is made all the same). */
KORAX_API int32_t KORAX_CALL NormNazwa(char* Destination, const char* Name);

/* The same, padded and cut to 28 characters: a buffer of 29 bytes. 0, or 225. */
KORAX_API int32_t KORAX_CALL NormNazwa1(char* Destination, const char* Name);

/* Returns how many of the first 28 characters are significant: letters, digits, the signs , . % / \
 * and Polish letters in code page 852. A null name gives 225, also as the last error. */
KORAX_API int32_t KORAX_CALL pCharsInArticleName(const char* Name);

/* Returns 1 when the byte is a Polish letter in code page 852, else 0. The answer is stored as the
 * last error too. */
KORAX_API int32_t KORAX_CALL InZnakiPolskie(uint8_t Character);

/* ---- Payments and additional lines ---- */

/* These start no session and do not ask whether a receipt is open; what they store is forgotten at
 * the next session start. Nobody checks that what was paid less the change is the total. */

/* Stores a form of payment for the end of the receipt.
 *   PaymentNo    1 to 4; what the slot held is replaced
 *   PaymentName  13 characters are used; an empty name is stored as blanks
 *   Total        paid, hundredths
 *   Change       given back, hundredths
 * Errors: 215 PaymentNo. */
KORAX_API int32_t KORAX_CALL pFillPayment(int32_t PaymentNo, const char* PaymentName, int32_t Total,
                                          int32_t Change);

/* Sends a form of payment at once; the slots stay as they are. Errors: 213 unless the type is 4 or
 * 8 to 13; 215 PaymentNo. */
KORAX_API int32_t KORAX_CALL pSendPayment(int32_t PaymentNo, const char* PaymentName, int32_t Total,
                                          int32_t Change);

/* Forgets the stored forms of payment. Always 0. */
KORAX_API int32_t KORAX_CALL ErasePayments(void);

/* Stores a line to be printed after the receipt; there are six.
 *   Number     the device's number of the line, below 23
 *   Line       255 characters are kept, 253 are sent, on types 10 to 12 in page 852
 *   FreeLines  how many lines are free after the call
 * Errors: 215 Number (FreeLines unchanged), 216 all lines are used. */
KORAX_API int32_t KORAX_CALL pFillLines(int32_t Number, const char* Line, int32_t* FreeLines);
KORAX_API int32_t KORAX_CALL xFillLines(int32_t Number, const char* Line);

/* Forgets the stored lines. Always 0. */
KORAX_API int32_t KORAX_CALL EraseLines(void);

/* A payment in a foreign currency, first part: name, rate and amount.
 *   CurrencyName  3 characters are used
 *   Rate          10 characters are used
 *   Qantity       low byte; its meaning is the device's
 *   Subtotal      hundredths
 *   Send          not 0 sends it at once, 0 keeps it for the end of the receipt
 * Errors: 213 unless the type is 8, 10, 11 or 12. */
KORAX_API int32_t KORAX_CALL pCurrencyPayment1(const char* CurrencyName, const char* Rate,
                                               int32_t Qantity, int32_t Subtotal, int32_t Send);

/* Second part: what was paid and given back, hundredths.
 *   TypeOfChange  0 = change in the base currency, 1 = in the foreign one, other = sent as both
 *   Send          as in pCurrencyPayment1
 * Errors: 213 unless the type is 8 or 10 to 13. */
KORAX_API int32_t KORAX_CALL pCurrencyPayment2(int32_t TotalInCurrency, int32_t TotalInBaseCurrency,
                                               int32_t Change, int32_t TypeOfChange, int32_t Send);

/* An additional payment (or change) in a foreign currency, sent at once.
 *   Number                 low byte
 *   IsChange               low byte
 *   Name                   at least 3 characters; the first 3 are sent as they are
 *   PaidInForeignCurrency  hundredths
 *   ExchangeRate           scaled by 10 to the power QAC
 *   QAC                    low byte: decimals of the rate
 *   PaidInBaseCurrency     hundredths
 * Errors: 213 on types 1, 2, 3, 5 and 6, on type 4 below program version 6 and on type 8 below 2;
 * 231 Name is shorter than 3. 231 and what the device answers are not kept as the last error:
 * LastError gives 0. */
KORAX_API int32_t KORAX_CALL pAdditionalCurrencyPayment(int32_t Number, int32_t IsChange,
                                                        const char* Name,
                                                        int32_t PaidInForeignCurrency,
                                                        int32_t ExchangeRate, int32_t QAC,
                                                        int32_t PaidInBaseCurrency);

/* ---- Discounts, packages, drawer ---- */

/* Discount or surcharge on the last item, by amount: one for an item. A second one on the same
 * item, one on a correction or before the first item cancels the receipt (210, reason 87).
 *   Discount  not 0 = discount, 0 = surcharge
 *   Amount    hundredths
 * Errors: 201 no receipt is open, 210 the device has cancelled the receipt, 213 unless the type is
 * 8, 10, 11 or 13. */
KORAX_API int32_t KORAX_CALL DiscountOrSurcharge(int32_t Discount, int32_t Amount);

/* The same by percent; the receipt's totals are then read from the device.
 *   Percent  16 bits are sent; percent 1 to 99
 * Errors as DiscountOrSurcharge. */
KORAX_API int32_t KORAX_CALL PercentDiscountOrSurcharge(int32_t Discount, int32_t Percent);

/* Sells or takes back returnable packages; they are not part of the fiscal totals.
 *   Parameter  0 sold, 1 taken back, 2 and 3 the same corrected
 *   Number     package number, 16 bits are sent
 *   Quantity   16 bits are sent
 *   Price      hundredths
 * Errors: 201 no receipt is open, 210 the device has cancelled the receipt, 213 unless the type is
 * 4, 8 or 10 to 13, 214 Parameter, 238 the device did not take the line. */
KORAX_API int32_t KORAX_CALL PackageItem(int32_t Parameter, int32_t Number, int32_t Quantity,
                                         int32_t Price);

/* Prints the subtotal of the open receipt. Errors: 201 no receipt is open, 213 unless the type is
 * 4, 8 or 10 to 13. */
KORAX_API int32_t KORAX_CALL PrintSubtotal(void);

/* Opens cash drawer 1, 2 or 3, inside a receipt or outside. Errors: 212 DrawerNumber. */
KORAX_API int32_t KORAX_CALL OpenDrawer(int32_t DrawerNumber);

/* ---- Invoice ---- */

/* Opens an invoice: a receipt with a number, the buyer's lines and tax number. Items, payments, end
 * and cancellation go on as for a receipt. OptimizeTransmission leaves out the code-page query.
 *   Number          at most 20 characters
 *   Name1 to Name6  at most 40 characters each; empty ones are blank lines, and all six empty print
 *                   none. Sent in page 852 whatever the device's
 *   NIP             at most 13 characters; empty = none
 * Longer texts are not cut to their fields: a name then runs on into the next line.
 * Errors: 200 a receipt is open in the device; 213 unless the type is 11; when the device refuses,
 * the reason that ReceiptConditions finds. When it finds none the result is 0 although no invoice
 * is open: the next item then fails with 201. When the buyer's data are refused (a control
 * character) the invoice is cancelled and the result is ReceiptCancel's, 0 included: the same. */
KORAX_API int32_t KORAX_CALL pInvoiceBegin(const char* Number, const char* Name1, const char* Name2,
                                           const char* Name3, const char* Name4, const char* Name5,
                                           const char* Name6, const char* NIP);

/* ---- Tax rates ---- */

/* Reads the rates A to G and how many of them the device has (7, 6 or 4). With 6 or 4, G is the
 * exempt rate (10000); rates that a device does not have read 25500. Receipt open: 200.
 * When the device fails otherwise than by refusing the command the result can be 0 with every cell
 * unchanged: preset Count and look at it. The cells must not be null: they are not checked. */
KORAX_API int32_t KORAX_CALL ReadVAT(int32_t* Count, int32_t* A, int32_t* B, int32_t* C, int32_t* D,
                                     int32_t* E, int32_t* F, int32_t* G);

/* The same into an array of eight: the count, then A to G. Returns the array; it is written
 * whatever the result (0 where nothing was read). */
KORAX_API int32_t* KORAX_CALL xReadVAT(int32_t* Rates);

/* Writes the rates and reads them back. Devices with six rates take A to F, those with four A to D
 * in whole percent.
 *   QuantityOfRates  not used: the device's own count decides
 *   A to G           hundredths of a percent, 10000 (KORAX_RATE_EXEMPT) or 25500
 *                    (KORAX_RATE_NOT_USED)
 * A program that is killed in the middle leaves the device waiting for the rest, and the next
 * session start can complete the rates with its own bytes (0x1B, 0x23: 69.47 %). Wait 3 seconds
 * before it and read the rates back.
 * Receipt open: 200. Errors: 217 KORAX_E_RATES_NOT_WRITTEN the rates read back differ (also when a
 * fraction of a percent was given to a four-rate device), 218 KORAX_E_RECEIPTS_PRINTED receipts
 * have been printed since the last daily report. */
KORAX_API int32_t KORAX_CALL SetVAT(int32_t QuantityOfRates, int32_t A, int32_t B, int32_t C,
                                    int32_t D, int32_t E, int32_t F, int32_t G);

/* ---- Reports ---- */

/* All of them: receipt open: 200; after the printing PrintControl(0) decides the result. */

/* Prints the daily report and closes the day.
 *   Unconditionally  not 0 prints it without a sale since the last one, on types 3, 4 and 8 to 13
 * Errors: 211 nothing sold since the last daily report. */
KORAX_API int32_t KORAX_CALL DailyReport(int32_t Unconditionally);

/* Prints the articles whose rate is locked. */
KORAX_API int32_t KORAX_CALL LockedArticlesReport(void);

/* Prints the printer's status. */
KORAX_API int32_t KORAX_CALL PrinterStatusReport(void);

/* Prints the report between two dates.
 *   Fiscal  not 0 = fiscal, 0 = summary
 *   yy      year 1 to 99;  mm  month 1 to 12;  dd  day 1 to 31
 * Errors: 215 a date is out of range. A date that does not exist, or no report in that time, is for
 * the device to tell on paper. */
KORAX_API int32_t KORAX_CALL PeriodReport(int32_t Fiscal, int32_t yy1, int32_t mm1, int32_t dd1,
                                          int32_t yy2, int32_t mm2, int32_t dd2);

/* Prints the report of a month.
 *   Fiscal  1 = fiscal, 0 = summary
 *   Year    the two last digits;  Month  1 to 12: the device judges both
 * Errors: 219 wrong date, 220 no reports in that time, 221 wrong numbers, 222 the month is not
 * over, 223 Fiscal, or the device refuses the kind, 224 unless the type is 4 or 7 to 13. */
KORAX_API int32_t KORAX_CALL MonthlyReport(int32_t Fiscal, int32_t Year, int32_t Month);

/* Prints the daily reports by their numbers, 16 bits of each. Errors as MonthlyReport. */
KORAX_API int32_t KORAX_CALL NumberReport(int32_t Fiscal, int32_t FirstNumber, int32_t LastNumber);

/* Number of the last daily report, 0 to 65535. Receipt open: 200.
 * Number must not be null: it is not checked. */
KORAX_API int32_t KORAX_CALL DailyReportNumber(int32_t* Number);
KORAX_API int32_t KORAX_CALL xDailyReportNumber(void);

/* ---- Clock ---- */

/* The device's clock as text: "dd.dd.dd;hh:mm", and ":ss" on types 4 and 7 to 13; the date's pairs
 * in the device's order. At most 17 characters: a buffer of at least 18 bytes. Receipt open: 200.
 * On an error the text is empty (225: untouched). */
KORAX_API int32_t KORAX_CALL pReadClock(char* Buffer);
KORAX_API char* KORAX_CALL xReadClock(void);

/* Moves the clock to Hour (below 24) and Minute (below 60) of the same day, by an hour at most.
 * Receipt open: 200. Errors: 218 receipts have been printed since the last daily report, 223 Hour
 * or Minute, 228 no difference, 229 more than 60 minutes, 230 moved already today. After a 20 or 21
 * the clock may have been moved. */
KORAX_API int32_t KORAX_CALL ChangeTime(int32_t Hour, int32_t Minute);

/* ---- Totals and counters ---- */

/* All of them: receipt open: 200. */

/* The day's sales in hundredths, as decimal text of at most 11 characters: a buffer of at least 12
 * bytes. Totals wrap at 32 bits. On an error the buffer is unchanged.
 * Errors: 113 no rate is defined, 224 unless the type is 4, 7, 8 or 10 to 13. */
KORAX_API int32_t KORAX_CALL pReadTotal(char* Buffer);
KORAX_API char* KORAX_CALL xReadTotal(void);

/* The day's sales of one rate.
 *   Selector  "A" to "G"; followed by "+" the sum of all rates instead. Must not be null: it is not
 *             checked. Any other text leaves Buffer unchanged
 *   Buffer    at least 12 bytes
 * Errors: 224 as pReadTotal; 226 the rate numbered by the low three bits of the second character is
 * not used ("+" numbers rate C). */
KORAX_API int32_t KORAX_CALL pReadSelTotal(const char* Selector, char* Buffer);
KORAX_API char* KORAX_CALL xReadSelTotal(const char* Selector);

/* The device's unique number, 11 characters: a buffer of at least 12 bytes. */
KORAX_API int32_t KORAX_CALL pReadUniqueNumber(char* Buffer);
KORAX_API char* KORAX_CALL xReadUniqueNumber(void);

/* The daily totalizers of types 10 and 11, in hundredths and in the device's order; what does not
 * fit 32 bits is held at their limit.
 *   Kind  1 or 2
 * Errors: 23 malformed answer, 215 Kind (returned, not kept as the last error), 224 another type.
 * On an error the cells are unchanged. */
KORAX_API int32_t KORAX_CALL pReadDailyTotalizers(int32_t Kind, int64_t* T1, int64_t* T2,
                                                  int64_t* T3, int64_t* T4, int64_t* T5,
                                                  int64_t* T6, int64_t* T7);

/* Two daily counters of types 10 and 11, 0 to 65535. Errors as pReadDailyTotalizers. */
KORAX_API int32_t KORAX_CALL pReadDailyCounters(int32_t* Counter1, int32_t* Counter2);

/* ---- Status and configuration ---- */

/* The device's four status bytes, 0 to 255 each. On an error those read before it are new and the
 * others unchanged. The cells must not be null: they are not checked. */
KORAX_API int32_t KORAX_CALL ReadStatus(int32_t* Status1, int32_t* Status2, int32_t* Status3,
                                        int32_t* Status4);

/* One of them, Which 0 to 3; 0 for any other. All four are read. */
KORAX_API int32_t KORAX_CALL xReadStatus(int32_t Which);

/* Reads the three bytes of a configuration group (its number's low byte). On an error the cells are
 * unchanged. The cells must not be null: they are not checked. */
KORAX_API int32_t KORAX_CALL ReadConfigBytes(int32_t Group, int32_t* Byte1, int32_t* Byte2,
                                             int32_t* Byte3);

/* Writes the three bytes of a configuration group. */
KORAX_API int32_t KORAX_CALL WriteConfigBytes(uint8_t Group, uint8_t Byte1, uint8_t Byte2,
                                              uint8_t Byte3);

/* Returns 1 when the bit at position Bit (modulo 32) or any above it is set in Value, else 0. The
 * answer is stored as the last error too. Sends nothing. */
KORAX_API int32_t KORAX_CALL BitZBajtu(uint8_t Value, uint8_t Bit);

/* ---- Footer and logo ---- */

/* Writes the three lines printed under receipts: 40 characters of each, padded with blanks. Starts
 * no session and does not look for an open receipt, which the device cancels then (24, reason 49);
 * the type of the last session start decides. Before the first receipt or control printout the text
 * goes out in page 852: begin one first. Lines written before an error stay written. Errors: 213
 * unless the type is 8 or 10 to 13, 223 line number, 231 KORAX_E_CONTROL_CHARACTER, 232 check sum,
 * 233 not all data came, 234 the same data again, 235 a daily report has to be made first. */
KORAX_API int32_t KORAX_CALL pWriteFooterLines(const char* Line1, const char* Line2,
                                               const char* Line3);

/* Reads them, 40 characters each in the device's code page: buffers of at least 41 bytes. Errors as
 * pWriteFooterLines. */
KORAX_API int32_t KORAX_CALL pReadFooterLines(char* Line1, char* Line2, char* Line3);

/* Sends a logo: an uncompressed bitmap of 192 by 64 dots with 1 bit per dot, whose dots begin
 * within the first 255 bytes. Colour 0 has to be the printed one: where palette entry 0 is white
 * almost nothing is printed. Receipt open: 200. Lines sent before an error stay written. Errors:
 * 236 the file cannot be opened, 237 it is not such a bitmap or ends early (nothing is sent), 224
 * unless the type is 8 to 13, and as pWriteFooterLines. */
KORAX_API int32_t KORAX_CALL pWriteLogo(const char* FileName);

/* ---- Non-fiscal printouts ---- */

/* All of them: receipt open: 200. */

/* Begins the printout form of this number, at most 99. Errors: 215 Number; those of PrintControl.
 */
KORAX_API int32_t KORAX_CALL NonFiscalPrintoutBegin(int32_t Number);

/* Ends it and waits until it is printed. */
KORAX_API int32_t KORAX_CALL NonFiscalPrintoutEnd(void);

/* Prints a numbered line of the form. Nothing is answered: a refusal shows at the next call.
 *   Number  at most 99
 *   Text    sent as it is, in the device's code page; at most 252 characters, longer ones are sent
 *           wrong or not at all
 *   If0A    not 0 ends the line with a line feed
 * Errors: 215 Number. When the send fails, the seconds of the send time-out (1 to 62) stand as
 * the error number; a time-out of 0, which OpenPort can set, looks like success. */
KORAX_API int32_t KORAX_CALL pNonFiscalPrintoutLine(int32_t Number, const char* Text, int32_t If0A);

/* Prints a free line.
 *   Text  sent as it is, in the device's code page, at most 252 characters; one that begins with
 *         "B" is printed as a bar code of its other characters: at most 238 of them are sent, and
 *         the device judges how many it can print
 * Errors: 21 no answer to a bar code, 24 the device refuses it; a send that fails as in
 * pNonFiscalPrintoutLine. */
KORAX_API int32_t KORAX_CALL pAddNonFiscalPrintoutLine(const char* Text);

/* The control printout of article names with their rates.
 *   Operation  1 begins it, 2 ends it, any other value prints a line
 *   Name       28 characters are used (may be null for 1 and 2)
 *   TaxRate    low byte, sent as it is: devices count A to D as 1 to 4, then G, E, F as 5, 6, 7
 * Errors: 20 the line could not be sent; those of PrintControl. */
KORAX_API int32_t KORAX_CALL pControlPrintout(int32_t Operation, const char* Name, int32_t TaxRate);

/* ---- Cashier and sundry ---- */

/* Feeds paper by a number of lines (its low byte). Receipt open: 200. */
KORAX_API int32_t KORAX_CALL WriteLineFeed(int32_t LineFeeds);

/* The rate under which the device knows an article.
 *   Name  28 characters are used
 *   Rate  0 = no such article, else the rate's number as the device counts: A to D are 1 to 4, then
 *         G, E, F are 5, 6, 7
 *   Kind  0 = no such article, 1 or 2 = its kind
 * Receipt open: 200. Errors: 202 too few significant characters, 224 unless the type is 8 to 12;
 * neither is kept as the last error. On an error the cells are unchanged. */
KORAX_API int32_t KORAX_CALL pCheckArticle(const char* Name, int32_t* Rate, int32_t* Kind);

/* Sends any control sequence. Starts no session and does not look for an open receipt.
 *   ControlCode               command byte (low byte)
 *   QuantityOfBytesToReceive  bytes answered right after the command, the acknowledgement or status
 *                             included; 0 to 255, others are held at these limits
 *   QuantityOfBytesToSend     data bytes; likewise
 *   Received                  gets that many bytes whatever the result: the answer from its second
 *                             byte on (the first where only one is answered); what is behind it is
 *                             older. May be null when none are received
 *   ToSend                    may be null when none are sent */
KORAX_API int32_t KORAX_CALL RSSequence(int32_t ControlCode, int32_t QuantityOfBytesToReceive,
                                        int32_t QuantityOfBytesToSend, uint8_t* Received,
                                        const uint8_t* ToSend);

/* Writes a user's line.
 *   Line  low byte
 *   Mode  low byte; with bit 0 set 20 characters of Text are used, else 40
 * Receipt open: 200. Errors: 102 no contact with the printer's controller, 107 memory erased. */
KORAX_API int32_t KORAX_CALL WriteUserQuorra(int32_t Line, int32_t Mode, const char* Text);

/* Sets the cash register's and the cashier's codes.
 *   ECRCode      0 to 999 on types 10 and 11, else 0 to 99
 *   CashierCode  21 characters are used on types 10 and 11, else 2
 * Types 10 and 11 get the code in their page, which a receipt or a control printout has to have
 * asked for; the others get the two characters as they are.
 * Receipt open: 200. Errors: 21 no answer, 24 refused; on types 10 and 11 a send that fails as in
 * pNonFiscalPrintoutLine. In debug mode the arguments go to standard output. */
KORAX_API int32_t KORAX_CALL pWriteECRCashierCode(int32_t ECRCode, const char* CashierCode);

/* ---- Customer display ---- */

/* Shows a text on the customer display of types 1, 2, 3, 5 and 6. What comes out depends on the
 * kind of display that the device reports:
 *   numbered    9 characters of the text on display Number
 *   one line    the first character at the places 1, 3, 5 and 7, as far as the text reaches, and in
 *               between what the last command had sent: no use but for an empty text, which clears
 *   two lines   40 characters in lines of 20, but only when an earlier answer happens to have left
 *               a certain bit behind; otherwise nothing, and the result is 0
 *   none        nothing, with 0
 *   Number  number of the display where displays are numbered; 4 clears every kind
 *   Text    converted to the device's code page
 * Receipt open: 200. Errors: 213 KORAX_E_COMMAND_NOT_AVAILABLE another type. */
KORAX_API int32_t KORAX_CALL pDisplayGX450(int32_t Number, const char* Text);

/* ---- Texts ---- */

/* Return the byte that stands for a code page 1250 character in the device's code page, as it is or
 * in upper case. The result is stored as the last error too. In code page 1250 the upper-case form
 * raises only the letters a to z. */
KORAX_API int32_t KORAX_CALL NaLatin2(uint8_t Character);
KORAX_API int32_t KORAX_CALL NaLatin2AndUpper(uint8_t Character);

/* The Polish text of an error number, at most 63 characters in code page 1250: a buffer of at least
 * 64 bytes. 0 gives an empty text, an unlisted number a general one. Errors: 225. */
KORAX_API int32_t KORAX_CALL pErrMessage(int32_t ErrNo, char* Buffer);
KORAX_API char* KORAX_CALL xErrMessage(int32_t ErrNo);

#ifdef __cplusplus
}
#endif

#endif /* KORAXDR_H */
