// The driver's state between calls. One set for the process; calls come from one thread at a time.
#pragma once

#include <cstdint>

extern uint32_t ErrorLastError;  // error number of the last exported call; LastError clears it
extern uint8_t DebugMode;        // exported functions show their arguments first
extern uint8_t KomunikacjaInit;  // a session is established: port open, device identified
extern int32_t
    NumerPortuDrukarki;            // port given to CommunicationInit; used by a session's own start
extern int32_t SzybkTrans;         // baud given to CommunicationInit; default 9600
extern int32_t Timeouty;           // seconds given to CommunicationInit, both ways; default 5
extern int32_t Urzadzenie;         // device type 1 to 13; 13 = other device, the default
extern int32_t Prog;               // the device's program version; default 1
extern int32_t CodePage1250;       // device's code page: 0 = 852, 1 = 1250, 2 = Mazovia
extern uint8_t ParagonRozpoczety;  // a receipt is open
extern uint8_t FakturaRozpoczeta;  // the open receipt is an invoice
extern uint8_t PierwszaPozycjaSprzedazy;    // the next item is the receipt's first
extern uint8_t WydrukowanychLiniiPar;       // lines that the device has printed in this receipt
extern int32_t WyliczonaWartoscPoz;         // value of the last item, hundredths
extern int32_t OstatniaStawka;              // rate number sent with the last accepted item
extern int32_t SposobZaokraglania;          // of item values: 1 to tens, 2 to whole units; stays 0
extern char ZmiennaDodatkowaDlaTypuX[256];  // what the text-returning x functions return

inline constexpr int kStawek = 7;
inline constexpr int kPlatnosci = 4;
inline constexpr int kNazwaPlatnosci = 13;  // characters
inline constexpr int kLiniiDodatkowych = 6;
inline constexpr int kPozycjiKontrolnych = 10;
inline constexpr int32_t kLiniaWolna = -1;

struct PaymentSlot {
    char name[256];  // 13 characters padded with blanks; empty = slot unused
    int32_t total;   // hundredths
    int32_t change;  // hundredths
};

struct LineSlot {
    int32_t number = kLiniaWolna;
    char text[256] = "";
};

struct ControlSlot {
    char text[256];
    uint8_t flag;
};

// Currency payments that wait for the receipt's end.
struct CurrencyPayment1 {
    int32_t send;  // not 0 = pending
    char currency_name[256];
    char rate[256];
    int32_t quantity;
    int32_t subtotal;
};

struct CurrencyPayment2 {
    int32_t send;  // not 0 = pending
    int32_t total_in_currency;
    int32_t total_in_base_currency;
    int32_t change;
    int32_t type_of_change;
};

// Slots are counted from 1.
extern int32_t Total[kStawek + 1];  // per rate number as sent, hundredths
extern PaymentSlot Payments[kPlatnosci + 1];
extern LineSlot AdditionalLines[kLiniiDodatkowych + 1];
extern ControlSlot Control[kPozycjiKontrolnych + 1];
extern CurrencyPayment1 CP1;
extern CurrencyPayment2 CP2;
