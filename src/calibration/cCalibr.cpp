// The workbench's state: what is typed and chosen, and the frames that become points.
#include "calibration/cCalibr.h"

#include "acquisition/mComFast.h"
#include "base/mNumText.h"
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

bool IsLinkOpen()
{
    return gLinkWatch.State() == cLinkWatch::eState::Open;
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
    std::string Text =
        FormatNum(static_cast<double>(mPoints.size()), "0") + (mPoints.size() == 1 ? " point" : " points");
    if (mModified && !mPoints.empty()) Text += ", not saved";
    if (mAnalysis.IsDone && mIsOutdated) Text += ", newer than the analysis";
    return Text;
}

std::string cCalibr::State() const
{
    const std::string Count = CountText();
    const cLinkWatch::eState Link = gLinkWatch.State();
    if (Link == cLinkWatch::eState::Closed)
        return std::string("The link is closed; Do Calibration in the menu opens it") +
               (mTaking ? ", then data come. " : ". ") + Count + ". " + (mTaking ? "" : "Enter takes the channel, ") +
               "Escape leaves.";
    if (Link != cLinkWatch::eState::Open)
        return (Link == cLinkWatch::eState::Lost ? "The link is lost and is being taken up again. "
                                                 : "The link is being made. ") +
               Count + ". " + (mTaking ? "" : "Enter starts the data, ") + "Escape stops.";
    if (!mTaking)
        return "The link is open. " + Count + ". " + (mBoxes[BoxChan].empty() ? "Type the channel: " : "") +
               "Enter starts the data, Escape stops.";
    if (!mHasFrame || gLinkWatch.IsSilent()) return "No data are coming. " + Count + ". Escape stops.";
    const std::string Space = !gAutoCalibr ? "Enter and Space take a point"
                              : mAutoRun   ? "Each frame is a point: Space ends that"
                                           : "Enter takes a point, Space takes each frame";
    return "Data are coming. " + Count + ". " + Space + ", Escape stops.";
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

bool cCalibr::HasCalibrator() const
{
    if (!gAutoCalibr || (gAutoCalCh >= 1 && gAutoCalCh <= LastDataChan)) return true;
    MsgBox("There is no automatic calibrator: calibrate a channel and press \"Set as Auto-Calibr\" first.",
           TitleInformation);
    return false;
}

// A lever of 0 would make every physical value 0.
bool cCalibr::HasLever() const
{
    if (!gAutoCalibr || !fTorque || Val(mTypedPhys) != 0) return true;
    MsgBox("Torque needs the lever: type it as Physical Value before the data are started.", TitleInformation);
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
    if (Index == FlagXisLog || Index == FlagAutoAxes) return TakeAxes();
    mAutoRun = false;
    if (!mTaking) return;
    TakeMode();
    mTaking = HasCalibrator() && HasLever();
}

void cCalibr::SetApprox(eApprox Mode)
{
    fApproxMode = Mode;
}

// The calibrator or the typed value, and the lever.
void cCalibr::TakeMode()
{
    if (gAutoCalibr) {
        if (gAutoSwitchCal) SelectCalibrSens(mChan);
        mAutoQ0 = gAutoCalQ0;
        mAutoQ1 = gAutoCalQ1;
    } else
        mPhys = Val(mBoxes[BoxPhys]);
    if (fTorque) mLever = Val(mTypedPhys);
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
    mTaking = mHasFrame = false;
    mSensID = Row()->SensorID;
    TakeAxes();
    TakeMode();
    return mTaking = HasCalibrator() && HasLever();
}

// Points of two channels would give a line of neither.
void cCalibr::AskForPointsOf(int16_t Former)
{
    if (!mPoints.empty() && AskYesNo("The points are those of channel " + FormatNum(Former, "0") +
                                         ". Do you want to delete them before another one is calibrated?",
                                     TitleWarning)) {
        DelAllPoints();
        mUndoChan = Former;
    }
}

bool cCalibr::DrawData()
{
    if (!mTaking) return false;
    mHasFrame = true;
    mLog = gData[static_cast<std::size_t>(mChan)];
    bool IsPoint = false;
    if (mAutoRun) {
        mPhys = CalibratorValue();
        IsPoint = PutDataPoint();
        mBoxes[BoxPhys] = FormatNum(mPhys, "0.00");
    }
    mBoxes[BoxLog] = FormatNum(mLog, "0");
    return IsPoint;
}

double cCalibr::CalibratorValue() const
{
    return (gData[static_cast<std::size_t>(gAutoCalCh)] * mAutoQ1 + mAutoQ0) * (fTorque ? mLever : 1);
}

bool cCalibr::PutDataPoint()
{
    if (!IsLinkOpen() || gLinkWatch.IsSilent() || !mTaking || !mHasFrame) return false;
    if (gAutoCalibr && mLog == 0) return false; // a missing frame of the calibrator
    mPhys = gAutoCalibr ? CalibratorValue() : Val(mBoxes[BoxPhys]);
    mPoints.push_back({mLog, mPhys});
    mPntCnt = mPoints.size();
    mSums.Add(mPoints.back());
    mLine = mSums.Line();
    mExtremes.TakeP(mPhys);
    ShowLine();
    ShowExtremes();
    mModified = mIsOutdated = true;
    return true;
}

bool cCalibr::Space()
{
    if (!gAutoCalibr) return PutDataPoint();
    mAutoRun = mTaking && !mAutoRun;
    return false;
}

void cCalibr::StopData()
{
    mTaking = mAutoRun = false;
    if (gLinkWatch.State() != cLinkWatch::eState::Closed) CloseLink();
    Analyse0();
}

bool cCalibr::CheckModified() const
{
    return !mModified || AskYesNo("The calibration data was modified. Do you realy want to discard it?", "Warning");
}
