// Entry point of every test program. The cases run under the locale that SKARVELIN_TEST_LOCALE names, if any.
#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#include "support/Fresh.h"

#include <clocale>
#include <cstdlib>
#include <iostream>
#include <locale>

REGISTER_LISTENER("fresh", 1, FreshListener);

int main(int Count, char** Args)
{
    if (const char* Name = std::getenv("SKARVELIN_TEST_LOCALE")) {
        if (!std::setlocale(LC_ALL, Name) || *std::localeconv()->decimal_point != ',') {
            std::cerr << "There is no locale " << Name << " with a decimal comma.\n";
            return 1;
        }
        std::locale::global(std::locale(Name));
    }
    return doctest::Context(Count, Args).run();
}
