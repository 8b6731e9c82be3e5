#include "koraxdr/texts.h"

#include <cstring>

void KopiujTekst(char* target, const char* text, std::size_t size) {
    const std::size_t kept = strnlen(text, size - 1);
    std::memcpy(target, text, kept);
    target[kept] = '\0';
}

void DopelnijOdstepami(char* text, std::size_t width) {
    std::size_t length = std::strlen(text);
    while (length < width) text[length++] = ' ';
    text[length] = '\0';
}
