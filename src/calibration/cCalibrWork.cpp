// What the workbench's commands do with points, analysis and files.
#include "base/mNumText.h"
#include "calibration/cCalibr.h"
#include "calibration/mRawCal.h"
#include "core/mFields.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "platform/mHost.h"

#include <utility>

// Extremes stay as they were shown when no points are left.
void cCalibr::ShowNumbers()
{
    mBoxes[BoxQ0] = FormatNum(Line().Q0, "0.000000");
    mBoxes[BoxQ1] = FormatNum(Line().Q1, "0.000000000");
    mBoxes[BoxR2] = FormatNum(Line().R2, "0.000000");
    if (mPoints.IsEmpty()) return;
    mBoxes[BoxMinP] = FormatNum(mPoints.Extremes().MinP, "0.00");
    mBoxes[BoxMaxP] = FormatNum(mPoints.Extremes().MaxP, "0.00");
}

void cCalibr::ShowChannel()
{
    mBoxes[BoxChan] = FormatNum(mChan, "0");
    if (Row()) ShowLimits();
}

void cCalibr::DelAllPoints()
{
    mPoints.DeleteAll(Source());
    mFit.Drop();
}

void cCalibr::UndoPoints()
{
    if (!CanUndo()) return;
    CalSource Of = Source();
    mPoints.Undo(Of);
    mFit.Drop();
    if (Of.Chan != mChan) {
        mChan = Of.Chan;
        mSensID = Of.SensID;
        ShowChannel();
    }
    SetCalGr();
    ShowNumbers();
}

bool cCalibr::FindLimits()
{
    const TableLimits Limits = ::FindLimits(std::span(Points()).first(mPoints.IsEmpty() ? 0 : Points().size() - 1));
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

void cCalibr::Analyse0()
{
    constexpr int Digits = 15;
    mBoxes[BoxMaximal] = FormatGeneral(Line().Q1 * FullScale + Line().Q0, Digits);
}

bool cCalibr::AnalyseArr()
{
    if (Approx() == ApproxLinear) Analyse0();
    if (Approx() == ApproxOneLine && !HasChannel()) return false;
    return mFit.Analyse(Approx(), mPoints, Row() ? *Row() : CalibrRow{}, fCutOff);
}

// The session keeps no blanks around the sensor's identifier, and finds a table by what it keeps.
CalWork cCalibr::Work()
{
    StoreText(mSensID, {FieldForm::Trimmed}, std::string(mSensID));
    CalWork Work;
    Work.Of = Source();
    Work.Line = {Val(mBoxes[BoxQ0]), Val(mBoxes[BoxQ1]), Val(mBoxes[BoxR2])};
    Work.Threshold = Val(mBoxes[BoxThreshold]);
    Work.Min = Val(mArrMin);
    Work.Max = Val(mArrMax);
    Work.Lever = mTaking.Lever();
    Work.Use = Approx();
    return Work;
}

bool cCalibr::SetAutoCal()
{
    const double Typed = RoundHalfEven(Val(mBoxes[BoxChan]));
    if (!(Typed >= 1 && Typed <= LastDataChan)) {
        MsgBox("Type the number of a channel to make it the automatic calibrator.", TitleInformation);
        return false;
    }
    const CalLine Line = Work().Line;
    if (Line.Q1 == 0) {
        MsgBox("A calibrator needs a line: take points first, or type Q0 and Q1.", TitleInformation);
        return false;
    }
    if (!cCalKeep::SaveCalibrator(static_cast<int16_t>(Typed), Line)) return false;
    if (gAutoCalibr) mTaking.Stop(); // the factors in use are those of the former one
    return true;
}

bool cCalibr::Save()
{
    return HasChannel() && mKeep.Save(Work());
}

bool cCalibr::Store()
{
    return HasChannel() && mKeep.Store(Work());
}

bool cCalibr::SaveData()
{
    return HasChannel() && mKeep.SaveData(Work());
}

bool cCalibr::MakeRefTable(RefTable& Table)
{
    return HasChannel() && mKeep.MakeRefTable(Work(), Table);
}

void cCalibr::StoreRefTable()
{
    cCalKeep::StoreRefTable(Work());
}

bool cCalibr::CreateRefTable3()
{
    if (!HasChannel() || !mKeep.SaveRefTable(Work())) return false;
    mPoints.KeepWithin(Val(mArrMin), Val(mArrMax), Source());
    SetCalGr();
    ShowNumbers();
    return true;
}

bool cCalibr::SaveRawCalData(const std::string& Path)
{
    return mKeep.SaveRaw(Work(), Path);
}

bool cCalibr::LoadRawCalData(const std::string& Path)
{
    if (!CheckModified()) return false;
    auto Data = cCalKeep::LoadRaw(Path);
    if (!Data) return false;
    TakeRawCal(std::move(*Data));
    return true;
}

void cCalibr::TakeRawCal(RawCal Data)
{
    mPoints.Replace(std::move(Data.Points), Data.Line, Source());
    mTaking.Stop();
    mFit.Drop();
    mChan = Data.Chan;
    mBoxes[BoxChan] = FormatNum(mChan, "0");
    if (Row() && mArrMin.empty()) ShowLimits();
    mSensID = Data.SensID;
    mPoints.BeginAxes(Row());
    if (!mPoints.IsEmpty()) mPoints.Recalculate();
    ShowNumbers();
}
