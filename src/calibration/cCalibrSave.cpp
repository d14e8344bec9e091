// Where the workbench keeps its results: the session, the ini file, raw calibration files and reference tables.
#include "base/mNumText.h"
#include "calibration/cCalibr.h"
#include "calibration/mCalStore.h"
#include "calibration/mRefBuild.h"
#include "core/mFields.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <filesystem>
#include <tuple>

namespace {
constexpr const char* ReadBy[] = {"a line", "a curve", "two curves", "the absolute value of a line",
                                  "a reference table"};

DateDays Today()
{
    if (!gHost.Clock) return 0;
    const LocalTime Now = gHost.Clock->Now();
    return DateFromCalendar(Now.Year, Now.Month, Now.Day).value_or(0);
}
} // namespace

bool cCalibr::SetAutoCal()
{
    const double Typed = RoundHalfEven(Val(mBoxes[BoxChan]));
    if (!(Typed >= 1 && Typed <= LastDataChan)) {
        MsgBox("Type the number of a channel to make it the automatic calibrator.", TitleInformation);
        return false;
    }
    if (Val(mBoxes[BoxQ1]) == 0) {
        MsgBox("A calibrator needs a line: take points first, or type Q0 and Q1.", TitleInformation);
        return false;
    }
    const std::string Former =
        FormatNum(gAutoCalCh, "0") + " (Q0 = " + FormatSig(gAutoCalQ0, 6) + ", Q1 = " + FormatSig(gAutoCalQ1, 9) + ")";
    gAutoCalCh = static_cast<int16_t>(Typed);
    gAutoCalQ0 = Val(mBoxes[BoxQ0]);
    gAutoCalQ1 = Val(mBoxes[BoxQ1]);
    if (gAutoCalibr) mTaking = mAutoRun = false; // the factors in use are those of the former one
    if (!WriteIni()) return false;
    UpdateStatus("Channel " + FormatNum(gAutoCalCh, "0") + " is the automatic calibrator, in place of " + Former);
    return true;
}

std::string cCalibr::FreeName() const
{
    const std::string Base = gCurDir + gFileTitle + "_" + FormatNum(mChan, "00") + "_" + mSensID;
    std::string Name = Base + ".xcl";
    std::error_code Error;
    for (int Count = 1; std::filesystem::exists(Name, Error); ++Count)
        Name = Base + "_" + FormatNum(Count, "00") + ".xcl";
    return Name;
}

// The points go first: once the session has changed, what it was calibrated from is on the disk.
bool cCalibr::Save()
{
    const std::string Name = FreeName();
    if (!HasFileName() || !StoreAnd([&] { return SaveRawCalData(Name) && WriteStored(); })) return false;
    mSavedText = "Saved. " + Reading() + "; its points are in " + Name;
    return true;
}

bool cCalibr::SaveData()
{
    if (!StoreAnd([&] { return WriteStored(); })) return false;
    mSavedText = "Saved. " + Reading() + "; its points are not saved";
    return true;
}

// Data that could not be written leave the session as it was.
bool cCalibr::StoreAnd(const std::function<bool()>& Write)
{
    if (!HasChannel()) return false;
    const FormerChannels Former;
    mHint.clear();
    if (Store()) {
        AskReading();
        if (fApproxMode == ApproxAbsolute && Row()->ProcMode == ApproxAbsolute)
            Row()->Threshold = Val(mBoxes[BoxThreshold]);
        if (Write()) return true;
        mHint = "The session was not saved and is as it was. Save again once its folder can be written.";
    }
    Former.PutBack();
    return false;
}

bool cCalibr::HasFileName() const
{
    if (mSensID.find_first_of("/\t") == std::string::npos) return true;
    MsgBox("The sensor identifier \"" + mSensID + "\" cannot name a file: type one without \"/\".", TitleInformation);
    return false;
}

// The session keeps no blanks around it, and finds a table by what it keeps.
void cCalibr::TrimSensID()
{
    StoreText(mSensID, {FieldForm::Trimmed}, std::string(mSensID));
}

std::string cCalibr::Reading() const
{
    const int16_t Mode = Row()->ProcMode;
    const bool IsNamed = Mode >= ApproxLinear && Mode <= ApproxRefTable;
    return "Channel " + FormatNum(mChan, "0") + " is read by " + ReadBy[IsNamed ? static_cast<std::size_t>(Mode) : 0];
}

