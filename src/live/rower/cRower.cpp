// The rower's panel, sample by sample and stroke by stroke.
#include "live/rower/cRower.h"

#include "base/mNumText.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "files/mBinIO.h"
#include "platform/mHost.h"
#include "records/mTargets.h"

#include <algorithm>

namespace {
constexpr int RingSize = 255; // the trace's last place is never reached
constexpr int TargetWidth = 4;
constexpr int HintFont = 16;
constexpr int32_t Black = 0;
} // namespace

void cRower::Load(int16_t Source)
{
    Mode = Source;
    gDeltaT = gFile.TimeStep;
    if (Mode == SourceFrames) gTimeStep = gDeltaT;
    Panel.DrawWidth = gDrawWidth;
    Plots.clear();
    for (int Row = 1; Row <= gFile.View1.UBound(); ++Row)
        Plots.emplace_back(Panel).InitViewID(Row, Mode);
    KeyThresh = gFile.KeyThres;
    LoadFactorSettings();
    FindSeat();
    KeyChan = gKeyChan;
    KeyBad = KeyChan < 1 || KeyChan > gFile.ChanCnt || KeyChan > gFile.Calibr.UBound() || KeyChan > LastDataChan;
    if (!KeyBad) {
        KeyQ0 = gFile.Calibr[KeyChan].Q0;
        KeyQ1 = gFile.Calibr[KeyChan].Q1;
    }
    PrevIdx = CurIdx = 0;
    NextIdx = 1;
    gFirstCycle = true;
    HasKeys = false;
    TimeText = RateText = FormatNum(0, "00.0");
    StrokesText = FormatNum(0, "000");
    InitTargCurves();
}

// The first channel named as a seat's; the last row is not looked at.
void cRower::FindSeat()
{
    for (int Row = 1; Row < gFile.Calibr.UBound(); ++Row) {
        if (!gFile.Calibr[Row].ParamID.starts_with('S')) continue;
        gSeatChan = static_cast<int16_t>(Row);
        return;
    }
}

// This panel has bands of its own for keys that the store does not hold.
void cRower::LoadFactorSettings()
{
    const auto Stored = [](const char* Key) {
        LoadSetting(Key);
        return gHost.Settings->GetSetting("Models", Key).has_value();
    };
    LoadSetting("gRSFmode");
    LoadSetting("gRSFval0");
    LoadSetting("gRSFval1");
    if (!Stored("gCFLow")) gCFLow = -35;
    if (!Stored("gCFHigh")) gCFHigh = -15;
    if (!Stored("gRSFLow")) gRSFLow = 85;
    if (!Stored("gRSFHigh")) gRSFHigh = 100;
}

bool cRower::InitMode(const std::string& RawPath) const
{
    gFrameCnt = 0;
    if (Mode == SourceTimer) gDeltaT = gTimeStep;
    if (!IsTableSource(Mode)) return true;
    int32_t Start = 0;
    int32_t Stop = 0;
    return ReadRawFile(RawPath, Start, Stop);
}

void cRower::Resize()
{
    Clear();
    for (cData01real& Plot : Plots)
        Plot.SetScales();
    InitTargCurves();
    DrawTargets();
    for (cData01real& Plot : Plots)
        Plot.DrawAgain(PrevIdx);
}

// The panel's first frames, whose link may have been opened behind it with another sampling period, or frames that are
// counted anew, for a replay or another link: their first stroke is none of the run before.
void cRower::Restart()
{
    const double Step = gDeltaT;
    Load(Mode);
    if (gFrameCnt > 1) gDeltaT = Step; // measured already
    Resize();
}

void cRower::Clear()
{
    Panel.Surface->Clear(gRGB[0]);
    if (!Plots.empty()) return;
    const SurfacePoint Size = Panel.Surface->Size();
    Panel.Surface->SetPen(Black);
    Panel.Surface->SetFont(HintFont);
    Panel.Surface->Text(Size.X / 2.0, Size.Y / 2.0, "The session has no rows of View1 to draw.", eAlign::Centre);
}

// A stroke's first sample is drawn with the ring already begun anew, from the last point of the trace before.
void cRower::DrawData()
{
    if (gFrameCnt < FramesSeen || (FramesSeen == 0 && gFrameCnt > 0)) Restart();
    FramesSeen = gFrameCnt;
    TimeText = FormatNum(SampleTime(), "00.0");
    IsNewStroke = CheckCycle();
    if (IsNewStroke) {
        RateText = FormatNum(gRate, "00.0");
        StrokesText = FormatNum(gStrokeCnt, "000");
        Clear();
        CurIdx = 0;
        NextIdx = 1;
        for (cData01real& Plot : Plots)
            Plot.DrawScales();
        DrawTargets();
    }
    for (cData01real& Plot : Plots)
        Plot.DrawData(PrevIdx, CurIdx, IsNewStroke);
    PrevIdx = CurIdx;
    CurIdx = NextIdx;
    NextIdx = (NextIdx + 1) % RingSize;
}

