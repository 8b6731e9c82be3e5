#include "support/variables.h"

#include "engine/sysproc.h"
#include "koraxdr/state.h"
#include "links/msgqueue.h"
#include "numbers/konwers.h"
#include "port/portpro.h"
#include "port/sockpro.h"
#include "port/sysseria.h"

namespace {

template <class Value>
Variable Of(Value& variable, int64_t loaded) {
    return {[&variable] { return static_cast<int64_t>(variable); },
            [&variable](int64_t value) { variable = static_cast<Value>(value); }, loaded};
}

}  // namespace

#define VARIABLE(name, loaded) \
    { #name, Of(name, loaded) }

const std::map<std::string, Variable>& Variables() {
    static const std::map<std::string, Variable> variables = {
        // The session.
        VARIABLE(CodePage1250, 0),
        VARIABLE(DebugMode, 0),
        VARIABLE(ErrorLastError, 0),
        VARIABLE(KomunikacjaInit, 0),
        VARIABLE(MsgID, 0),
        VARIABLE(NumerPortuDrukarki, 0),
        VARIABLE(Optimize, 0),
        VARIABLE(ProcessIDFromFile, 0),
        VARIABLE(Prog, 1),
        VARIABLE(SzybkTrans, 9600),
        VARIABLE(SzybkoscTransmisji, 9600),
        VARIABLE(Timeouty, 5),
        VARIABLE(Urzadzenie, 13),
        // The receipt.
        VARIABLE(FakturaRozpoczeta, 0),
        VARIABLE(OstatniaStawka, 0),
        VARIABLE(ParagonRozpoczety, 0),
        VARIABLE(PierwszaPozycjaSprzedazy, 0),
        VARIABLE(SposobZaokraglania, 0),
        VARIABLE(WydrukowanychLiniiPar, 0),
        VARIABLE(WyliczonaWartoscPoz, 0),
        // The exchange.
        VARIABLE(CoIleSygnalizowacLicznikPoslanychSekwencji, 0),
        VARIABLE(DebugowacDzialanieFunkcji, 0),
        VARIABLE(FunkcjaWStanieUspienia, 0),
        VARIABLE(KomunikacjaDlaNivy, 0),
        VARIABLE(LicznikOdczytanychLiniiZPlikuWejsciowego, 0),
        VARIABLE(LicznikPoslanychSekwencjiSterujacych, 0),
        VARIABLE(LicznikZapisanychLiniiDoPlikuWyjsciowego, 0),
        VARIABLE(NumerBledu, 0),
        VARIABLE(PierwszaSekwencjaSterujaca, 0),
        VARIABLE(RetransmitowacSekwencjeSterujaca, 0),
        VARIABLE(WymaganySprzetDoFunkcjiSpecjalnych, 1),
        VARIABLE(f_konwersja, 0),
        // The port.
        VARIABLE(BylTimeout, 0),
        VARIABLE(KontrolowacStanLiniiCTS, 1),
        VARIABLE(LicznikBajtowOdebranych, 0),
        VARIABLE(NrKanalu, 1),
        VARIABLE(NrMultipleksera, 0),
        VARIABLE(NrPortu, 1),
        VARIABLE(ParzystoscTransmisji, 2),
        VARIABLE(SygnalizowacBledyParzystosci, 1),
        VARIABLE(TimeoutNadawania, 3),
        VARIABLE(TimeoutOdbierania, 3),
        VARIABLE(TimeoutNadawaniaPrzezModem, 3),
        VARIABLE(TimeoutOdbieraniaPrzezModem, 3),
        VARIABLE(TransmisjaPrzezModem, 0),
        VARIABLE(TransmisjaPrzezTCP, 0),
    };
    return variables;
}

std::string ChangedVariables() {
    std::string names;
    for (const auto& [name, variable] : Variables()) {
        if (variable.get() != variable.loaded) names += name + " ";
    }
    return names;
}