// Whether the analysis, where there is one, serves the use chosen: the coefficients of one would be nonsense for
// another.
bool cCalibr::FitsUse() const
{
    if (!mAnalysis.IsDone) return true;
    const bool IsCurve = fApproxMode == ApproxOneLine || fApproxMode == ApproxTwoLines;
    if (IsCurve && fApproxMode != mAnalysedFor) {
        const std::string One = "\"Square one line\"", Two = "\"Square two lines\"";
        const bool IsOne = fApproxMode == ApproxOneLine;
        MsgBox((IsOne ? One : Two) + " is chosen, but the analysis is that of " + (IsOne ? Two : One) +
                   ": press Analysis, then save.",
               TitleInformation);
        return false;
    }
    if (IsCurve && mIsOutdated &&
        !AskYesNo("Points were taken after the analysis, and the curves know nothing of them. Do you want to save "
                  "nevertheless?",
                  TitleWarning))
        return false;
    if (fApproxMode == ApproxRefTable && Row()->ProcMode != ApproxRefTable) {
        MsgBox("The channel has no reference table yet: press Save Ref.Table, then save.", TitleInformation);
        return false;
    }
    return true;
}

// A line that the channel is not read by would be saved for nothing.
void cCalibr::AskReading()
{
    CalibrRow& Channel = *Row();
    if (mAnalysis.IsDone) return;
    const bool IsCurve = Channel.ProcMode == ApproxOneLine || Channel.ProcMode == ApproxTwoLines;
    if (fApproxMode == ApproxLinear || fApproxMode == ApproxAbsolute) {
        const bool IsLine = Channel.ProcMode < ApproxLinear || Channel.ProcMode > ApproxRefTable;
        if (Channel.ProcMode == fApproxMode || (IsLine && fApproxMode == ApproxLinear)) return;
        if (AskYesNo(Reading() + ". Do you want it to be read by " + ReadBy[fApproxMode] + " from now on?",
                     TitleWarning))
            Channel.ProcMode = fApproxMode;
    } else if (IsCurve)
        MsgBox(Reading() + " and stays so, since no analysis was made: Q0 and Q1 do not count for it. Press Analysis, "
                           "then save again.",
               TitleWarning);
}

bool cCalibr::Store()
{
    if (!HasChannel() || !FitsUse()) return false;
    TrimSensID();
    const CalLine Typed{Val(mBoxes[BoxQ0]), Val(mBoxes[BoxQ1]), Val(mBoxes[BoxR2])};
    const bool IsCurve = mAnalysis.IsDone && (fApproxMode == ApproxOneLine || fApproxMode == ApproxTwoLines);
    if (Typed.Q1 == 0 && !IsCurve &&
        !AskYesNo("The slope Q1 is 0: every count of the channel would give the same value. Do you "
                  "want to save it nevertheless?",
                  TitleWarning))
        return false;
    mLine = Typed;
    CalibrRow& Channel = *Row();
    Channel.Q0 = mLine.Q0;
    Channel.Q1 = mLine.Q1;
    Channel.Rmain = mLine.R2;
    Channel.SensorID = mSensID;
    if (mAnalysis.IsDone) {
        Channel.ProcMode = fApproxMode;
        // With a reference table it is the table's number.
        if (fApproxMode != ApproxRefTable) Channel.Threshold = Val(mBoxes[BoxThreshold]);
        std::tie(Channel.Qup0, Channel.Qup1, Channel.Qup2) = std::tuple_cat(mAnalysis.Up.Q);
        std::tie(Channel.Qdn0, Channel.Qdn1, Channel.Qdn2) = std::tuple_cat(mAnalysis.Down.Q);
        Channel.Rup = mAnalysis.Up.R;
        Channel.Rdn = mAnalysis.Down.R;
    }
    ResolveChannels();
    return true;
}

bool cCalibr::WriteStored()
{
    if (!WriteSession()) return false;
    if (Row()->ProcMode == ApproxRefTable) LoadRefTables();
    mModified = false;
    return true;
}

