#include "koraxdr/state.h"

uint32_t ErrorLastError = 0;
uint8_t DebugMode = 0;
uint8_t KomunikacjaInit = 0;
int32_t NumerPortuDrukarki = 0;
int32_t SzybkTrans = 9600;
int32_t Timeouty = 5;
int32_t Urzadzenie = 13;
int32_t Prog = 1;
int32_t CodePage1250 = 0;
uint8_t ParagonRozpoczety = 0;
uint8_t FakturaRozpoczeta = 0;
uint8_t PierwszaPozycjaSprzedazy = 0;
uint8_t WydrukowanychLiniiPar = 0;
int32_t WyliczonaWartoscPoz = 0;
int32_t OstatniaStawka = 0;
int32_t SposobZaokraglania = 0;
char ZmiennaDodatkowaDlaTypuX[256] = "";

int32_t Total[kStawek + 1];
PaymentSlot Payments[kPlatnosci + 1];
LineSlot AdditionalLines[kLiniiDodatkowych + 1];
ControlSlot Control[kPozycjiKontrolnych + 1];
CurrencyPayment1 CP1;
CurrencyPayment2 CP2;
