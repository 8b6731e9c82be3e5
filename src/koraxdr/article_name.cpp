#include "koraxdr/article_name.h"

#include <string_view>

#include "koraxdr.h"
#include "koraxdr/polish_text.h"
#include "koraxdr/texts.h"

namespace {

bool ZnakZnaczacy(uint8_t character) {
    constexpr std::string_view others = ",.%/\\";
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z') ||
           (character >= '0' && character <= '9') ||
           others.find(static_cast<char>(character)) != others.npos ||
           PolskaLiteraWStronie852(character);
}

}  // namespace

int32_t LiczbaZnakowZnaczacych(const char* name) {
    int32_t count = 0;
    for (int i = 0; i < kNazwaKrotka && name[i] != '\0'; ++i) {
        if (ZnakZnaczacy(static_cast<uint8_t>(name[i]))) ++count;
    }
    return count;
}

int32_t NormalizujNazwe(char* target, const char* name) {
    KopiujTekst(target, name, kBuforNazwy);
    const int32_t significant = LiczbaZnakowZnaczacych(target);
    DopelnijOdstepami(target, kNazwaDluga);
    // Oddity: One significant character is enough. The devices ask for five; the test for that
    // stood behind this one and never had an effect, and applications have come to rely on the
    // result.
    return significant == 0 ? KORAX_E_NAME : KORAX_E_OK;
}