double cRower::SampleTime() const
{
    const bool HasRow = IsTableSource(Mode) && gPlayIdx >= 0 && gPlayIdx <= gRaw.UBound();
    return HasRow ? gRaw(0, gPlayIdx) : gSampleTime;
}

// The key is a straight line of the count whatever the channel's conversion; the table holds it converted.
double cRower::KeyValue() const
{
    const bool HasRow = KeyChan <= gRaw.ChannelUBound() && gPlayIdx >= 0 && gPlayIdx <= gRaw.UBound();
    if (IsTableSource(Mode)) return HasRow ? gRaw(KeyChan, gPlayIdx) : KeyPrev;
    return gData[static_cast<std::size_t>(KeyChan)] * KeyQ1 + KeyQ0;
}

// The first key value after the panel was opened has none to be compared with.
bool cRower::CheckCycle()
{
    if (KeyBad) return false;
    const double Key = KeyValue();
    if (!HasKeys) KeyPrev = Key;
    if (!HasKeys) KeyPrev2 = Key;
    HasKeys = true;
    const bool Found = IsStart(Key);
    if (Found) CountCycle();
    KeyPrev2 = KeyPrev;
    KeyPrev = Key;
    return Found;
}

// There is no filter here: a noisy key in the peak modes starts a stroke at every wiggle.
bool cRower::IsStart(double Key) const
{
    const double Thresh = Wide(KeyThresh);
    switch (gKeyMode) {
    case KeyDecreasing:
        return KeyPrev > Thresh && Key <= Thresh;
    case KeyIncreasing:
        return KeyPrev <= Thresh && Key > Thresh;
    case KeyMinimum:
        return KeyPrev2 > KeyPrev && KeyPrev < Key;
    case KeyMaximum:
        return KeyPrev2 < KeyPrev && KeyPrev > Key;
    default:
        return false;
    }
}

void cRower::CountCycle()
{
    const double Time = SampleTime();
    if (gFirstCycle) {
        gFirstCycle = false;
        Figures = {};
    } else {
        Figures.StrokeCnt = ToInt16(Figures.StrokeCnt + 1);
        Figures.CycleTime = Time - LastCycleTime;
        Figures.CycleSum += Figures.CycleTime;
    }
    LastCycleTime = Time;
    gStrokeCnt = Figures.StrokeCnt;
    gCycleTime = Figures.CycleTime;
    gCycleSum = Figures.CycleSum;
    gRate = SafeDiv(60, gCycleTime);
    gRateAver = SafeDiv(gStrokeCnt * 60, gCycleSum);
}

// Curves are kept in unit form: the target's catch angle, total angle and peak force give them their size.
void cRower::InitTargCurves()
{
    TargPts.clear();
    constexpr std::size_t CatchAngle = 0, TotalAngle = 2, PeakForce = 4;
    if ((gIsTargVals & gIsTargCurves) == 0 || gFile.View1.UBound() < 1) return;
    if (gCurves.empty() || gTarget.Values.size() <= PeakForce) return;
    const ViewRow& View = gFile.View1[1];
    const double XRange = Wide(View.MaxXPar) - Wide(View.MinXPar);
    const double YRange = Wide(View.MaxYPar) - Wide(View.MinYPar);
    if (XRange == 0 || YRange == 0) return;
    const SurfacePoint Size = Panel.Surface->Size();
    TargPts.resize(gCurves.front().Values.size());
    for (const CurveRow& Curve : gCurves) {
        for (std::size_t i = 0; i < std::min(TargPts.size(), Curve.Values.size()); ++i) {
            const double Angle = gTarget.Values[TotalAngle] * Curve.Values[i] + gTarget.Values[CatchAngle];
            const double Force = gTarget.Values[PeakForce] * Curve.Values[i];
            if (Curve.Name == "A") TargPts[i].X = ToUnit((Angle - Wide(View.MinXPar)) * (Size.X / XRange)).value_or(0);
            if (Curve.Name == "F")
                TargPts[i].Y = ToUnit(Size.Y - (Force - Wide(View.MinYPar)) * (Size.Y / YRange)).value_or(0);
        }
    }
}

// The pen stays as wide as the targets for the curves that are drawn over them.
void cRower::DrawTargets()
{
    if (gIsTargCurves == 0) return;
    Panel.DrawWidth = TargetWidth;
    Panel.Surface->SetPen(Black, Panel.DrawWidth);
    for (std::size_t i = 0; i + 1 < TargPts.size(); ++i)
        Panel.Surface->Line(TargPts[i].X, TargPts[i].Y, TargPts[i + 1].X, TargPts[i + 1].Y);
}

eRowerWish cRower::DoAction(int Code)
{
    if (Code == PlayClose) return eRowerWish::Close;
    if (Code < PlayToStart || Code == PlayPause || Code > PlayClose) return eRowerWish::None;
    FindTimeIdx(gPlayTime);
    DrawData();
    return eRowerWish::None;
}

eRowerWish cRower::PressSpace() const
{
    if (Mode == SourceTimer) return eRowerWish::StartLog;
    return Mode == SourceFrames ? eRowerWish::ToggleReplay : eRowerWish::None;
}

void cRower::Unload()
{
    gDeltaT = gTimeStep;
}
