// The workbench's state: what is typed and chosen, and the frames that become points.
#include "calibration/cCalibr.h"

#include "acquisition/mComFast.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "platform/mHost.h"

#include <algorithm>

namespace {
constexpr const char* Keys[] = {"gAutoCalibr", "fTorque", "fXisLog", "fAutoAxes", "fApproxMode", "fCutOff"};

int16_t& FlagOf(eCalFlag Index)
{
    int16_t* const Flags[] = {&gAutoCalibr, &fXisLog, &fAutoAxes, &fTorque};
    return *Flags[Index];
}
} // namespace

cCalibr::cCalibr()
{
    for (const char* Key : Keys)
        LoadSetting(Key);
    LoadSetting("gAutoSwitchCal");
    if (fApproxMode < ApproxLinear || fApproxMode > ApproxRefTable) fApproxMode = ApproxOneLine;
    mBoxes[BoxCutOff] = FormatNum(fCutOff * 100, "0");
    SetCalGr();
}

void cCalibr::KeepSettings() const
{
    for (const char* Key : Keys)
        SaveSetting(Key);
}

std::string cCalibr::Caption() const
{
    return gAutoCalibr ? "Auto-Calibration with channel #" + FormatNum(gAutoCalCh, "0") : "Manual Calibration";
}

bool cCalibr::Flag(eCalFlag Index) const
{
    return FlagOf(Index) != 0;
}

eApprox cCalibr::Approx() const
{
    return static_cast<eApprox>(fApproxMode);
}

std::string cCalibr::CountText() const
{
    const std::size_t Count = Points().size();
    std::string Text = FormatNum(static_cast<double>(Count), "0") + (Count == 1 ? " point" : " points");
    if (mPoints.IsModified() && !mPoints.IsEmpty()) Text += ", not saved";
    if (mFit.IsOutdated()) Text += ", newer than the analysis";
    return Text;
}

std::string cCalibr::State() const
{
    return mTaking.State(CountText(), mBoxes[BoxChan].empty());
}

CalibrRow* cCalibr::Row() const
{
    return mChan >= 1 && mChan <= gFile.Calibr.UBound() ? &gFile.Calibr[mChan] : nullptr;
}

bool cCalibr::HasChannel() const
{
    if (Row() && mChan <= LastDataChan) return true;
    MsgBox("The session has no channel " + FormatNum(mChan, "0") + ": type the number of one of its channels.",
           TitleInformation);
    return false;
}

void cCalibr::SetBox(eCalBox Index, const std::string& Text)
{
    mBoxes[Index] = Text;
    if (Index == BoxPhys) mTypedPhys = Text;
    if (Index == BoxCutOff) fCutOff = Val(Text) / 100;
}

void cCalibr::SetFlag(eCalFlag Index, bool On)
{
    FlagOf(Index) = On ? 1 : 0;
    if (Index == FlagAutomatic) SaveSetting("gAutoCalibr"); // which the options show
    if (Index == FlagXisLog || Index == FlagAutoAxes) return mPoints.BeginAxes(Row());
    mTaking.Choose(mChan, Val(mTypedPhys));
}

void cCalibr::SetApprox(eApprox Mode)
{
    fApproxMode = Mode;
}

bool cCalibr::TakeChan(double Number)
{
    const int16_t Former = mChan;
    mChan = static_cast<int16_t>(std::clamp(RoundHalfEven(Number), 0.0, 32767.0));
    const bool IsThere = HasChannel();
    if (!IsThere) mChan = Former;
    mBoxes[BoxChan] = FormatNum(mChan, "0");
    if (IsThere) ShowLimits();
    return IsThere;
}

void cCalibr::ShowLimits()
{
    mArrMin = FormatNum(Row()->Min, "0.0");
    mArrMax = FormatNum(Row()->Max, "0.0");
}

bool cCalibr::StartData()
{
    const int16_t Former = mChan;
    if (!TakeChan(Val(mBoxes[BoxChan]))) return false;
    if (mChan != Former) AskForPointsOf(Former);
    mSensID = Row()->SensorID;
    mPoints.BeginAxes(Row());
    return mTaking.Begin(mChan, Val(mTypedPhys));
}

// Points of two channels would give a line of neither.
void cCalibr::AskForPointsOf(int16_t Former)
{
    if (mPoints.IsEmpty() || !AskYesNo("The points are those of channel " + FormatNum(Former, "0") +
                                           ". Do you want to delete them before another one is calibrated?",
                                       TitleWarning))
        return;
    mPoints.DeleteAll({Former, mSensID});
    mFit.Drop();
}

bool cCalibr::TakeSample()
{
    if (!mTaking.IsOn()) return false;
    mTaking.TakeSample(mChan);
    const bool IsPoint = mTaking.IsAutoRun() && PutDataPoint();
    if (mTaking.IsAutoRun()) mBoxes[BoxPhys] = FormatNum(mTaking.CalibratorValue(), "0.00");
    mBoxes[BoxLog] = FormatNum(mTaking.Log(), "0");
    return IsPoint;
}

bool cCalibr::PutDataPoint()
{
    if (!mTaking.CanPut()) return false;
    mPoints.Add({mTaking.Log(), gAutoCalibr ? mTaking.CalibratorValue() : Val(mBoxes[BoxPhys])});
    mFit.SetOutdated();
    ShowNumbers();
    return true;
}

bool cCalibr::Space()
{
    if (!gAutoCalibr) return PutDataPoint();
    mTaking.ToggleAutoRun();
    return false;
}

void cCalibr::StopData()
{
    mTaking.Stop();
    if (gLinkWatch.State() != cLinkWatch::eState::Closed) CloseLink();
    Analyse0();
}

bool cCalibr::CheckModified() const
{
    return !mPoints.IsModified() ||
           AskYesNo("The calibration data was modified. Do you realy want to discard it?", "Warning");
}
