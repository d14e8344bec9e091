// Numbers of a selection by the stroke statistics.
#include "views/data/mSelNumbers.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "processing/mProcess.h"
#include "views/data/cDataBands.h"

const std::array<const char*, 13> SelLabels = {"",          "",         "",      "Time (s)", "Strokes",         "Rate",
                                               "Variation", "Dist (m)", "Speed", "Proc.",    "Proc.Strokes(%)", "",
                                               "FilterSD"};

std::optional<SelTexts> SelectionNumbers(int32_t Start, int32_t Stop)
{
    if (gKeyChan < 1 || gKeyChan > gRaw.ChannelUBound()) return {};
    KeyWindow Win = WindowAt(Start);
    const auto All = CycleStats(Win, Start, Stop);
    if (!PublishStats(All)) return {};
    SelTexts Texts;
    const double Duration = gRaw(0, Stop) - gRaw(0, Start);
    Texts[1] = FormatNum(gRaw(0, Start), "0.0");
    Texts[2] = FormatNum(gRaw(0, Stop), "0.0");
    Texts[3] = FormatNum(Duration, "0.0");
    Texts[4] = FormatNum(All->Cnt, "0");
    Texts[5] = FormatNum(SafeDiv(60, All->Mean), "0.0");
    Texts[6] = FormatNum(SafeDiv(All->SD, All->Mean), "0.0%");
    const auto Dist = DistTexts(Start, Stop);
    Texts[7] = Dist[0];
    Texts[8] = Dist[1];
    const CycleFigures Good = CycleStatsInRange(Win, *All, Start, Stop).value_or(CycleFigures{});
    Texts[9] = FormatNum(Good.Cnt, "0");
    Texts[10] = FormatNum(SafeDiv(Good.Cnt, All->Cnt), "0.0%");
    Texts[11] = FormatNum(SafeDiv(60, Good.Mean), "0.0");
    Texts[12] = FormatNum(SafeDiv(Good.SD, Good.Mean), "0.0%");
    return Texts;
}

std::string GapNote(int32_t Start, int32_t Stop)
{
    constexpr double LeastSteps = 10;
    const double MeanStep = SafeDiv(gRaw(0, Stop) - gRaw(0, Start), Stop - Start);
    double Longest = LeastSteps * MeanStep;
    std::string Note;
    for (int32_t i = Start; i < Stop; ++i) {
        const double Step = gRaw(0, i + 1) - gRaw(0, i);
        if (Step <= Longest) continue;
        Longest = Step;
        Note = "No samples for " + FormatNum(Step, "0.0") + " s behind " + FormatNum(gRaw(0, i), "0.0") +
               " s: they count as part of a stroke";
    }
    return Note;
}

bool FindAllStrokes(int32_t& Start, int32_t& Stop)
{
    const int32_t Last = gRaw.UBound() - 1;
    int32_t Cur = 0;
    double Time = 0;
    KeyWindow Win = WindowAt(0);
    if (!DetectCycle(Win, Cur, Last, Time)) return false;
    Start = Stop = Cur;
    while (DetectCycle(Win, Cur, Last, Time))
        if (Cur <= Last) Stop = Cur;
    return true;
}

std::array<std::string, 2> DistTexts(int32_t Start, int32_t Stop)
{
    const auto Dist = SelectionDist(Start, Stop);
    if (!Dist) return {};
    return {FormatNum(*Dist, "0.0"), FormatNum(SafeDiv(*Dist, gRaw(0, Stop) - gRaw(0, Start)), "0.00")};
}

std::optional<double> SelectionDist(int32_t Start, int32_t Stop)
{
    if (Stop == 0) Stop = gRaw.UBound();
    if (gDist.empty() || Start < gDistStart || Stop > gDistStop) return {};
    return At(gDist, Stop) - At(gDist, Start);
}
