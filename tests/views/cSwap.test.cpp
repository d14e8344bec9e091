// Corrections of stored samples: what each touches, what it passes over, and taking it back.
#include "views/samples/cSwap.h"
#include "base/mError.h"
#include "support/ScriptedDialogs.h"

#include <doctest/doctest.h>

#include <functional>

namespace {
// Two samples of A1, H1, A2; the values are 10 x sample + row, all 51 equal.
void MakeSession()
{
    for (const char* Param : {"A1", "H1", "A2"}) {
        CalibrRow& Row = gFile.Calibr.Grow();
        Row.ParamID = Param;
        Row.Seat = static_cast<int16_t>(Param[1] - '0');
        Row.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
    }
    for (int Sample = 1; Sample <= 2; ++Sample) {
        const std::string ID = "S" + std::to_string(Sample);
        gFile.Desc.Grow().SampleID = ID;
        for (int Chan = 1; Chan <= 3; ++Chan) {
            DataRow& Row = gFile.Data.Grow();
            Row.SampleID = ID;
            Row.ParamID = gFile.Calibr[Chan].ParamID;
            Row.Seat = gFile.Calibr[Chan].Seat;
            Row.Values.assign(51, 10 * Sample + Chan);
        }
    }
}

std::string State()
{
    std::string Text;
    for (const CalibrRow& Row : gFile.Calibr)
        Text += Row.ParamID + ":" + std::to_string(Row.Seat) + " ";
    for (const DataRow& Row : gFile.Data)
        Text += "| " + Row.ParamID + ":" + std::to_string(Row.Seat) + "=" +
                std::to_string(static_cast<int>(Row.Values[0] * 2)) + "," +
                std::to_string(static_cast<int>(Row.Values.back() * 2)) + " ";
    return Text;
}
} // namespace

TEST_CASE_FIXTURE(FreshState, "each correction touches the rows it should, leaves the last row alone and is undone")
{
    constexpr const char* Before = "A1:1 H1:1 A2:2 | A1:1=22,22 | H1:1=24,24 | A2:2=26,26 "
                                   "| A1:1=42,42 | H1:1=44,44 | A2:2=46,46 ";
    struct
    {
        const char* What;
        const char* With;
        const char* AverTo;
        std::function<std::string(cSwap&)> Command;
        const char* Told;
        const char* After;
    } const Cases[] = {
        {"H1", "", "", [](cSwap& S) { return S.OffScale('O', 0.5); }, "H1 was offsetted 0.5 2 times.",
         "A1:1 H1:1 A2:2 | A1:1=22,22 | H1:1=25,25 | A2:2=26,26 | A1:1=42,42 | H1:1=45,45 | A2:2=46,46 "},
        {"A2", "", "", [](cSwap& S) { return S.OffScale('S', -2); }, "A2 was scaled -2 1 times.",
         "A1:1 H1:1 A2:2 | A1:1=22,22 | H1:1=24,24 | A2:2=-52,-52 | A1:1=42,42 | H1:1=44,44 | A2:2=46,46 "},
        {"1", "2", "", [](cSwap& S) { return S.Swap(); }, "Seat 1 was swapped with Seat 2 7 times.",
         "A1:2 H1:2 A2:2 | A1:2=22,22 | H1:2=24,24 | A2:1=26,26 | A1:2=42,42 | H1:2=44,44 | A2:2=46,46 "},
        {"A2", "A9", "", [](cSwap& S) { return S.Rename(); }, "A2 was renamed with A9 2 times.",
         "A1:1 H1:1 A9:2 | A1:1=22,22 | H1:1=24,24 | A9:2=26,26 | A1:1=42,42 | H1:1=44,44 | A9:2=46,46 "},
        {"A1", "H1", "", [](cSwap& S) { return S.Replace(); }, "A1 was replaced with H1 2 times.",
         "A1:1 H1:1 A2:2 | A1:1=24,24 | H1:1=24,24 | A2:2=26,26 | A1:1=44,44 | H1:1=44,44 | A2:2=46,46 "},
        {"A1", "H1", "A2", [](cSwap& S) { return S.Average(); }, "A1 was averaged with H1 1 times.",
         "A1:1 H1:1 A2:2 | A1:1=22,22 | H1:1=24,24 | A2:2=23,23 | A1:1=42,42 | H1:1=44,44 | A2:2=46,46 "},
        {"Zz", "H1", "", [](cSwap& S) { return S.Replace(); }, "Zz was replaced with H1 0 times.", Before},
    };
    MakeSession();
    for (const auto& Case : Cases) {
        CAPTURE(Case.Told);
        cSwap Swap;
        Swap.What = Case.What;
        Swap.With = Case.With;
        Swap.AverTo = Case.AverTo;
        CHECK(Case.Command(Swap) == Case.Told);
        CHECK(State() == Case.After);
        CHECK(Swap.IsChanged() == (State() != Before));
        CHECK(Swap.Undo());
        CHECK(State() == Before);
        CHECK_FALSE(Swap.IsChanged());
        CHECK_FALSE(Swap.Undo());
    }
    cSwap Swap;
    Swap.What = "H1";
    CHECK(Swap.OffScale('S', 1e308).ends_with(" takes H1 beyond the range of numbers: nothing was changed."));
    Swap.With = "99999";
    CHECK(Swap.Swap() == "There is no seat 99999: nothing was changed.");
    CHECK(State() == Before);
    Swap.OffScale('S', 3);
    gFile.Data.Grow().SampleID = "recorded since";
    CHECK_FALSE(Swap.Undo());
    CHECK(gFile.Data.UBound() == 7);
}

TEST_CASE_FIXTURE(FreshState, "a pattern that is too short fails the correction and changes nothing")
{
    MakeSession();
    gFile.Data[5].Values.resize(50);
    const std::string Before = State();
    cSwap Swap;
    Swap.What = "H1";
    CHECK_THROWS_AS(Swap.OffScale('S', 3), RunError);
    CHECK(State() == Before);
    CHECK(gFile.Data[2].Values[0] == 12);
    CHECK_FALSE(Swap.IsChanged());
}
