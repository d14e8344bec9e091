// The rower's panel, sample by sample and stroke by stroke.
#include "live/rower/cRower.h"

#include "base/mNumText.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "files/mBinIO.h"
#include "platform/mHost.h"

void cRower::Load(int16_t Source)
{
    Mode = Source;
    gDeltaT = gFile.TimeStep;
    if (Mode == SourceFrames) gTimeStep = gDeltaT;
    Traces.Load(Mode);
    KeyThresh = gFile.KeyThres;
    LoadFactorSettings();
    FindSeat();
    KeyChan = gKeyChan;
    KeyBad = KeyChan < 1 || KeyChan > gFile.ChanCnt || KeyChan > gFile.Calibr.UBound() || KeyChan > LastDataChan;
    if (!KeyBad) {
        KeyQ0 = gFile.Calibr[KeyChan].Q0;
        KeyQ1 = gFile.Calibr[KeyChan].Q1;
    }
    gFirstCycle = IsFirstCycle = true;
    HasKeys = false;
    IsNewStroke = false;
    Figures = {};
    Newest = 0;
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

void cRower::NewRun()
{
    const double Step = gDeltaT;
    Load(Mode);
    if (gFrameCnt > 1) gDeltaT = Step; // measured already
}

void cRower::TakeSample()
{
    if (Run.IsNewRun()) NewRun();
    IsFirstCycle = IsFirstCycle || gFirstCycle;
    Newest = SampleTime();
    IsNewStroke = CheckCycle();
    Traces.TakeSample(IsNewStroke);
}

std::string cRower::TimeText() const
{
    return FormatNum(Newest, "00.0");
}

std::string cRower::RateText() const
{
    return FormatNum(Figures.Rate, "00.0");
}

std::string cRower::StrokesText() const
{
    return FormatNum(Figures.StrokeCnt, "000");
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
    if (IsFirstCycle) {
        gFirstCycle = IsFirstCycle = false;
        Figures = {};
    } else {
        Figures.StrokeCnt = ToInt16(Figures.StrokeCnt + 1);
        Figures.CycleTime = Newest - LastCycleTime;
        Figures.CycleSum += Figures.CycleTime;
        Figures.Rate = SafeDiv(60, Figures.CycleTime);
    }
    LastCycleTime = Newest;
    gStrokeCnt = Figures.StrokeCnt;
    gCycleTime = Figures.CycleTime;
    gCycleSum = Figures.CycleSum;
    gRate = Figures.Rate;
    gRateAver = SafeDiv(gStrokeCnt * 60, gCycleSum);
}

void cRower::Unload() const
{
    gDeltaT = gTimeStep;
}
