// The workbench's state: what is typed, frames, points and analyses.
#include "calibration/cCalibr.h"

#include "acquisition/mComFast.h"
#include "core/mHost.h"
#include "core/mIni.h"
#include "core/mNumText.h"
#include "core/mSettings.h"

#include <algorithm>
#include <cmath>
#include <utility>

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

// A hair of room, so that a range without extent can be drawn.
void Widen(double& Min, double& Max, double Part)
{
    const double Room = Max > Min ? (Max - Min) * Part : 1;
    Min -= Room;
    Max += Room;
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
    if (Index == FlagXisLog || Index == FlagAutoAxes) return SetCalGr();
    mAutoRun = false;
    if (mTaking) TakeMode();
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
    SetCalGr();
    TakeMode();
    if (gAutoCalibr && (gAutoCalCh < 1 || gAutoCalCh > LastDataChan)) {
        MsgBox("There is no automatic calibrator: calibrate a channel and press \"Set as Auto-Calibr\" first.",
               TitleInformation);
        return false;
    }
    return mTaking = HasLever();
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

// A line that overflowed is shown as none.
void cCalibr::ShowLine()
{
    if (!std::isfinite(mLine.Q0 + mLine.Q1 + mLine.R2)) mLine = {};
    mBoxes[BoxQ0] = FormatNum(mLine.Q0, "0.000000");
    mBoxes[BoxQ1] = FormatNum(mLine.Q1, "0.000000000");
    mBoxes[BoxR2] = FormatNum(mLine.R2, "0.000000");
}

void cCalibr::ShowExtremes()
{
    mBoxes[BoxMinP] = FormatNum(mExtremes.MinP, "0.00");
    mBoxes[BoxMaxP] = FormatNum(mExtremes.MaxP, "0.00");
}

void cCalibr::ReCalculate()
{
    mSums = SumsOf(mPoints);
    mLine = mSums.Line();
    for (const CalPoint& Point : mPoints)
        mExtremes.TakeP(Point.P);
    ShowLine();
    ShowExtremes();
}

void cCalibr::RememberPoints()
{
    if (mPoints.empty()) return;
    mUndo = mPoints;
    mUndoChan = mChan;
    mUndoSensID = mSensID;
    mHasUndo = true;
}

void cCalibr::DelAllPoints()
{
    RememberPoints();
    mPoints.clear();
    mPntCnt = 0;
    mSums = {};
    mLine = {};
    mAnalysis = {};
}

void cCalibr::UndoPoints()
{
    if (!mHasUndo) return;
    std::swap(mPoints, mUndo);
    if (mUndoChan != mChan) {
        std::swap(mChan, mUndoChan);
        std::swap(mSensID, mUndoSensID);
        mBoxes[BoxChan] = FormatNum(mChan, "0");
        if (Row()) ShowLimits();
    }
    mPntCnt = mPoints.size();
    mAnalysis = {};
    mModified = true;
    SetCalGr();
    ReCalculate();
}

bool cCalibr::FindLimits()
{
    const TableLimits Limits = ::FindLimits(std::span(mPoints).first(mPoints.empty() ? 0 : mPoints.size() - 1));
    if (Limits.Min >= FarOff || Limits.Max <= -FarOff) {
        MsgBox("Two points are needed to find limits.", TitleInformation);
        return false;
    }
    mArrMin = FormatNum(Limits.Min, "0.0");
    mArrMax = FormatNum(Limits.Max, "0.0");
    if (Limits.Min < Limits.Max) return true;
    MsgBox("The points leave no range between the limits, which lie 4 units within them; with counts that fall while "
           "the load rises none is found. Type Min and Max.",
           TitleInformation);
    return false;
}

void cCalibr::SetCalGr()
{
    const CalibrRow* Channel = Row();
    if (fAutoAxes && !mPoints.empty()) {
        constexpr double Margin = 0.05;
        mAxes = FindMinMax(mPoints);
        Widen(mAxes.MinP, mAxes.MaxP, Margin);
        Widen(mAxes.MinL, mAxes.MaxL, Margin);
        return;
    }
    mAxes = {Channel ? Channel->Min : 0, Channel ? Channel->Max : 0, 0, FullScale};
    if (mAxes.MaxP <= mAxes.MinP) Widen(mAxes.MinP, mAxes.MaxP, 0);
}

void cCalibr::Analyse0()
{
    constexpr int Digits = 15;
    mBoxes[BoxMaximal] = FormatGeneral(mLine.Q1 * FullScale + mLine.Q0, Digits);
}

bool cCalibr::AnalyseArr()
{
    mThreshold = Val(mBoxes[BoxThreshold]);
    mHint.clear();
    if (fApproxMode == ApproxAbsolute || fApproxMode == ApproxRefTable) {
        mHint = fApproxMode == ApproxAbsolute ? "Absolute takes the line: there is nothing to analyse."
                                              : "Save Ref.Table makes the table: there is nothing to analyse.";
        return true;
    }
    if (fApproxMode == ApproxLinear) Analyse0();
    CalAnalysis Result;
    if (mPoints.size() < 2)
        Result.Text = TooFewPoints;
    else if (mLine.Q1 == 0)
        Result.Text = NoSolution;
    else if (fApproxMode == ApproxLinear)
        return true;
    else if (fApproxMode == ApproxTwoLines)
        Result = AnalyseTwoLines(mPoints, fCutOff);
    else if (HasChannel())
        Result = AnalyseOneLine(mPoints, Row()->Min, Row()->Max, fCutOff);
    else
        return false;
    mAnalys = Result.Text;
    if (!Result.IsDone) {
        TakeHint();
        return false;
    }
    mAnalysis = std::move(Result);
    mAnalysedFor = Approx();
    mIsOutdated = false;
    return true;
}

// Which points count is not seen from the outside.
void cCalibr::TakeHint()
{
    if (mAnalys != TooFewPoints || fApproxMode == ApproxLinear) return;
    if (fApproxMode == ApproxTwoLines)
        mHint =
            "Points count whose load lies inside the range taken, less the cut-off at either end: 4 with rising and "
            "4 with falling load are needed.";
    else if (Row())
        mHint = "Points count whose load lies from " + FormatNum(Row()->Min, "0.0") + " to " +
                FormatNum(Row()->Max, "0.0") +
                ", Min and Max of the channel, less the cut-off at either end: 5 are "
                "needed.";
}

bool cCalibr::CheckModified() const
{
    return !mModified || AskYesNo("The calibration data was modified. Do you realy want to discard it?", "Warning");
}
