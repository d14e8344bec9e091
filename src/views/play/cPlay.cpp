// What is played: objects, cycle time and the step of the clock.
#include "views/play/cPlay.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "platform/mHost.h"
#include "processing/mFilter.h"
#include "processing/mGlobFunc.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {
constexpr int StepsOfCycle = 25; // of the clock, without a video

// The usual time between two samples of gRaw, s; gaps of lost frames and the last row, which keeps its time when the
// others are set to zero, are left out.
double StorePeriod()
{
    const auto Times = gRaw.Channel(0);
    std::vector<double> Steps;
    for (std::size_t i = 0; i + 2 < Times.size(); ++i)
        if (Times[i + 1] > Times[i]) Steps.push_back(Times[i + 1] - Times[i]);
    if (Steps.empty()) return gTimeStep;
    const auto Middle = Steps.begin() + static_cast<std::ptrdiff_t>(Steps.size() / 2);
    std::nth_element(Steps.begin(), Middle, Steps.end());
    const double Usual = *Middle;
    double Sum = 0, Count = 0;
    for (const double Each : Steps) {
        if (Each < Usual / 2 || Each > Usual * 1.5) continue;
        Sum += Each;
        ++Count;
    }
    return Sum / Count;
}
} // namespace

bool cPlay::InitData(const PlayData& Data)
{
    Played = Data;
    Objects.clear();
    Told.clear();
    Offset = LeftOver = 0;
    MatchTime.reset();
    gPlayTime = 0;
    gPlayFrame = gPlayIdx = 0;
    const DescRow& Desc = gFile.Desc[Data.Sample];
    SampleID = Desc.SampleID;
    switch (Data.Mode) {
    case PlayPrimary:
        Title = "Primary Data in " + Data.FileName;
        if (!InitPrimary()) return false;
        break;
    case PlayTypical:
        Title = "Typical Data at Stroke Rate " + FormatNum(Desc.Rate, "0.0");
        break;
    case PlayComplex:
        Title = "Complex Data at Stroke Rate " + FormatNum(Desc.Rate, "0.0");
        break;
    default:
        MsgBox("Wrong Play View parameter", TitleError);
        return false;
    }
    InitClock();
    MakeObjects();
    GoCurTime();
    return true;
}

bool cPlay::Renew()
{
    if (Played.Sample > gFile.Desc.UBound() || gFile.Desc[Played.Sample].SampleID != SampleID) return false;
    Objects.clear();
    Told.clear();
    MakeObjects();
    GoCurTime();
    return true;
}

bool cPlay::InitPrimary()
{
    if (!ZeroTime()) {
        MsgBox("The recording is too short to be played: " + Played.FileName, TitleWarning);
        return false;
    }
    SampleStep = StorePeriod();
    LastTime = gRaw(0, gRaw.UBound() - 1);
    return true;
}

// A video gives the clock its step, and its length is that of its strokes. In PlayComplex all of it is one cycle.
void cPlay::InitClock()
{
    const double Stroke = SafeDiv(60, gFile.Desc[Played.Sample].Rate);
    const bool HasVideo = Played.FrameTime > 0;
    CycleTime = HasVideo && Played.Duration > 0 && Played.Strokes > 0 ? Played.Duration / Played.Strokes : Stroke;
    gPlayStep = HasVideo ? Played.FrameTime : IsPrimary() ? SampleStep : CycleTime / StepsOfCycle;
    if (Played.Mode != PlayComplex) return;
    if (!HasVideo || Played.Frames < 1) Played.Frames = StepsOfCycle;
    CycleTime = Played.Frames * gPlayStep;
}

void cPlay::MakeObjects()
{
    if (gFile.View4.UBound() < 1) Told.emplace_back("The session has no rows in its play view");
    for (int Row = 1; Row <= gFile.View4.UBound(); ++Row) {
        const ViewRow& View = gFile.View4[Row];
        const std::string What = "Row " + FormatNum(Row, "0") + " (" + View.ID + ")";
        PlayRow Made{Row, {}};
        const bool Success = Guard(What, Told, [&] {
            Made.Plot.InitViewID(Row, Played.Mode, Played.Sample, SampleStep);
            if (Made.Plot.IsFigure() && !IsPrimary()) Made.Figure.emplace().InitViewID(Row, Played.Sample);
            return true;
        });
        if (!Success || !Made.Plot.Visible()) continue;
        if (Made.Plot.IsFigure() && !Made.Figure) continue; // a figure moves in a cycle only
        if (Made.Figure)
            for (const std::string& Note : Made.Figure->Notes())
                Told.push_back(What + ": " + Note);
        else
            CheckArguments(What, View);
        Objects.push_back(std::move(Made));
    }
}

// An argument without values counts as 0. The name None says that this is meant.
void cPlay::CheckArguments(const std::string& What, const ViewRow& Row)
{
    const auto Names = SplitStr(Row.Arguments);
    for (std::size_t Arg = Row.Oper == OperArower ? 0 : 1; Arg < Names.size(); ++Arg) {
        if (Names[Arg].empty() || Names[Arg] == "None") continue;
        const bool HasChannel = FindChan(gFile.Calibr, Names[Arg]) >= 1;
        if (!HasChannel)
            Told.push_back(What + ": the session has no channel " + Names[Arg] + ", which counts as 0 here");
        else if (!IsPrimary() && FindData(gFile.Data, gFile.Desc[Played.Sample].SampleID, Names[Arg]) < 1)
            Told.push_back(What + ": the sample has no values of " + Names[Arg] + ", which counts as 0 here");
    }
}

void cPlay::SetDrawScale(const PlotRect& Area, double Pixel)
{
    for (PlayRow& Each : Objects) {
        Each.Plot.SetScales(Area);
        if (Each.Figure) Each.Figure->SetScales(Each.Plot.Rect(), Pixel);
    }
}
