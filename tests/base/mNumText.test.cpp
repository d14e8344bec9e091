// Numbers and dates as text.
#include "base/mNumText.h"
#include "support/Case.h"

#include <array>
#include <bit>
#include <charconv>
#include <random>

TEST_CASE("fixed digits are those of the library for numbers of every size, at ties and right beside them")
{
    std::mt19937_64 Random(1);
    const auto Library = [](double X, int Decimals) {
        std::array<char, 400> Room;
        return std::string(
            Room.data(),
            std::to_chars(Room.data(), Room.data() + Room.size(), X, std::chars_format::fixed, Decimals).ptr);
    };
    int Different = 0;
    for (int i = 0; i < 100'000; ++i) {
        const int Decimals = static_cast<int>(Random() % 11);
        const double Whole = static_cast<double>(Random() % 4'000'001) - 2'000'000;
        const double Half = std::ldexp(Whole, -static_cast<int>(Random() % 12));
        const double Near = (Whole + 0.5) / std::pow(10, Decimals);
        const double Any = std::bit_cast<double>(Random());
        for (const double X : {Half, Near, std::nextafter(Near, 0), std::nextafter(Half, 1e9), Any, Whole * 1e9}) {
            std::string Text;
            AppendFixed(Text, X, Decimals);
            if (std::isfinite(X) && Text != Library(X, Decimals)) ++Different;
        }
    }
    CHECK(Different == 0);
}
