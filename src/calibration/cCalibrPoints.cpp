// What the workbench does with its points: their line and extremes, dropping and bringing back, limits and analyses.
#include "base/mNumText.h"
#include "calibration/cCalibr.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "platform/mHost.h"

#include <cmath>
#include <utility>

namespace {
// A hair of room, so that a range without extent can be drawn.
void Widen(double& Min, double& Max, double Part)
{
    const double Room = Max > Min ? (Max - Min) * Part : 1;
    Min -= Room;
    Max += Room;
}
} // namespace

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

// With automatic axes the extremes begin anew with the points that are there.
void cCalibr::TakeAxes()
{
    if (fAutoAxes && !mPoints.empty()) mExtremes = FindMinMax(mPoints);
    SetCalGr();
}

void cCalibr::Analyse0()
{
    constexpr int Digits = 15;
    mBoxes[BoxMaximal] = FormatGeneral(mLine.Q1 * FullScale + mLine.Q0, Digits);
}

bool cCalibr::AnalyseArr()
{
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
    else if (fApproxMode == ApproxLinear && mLine.Q1 == 0)
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