bool cCalibr::MakeRefTable(RefTable& Table)
{
    const double Min = Val(mArrMin), Max = Val(mArrMax);
    if (!HasChannel() || !HasFileName()) return false;
    TrimSensID();
    if (!(Min < Max) || mSensID.empty()) {
        MsgBox("A reference table needs a sensor identifier and a range whose Min is below its Max.", TitleInformation);
        return false;
    }
    const std::size_t Used = mPntCnt > 2 ? mPntCnt - 2 : 0; // neither the first nor the last
    Table.Name = mSensID;
    const int Empty = BuildRefTable(std::span(mPoints).subspan(Used > 0 ? 1 : 0, Used), Min, Max, Table);
    if (Empty > RefTable::MaxRow) {
        mAnalys = TooFewPoints;
        return false;
    }
    return Empty == 0 || AskYesNo(FormatNum(Empty, "0") + " of the 256 steps of the table have too few points near " +
                                      "them: the table would be wrong there. Take more points, or a narrower range. " +
                                      "Do you want to save it nevertheless?",
                                  TitleWarning);
}

// The table holds its own zero, so a former one of the channel no longer counts.
void cCalibr::StoreRefTable() const
{
    CalibrRow& Channel = *Row();
    Channel.Min = Val(mArrMin);
    Channel.Max = Val(mArrMax);
    Channel.Log0 = 0;
    Channel.ProcMode = ApproxRefTable;
    Channel.SensorID = mSensID;
    Channel.RefTabFN = mSensID + ".ref";
}

bool cCalibr::CreateRefTable3()
{
    RefTable Table;
    if (!MakeRefTable(Table)) return false;
    const std::string Path = gCurDir + mSensID + ".ref";
    std::error_code Error;
    if (std::filesystem::exists(Path, Error) &&
        !AskYesNo("There is a table of sensor " + mSensID + " already. Do you want to replace it?", TitleWarning))
        return false;
    const FormerChannels Former;
    const ComingRefFile File{Path, RefTableText(Table)};
    StoreRefTable();
    LoadRefTables(&File);
    Row()->RefTabFN = mSensID + ".ref";
    if (!BackupFile(gCurFile) || !WriteTableAndSession(File, gCurFile)) {
        Former.PutBack();
        return false;
    }
    mSavedText = "Saved. " + Reading() + ": " + Path;
    KeepPointsWithin(Val(mArrMin), Val(mArrMax));
    return true;
}

void cCalibr::KeepPointsWithin(double Min, double Max)
{
    RememberPoints();
    mPoints.resize(mPntCnt);
    std::erase_if(mPoints, [=](const CalPoint& Point) { return Point.P < Min || Point.P > Max; });
    mPntCnt = mPoints.size();
    SetCalGr();
    ReCalculate();
}

bool cCalibr::SaveRawCalData(const std::string& Path)
{
    const std::string Name =
        Path.empty() ? ExecComDlg("Save Raw Calibration Data", "xcl", eFileMode::Out, gCurDir) : Path;
    if (Name.empty()) return false;
    RawCal Data;
    Data.Date = Today();
    Data.Chan = mChan;
    Data.ParamID = Row() ? Row()->ParamID : "";
    Data.IsAuto = gAutoCalibr != 0;
    Data.Freq = SafeDiv(1, gDeltaT);
    Data.Line = mLine;
    Data.Lever = mLever;
    Data.SensID = mSensID;
    Data.Points.assign(mPoints.begin(), mPoints.begin() + static_cast<std::ptrdiff_t>(mPntCnt));
    return SaveRawCal(Name, Data);
}

bool cCalibr::LoadRawCalData(const std::string& Path)
{
    if (!CheckModified()) return false;
    const std::string Name =
        Path.empty() ? ExecComDlg("Load Raw Calibration Data", "xcl", eFileMode::In, gCurDir) : Path;
    if (Name.empty()) return false;
    auto Data = LoadRawCal(Name);
    if (!Data) return false;
    RememberPoints();
    mTaking = mAutoRun = mModified = false;
    mAnalysis = {};
    mChan = Data->Chan;
    mBoxes[BoxChan] = FormatNum(mChan, "0");
    if (Row() && mArrMin.empty()) ShowLimits();
    mSensID = Data->SensID;
    mLine = Data->Line;
    ShowLine();
    mPoints = std::move(Data->Points);
    mPntCnt = mPoints.empty() ? 0 : mPoints.size() - 1;
    TakeAxes();
    if (!mPoints.empty()) ReCalculate();
    return true;
}
