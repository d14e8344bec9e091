// Runs over stretches of the sample store.
#include "views/data/mViewProc.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "processing/mNorm.h"
#include "processing/mProcess.h"
#include "processing/mSample.h"

#include <algorithm>
#include <limits>

namespace {
float SplitLength(std::size_t k)
{
    return k < gSplitsArr.size() ? static_cast<float>(gSplitsArr[k]) : 0;
}

// A run that accepts no stroke cannot be averaged: it is not begun, and nothing is written.
bool IsBandEmpty(int32_t Start, int32_t Stop)
{
    if (gKeyChan < 1 || gKeyChan > gRaw.ChannelUBound()) return false;
    if (Stop == 0) Stop = gRaw.UBound();
    KeyWindow Win = WindowAt(Start);
    const auto All = CycleStats(Win, Start, Stop);
    if (!PublishStats(All) || CycleStatsInRange(Win, *All, Start, Stop)) return false;
    ReportEmptyBand();
    return true;
}

bool RunAndSave(const ViewData& Data, int32_t Start, int32_t Stop)
{
    // Whatever was scanned before, the same stretch gives the same sample.
    KeyWindow Win = WindowAt(Start);
    if (!ProcessCycles(Win, Start, Stop, 1)) return false;
    if (gProcRuns == 2 && !ProcessCycles(Win, Start, Stop, 2)) return false;
    if (gProcRuns != 1 && gProcRuns != 2) {
        MsgBox("The number of processing runs is neither 1 nor 2: no sample is stored.", TitleInformation);
        return false;
    }
    SaveNormSample(gProcRuns, "Sample ");
    DescRow& Sample = gFile.Desc[gFile.Desc.UBound()];
    (Data.Mode == DataPrimary ? Sample.PrimFN : Sample.RawFN) = Data.FileName;
    return true;
}
} // namespace

bool ProcSel(const ViewData& Data, const ProcStretch& Stretch)
{
    constexpr double SecondsInMinute = 60;
    if (IsBandEmpty(Stretch.Start, Stretch.Stop)) return false;
    const bool IsMade = RunAndSave(Data, Stretch.Start, Stretch.Stop);
    if (gFile.Desc.UBound() < 1) return false;
    DescRow& Row = gFile.Desc[gFile.Desc.UBound()];
    Row.Start = gScanStart / SecondsInMinute;
    Row.Finish = gScanStop / SecondsInMinute;
    Row.TimeReal = Stretch.Time;
    Row.DistReal = gErgoMode == 0 && Stretch.Rowed ? *Stretch.Rowed : Stretch.Dist;
    const bool IsWritten = WriteSession();
    if (!IsMade && IsWritten)
        MsgBox("No sample was made, but start, finish, distance and time were written into sample " + Row.SampleID +
                   ", the last one. The session as it was before is in its .bak file.",
               TitleWarning);
    UpdateProgress(0);
    return IsMade && IsWritten;
}

// Times and limits in single precision on both sides: a sample that lies on a limit is not above it.
std::vector<int32_t> FillSplits()
{
    std::vector<int32_t> Bounds(static_cast<std::size_t>(std::max<int16_t>(gSplitsCnt, 0)) + 1, 0);
    if (gSplitPar != SplitTime || gSplitsCnt < 1) return Bounds;
    float Limit = SplitLength(1);
    std::size_t k = 1;
    for (int32_t i = 0; i <= gRaw.UBound(); ++i) {
        if (static_cast<float>(gRaw(0, i)) <= Limit) continue;
        Bounds[k++] = i;
        if (k == Bounds.size()) return Bounds;
        Limit += SplitLength(k);
    }
    Bounds[k] = std::max(gRaw.UBound(), 0);
    return Bounds;
}

bool ProcSplits(const ViewData& Data, const ProcStretch& Typed,
                const std::function<std::optional<double>(int32_t, int32_t)>& Rowed)
{
    for (const Setting& Item : AllSettings())
        if (Item.Section == "AutoSplit") LoadSetting(Item.Key);
    const std::vector<int32_t> Bounds = FillSplits();
    if (Bounds.size() < 2) {
        MsgBox("There are no splits: set their number and durations in the options.", TitleInformation);
        return false;
    }
    bool IsMade = true;
    for (std::size_t k = 1; k < Bounds.size(); ++k) {
        ProcStretch Stretch = Typed;
        Stretch.Start = Bounds[k - 1];
        Stretch.Stop = Bounds[k];
        Stretch.Rowed = Rowed(Stretch.Start, Stretch.Stop);
        IsMade = ProcSel(Data, Stretch) && IsMade;
    }
    return IsMade;
}

bool ProcStart(int32_t Start)
{
    const std::string Answer = InputBox("Number of strokes to process:", "Input Data", "8");
    if (Answer.empty()) return false;
    constexpr double All = std::numeric_limits<int16_t>::max();
    const auto Count = static_cast<int16_t>(std::clamp(RoundHalfEven(Val(Answer)), 0.0, All));
    const int Before = gFile.Desc.UBound();
    KeyWindow Win = WindowAt(Start);
    ProcessStrokes(Win, Start, Count);
    UpdateProgress(0);
    return gFile.Desc.UBound() > Before && WriteSession();
}

bool PlotProc(int32_t Start, int32_t Stop)
{
    if (IsBandEmpty(Start, Stop)) return false;
    KeyWindow Win = WindowAt(Start);
    if (!ProcessCycles(Win, Start, Stop, 1)) return false;
    if (gProcRuns == 2) return ProcessCycles(Win, Start, Stop, 2);
    CopyRun1();
    return true;
}
