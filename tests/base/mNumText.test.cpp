// Numbers and dates as text.
#include "base/mNumText.h"
#include "support/Case.h"

#include <array>
#include <bit>
#include <charconv>
#include <random>

TEST_CASE("numbers follow their literal pattern, a tie goes to the even digit")
{
    const std::tuple<double, const char*, const char*> Cases[] = {
        {3, "00", "03"},         {0.5, "0", "0"},           {2.5, "0", "2"},
        {0.125, "0.00", "0.12"}, {2.675, "0.00", "2.67"},   {1e15, "0.000", "1000000000000000.000"},
        {7, "0.", "7."},         {0.1234, "0.0%", "12.3%"}, {-0.004, "0.00", "-0.00"},
    };
    for (const auto& [X, Pattern, Text] : Cases) {
        CAPTURE(X);
        CHECK(FormatNum(X, Pattern) == Text);
    }
}

TEST_CASE("the two precisions by magnitude change at the powers of ten, before rounding")
{
    const std::tuple<double, const char*, const char*> Cases[] = {
        {0.9999999, "1.000000", "1.0000"}, {1, "1.00000", "1.000"},          {-9.5, "-9.50000", "-9.500"},
        {10, "10.0000", "10.00"},          {999.9996, "1000.000", "1000.0"}, {1000, "1000.00", "1000."},
        {10000.5, "10000", "10000."},      {0, "0.000000", "0.0000"}};
    for (const auto& [X, Sig6, Sig4] : Cases) {
        CAPTURE(X);
        CHECK(FormatSig6(X) == Sig6);
        CHECK(FormatSig(X, 4) == Sig4);
    }
}

TEST_CASE("the leading number of a text is read, words are none")
{
    const std::tuple<const char*, double> Cases[] = {{"12.5 kg", 12.5}, {"  -3", -3}, {"+4", 4},  {".5", 0.5},
                                                     {"1e3x", 1000},    {"1,5", 1},   {"inf", 0}, {"nan", 0},
                                                     {"", 0},           {"-", 0},     {"abc", 0}, {"1e999", 0}};
    for (const auto& [Text, X] : Cases) {
        CAPTURE(Text);
        CHECK(Val(Text) == X);
    }
    CHECK(!LeadingNumber("x"));
    CHECK(std::signbit(*LeadingNumber("-0.00")));
}

TEST_CASE("a rounded number stays between its limits, whatever it was")
{
    const std::tuple<double, int32_t> Cases[] = {{2.5, 2},   {3.5, 4},        {-7.4, -7},
                                                 {1e300, 9}, {-HUGE_VAL, -9}, {std::nan(""), -9}};
    for (const auto& [X, Whole] : Cases)
        CHECK(RoundWithin(X, -9, 9) == Whole);
}

TEST_CASE("dates read back as they were written")
{
    const std::pair<const char*, const char*> Cases[] = {
        {" 05/11/26", "05/11/26"}, {"1/2/30", "01/02/30"}, {"31/12/1999", "31/12/99"}, {"   ", ""}};
    for (const auto& [Text, Back] : Cases)
        CHECK(FormatDate(ParseDate(Text).value()) == Back);
    CHECK(*ParseDate("01/01/00") == 36526);
    CHECK(*ParseDate("01/01/30") == *DateFromCalendar(1930, 1, 1));
    for (const char* Wrong : {"31/02/24", "12/2024", "a/b/c", "1/1/", "99/99/99999", "1/1/2x"})
        CHECK(!ParseDate(Wrong));
}

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
