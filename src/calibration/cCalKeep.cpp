// Storing and saving, the questions before that, and the names of files.
#include "calibration/cCalKeep.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "calibration/mCalStore.h"
#include "calibration/mRawCal.h"
#include "calibration/mRefBuild.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <filesystem>
#include <tuple>

namespace {
constexpr const char* ReadBy[] = {"a line", "a curve", "two curves", "the absolute value of a line",
                                  "a reference table"};

CalibrRow& RowOf(const CalWork& Work)
{
    return gFile.Calibr[Work.Of.Chan];
}

DateDays Today()
{
    if (!gHost.Clock) return 0;
    const LocalTime Now = gHost.Clock->Now();
    return DateFromCalendar(Now.Year, Now.Month, Now.Day).value_or(0);
}
} // namespace

std::string cCalKeep::Reading(int16_t Chan)
{
    const int16_t Mode = gFile.Calibr[Chan].ProcMode;
    const bool IsNamed = Mode >= ApproxLinear && Mode <= ApproxRefTable;
    return "Channel " + FormatNum(Chan, "0") + " is read by " + ReadBy[IsNamed ? static_cast<std::size_t>(Mode) : 0];
}

bool cCalKeep::SaveCalibrator(int16_t Chan, const CalLine& Line)
{
    const auto Before = std::tuple(gAutoCalCh, gAutoCalQ0, gAutoCalQ1);
    const std::string Former =
        FormatNum(gAutoCalCh, "0") + " (Q0 = " + FormatSig(gAutoCalQ0, 6) + ", Q1 = " + FormatSig(gAutoCalQ1, 9) + ")";
    gAutoCalCh = Chan;
    gAutoCalQ0 = Line.Q0;
    gAutoCalQ1 = Line.Q1;
    if (!WriteIni()) {
        std::tie(gAutoCalCh, gAutoCalQ0, gAutoCalQ1) = Before;
        return false;
    }
    UpdateStatus("Channel " + FormatNum(gAutoCalCh, "0") + " is the automatic calibrator, in place of " + Former);
    return true;
}

std::string cCalKeep::FreeName(const CalSource& Of)
{
    const std::string Base = gCurDir + gFileTitle + "_" + FormatNum(Of.Chan, "00") + "_" + Of.SensID;
    std::string Name = Base + ".xcl";
    std::error_code Error;
    for (int Count = 1; std::filesystem::exists(Name, Error); ++Count)
        Name = Base + "_" + FormatNum(Count, "00") + ".xcl";
    return Name;
}

bool cCalKeep::NamesFile(const CalSource& Of)
{
    if (Of.SensID.find_first_of("/\t") == std::string::npos) return true;
    MsgBox("The sensor identifier \"" + Of.SensID + "\" cannot name a file: type one without \"/\".", TitleInformation);
    return false;
}

bool cCalKeep::Store(const CalWork& Work)
{
    CalibrRow& Row = RowOf(Work);
    if (!Fit.Fits(Work.Use, Row)) return false;
    if (Work.Line.Q1 == 0 && !(Fit.IsDone() && IsCurve(Work.Use)) &&
        !AskYesNo("The slope Q1 is 0: every count of the channel would give the same value. Do you want to save it "
                  "nevertheless?",
                  TitleWarning))
        return false;
    Points.SetLine(Work.Line);
    Row.Q0 = Work.Line.Q0;
    Row.Q1 = Work.Line.Q1;
    Row.Rmain = Work.Line.R2;
    Row.SensorID = Work.Of.SensID;
    if (Fit.IsDone()) {
        const CalAnalysis& Curves = Fit.Result();
        Row.ProcMode = Work.Use;
        // With a reference table it is the table's number.
        if (Work.Use != ApproxRefTable) Row.Threshold = Work.Threshold;
        std::tie(Row.Qup0, Row.Qup1, Row.Qup2) = std::tuple_cat(Curves.Up.Q);
        std::tie(Row.Qdn0, Row.Qdn1, Row.Qdn2) = std::tuple_cat(Curves.Down.Q);
        Row.Rup = Curves.Up.R;
        Row.Rdn = Curves.Down.R;
    }
    ResolveChannels();
    return true;
}

// Saving a line has no effect on a channel that is not read by its line.
void cCalKeep::AskReading(const CalWork& Work) const
{
    CalibrRow& Row = RowOf(Work);
    if (Fit.IsDone()) return;
    if (Work.Use == ApproxLinear || Work.Use == ApproxAbsolute) {
        const bool IsLine = Row.ProcMode < ApproxLinear || Row.ProcMode > ApproxRefTable;
        if (Row.ProcMode == Work.Use || (IsLine && Work.Use == ApproxLinear)) return;
        if (AskYesNo(Reading(Work.Of.Chan) + ". Do you want it to be read by " + ReadBy[Work.Use] + " from now on?",
                     TitleWarning))
            Row.ProcMode = Work.Use;
    } else if (IsCurve(Row.ProcMode))
        MsgBox(Reading(Work.Of.Chan) + " and stays so, since no analysis was made: Q0 and Q1 do not count for it. " +
                   "Press Analysis, then save again.",
               TitleWarning);
}

bool cCalKeep::StoreAnd(const CalWork& Work, const std::function<bool()>& Write)
{
    const FormerChannels Former;
    Fit.SetHint({});
    if (Store(Work)) {
        AskReading(Work);
        CalibrRow& Row = RowOf(Work);
        if (Work.Use == ApproxAbsolute && Row.ProcMode == ApproxAbsolute) Row.Threshold = Work.Threshold;
        if (Write()) return true;
        Fit.SetHint("The session was not saved and is as it was. Save again once its folder can be written.");
    }
    Former.PutBack();
    return false;
}

bool cCalKeep::WriteStored(const CalWork& Work)
{
    if (!WriteSession()) return false;
    if (RowOf(Work).ProcMode == ApproxRefTable) LoadRefTables();
    Points.SetSaved();
    return true;
}

bool cCalKeep::SaveData(const CalWork& Work)
{
    if (!StoreAnd(Work, [&] { return WriteStored(Work); })) return false;
    mSavedText = "Saved. " + Reading(Work.Of.Chan) + "; its points are not saved";
    return true;
}

// The points go first: once the session has changed, what it was calibrated from is on the disk.
bool cCalKeep::Save(const CalWork& Work)
{
    const std::string Name = FreeName(Work.Of);
    if (!NamesFile(Work.Of) || !StoreAnd(Work, [&] { return SaveRaw(Work, Name) && WriteStored(Work); })) return false;
    mSavedText = "Saved. " + Reading(Work.Of.Chan) + "; its points are in " + Name;
    return true;
}

bool cCalKeep::MakeRefTable(const CalWork& Work, RefTable& Table)
{
    if (!NamesFile(Work.Of)) return false;
    if (!(Work.Min < Work.Max) || Work.Of.SensID.empty()) {
        MsgBox("A reference table needs a sensor identifier and a range whose Min is below its Max.", TitleInformation);
        return false;
    }
    Table.Name = Work.Of.SensID;
    const int Empty = BuildRefTable(Points.ForTable(), Work.Min, Work.Max, Table);
    if (Empty > RefTable::MaxRow) {
        Fit.SetText(TooFewPoints);
        return false;
    }
    return Empty == 0 || AskYesNo(FormatNum(Empty, "0") + " of the 256 steps of the table have too few points near " +
                                      "them: the table would be wrong there. Take more points, or a narrower range. " +
                                      "Do you want to save it nevertheless?",
                                  TitleWarning);
}

// The table holds its own zero, so a former one of the channel no longer counts.
void cCalKeep::StoreRefTable(const CalWork& Work)
{
    CalibrRow& Row = RowOf(Work);
    Row.Min = Work.Min;
    Row.Max = Work.Max;
    Row.Log0 = 0;
    Row.ProcMode = ApproxRefTable;
    Row.SensorID = Work.Of.SensID;
    Row.RefTabFN = Work.Of.SensID + ".ref";
}

bool cCalKeep::SaveRefTable(const CalWork& Work)
{
    RefTable Table;
    if (!MakeRefTable(Work, Table)) return false;
    const std::string Path = gCurDir + Work.Of.SensID + ".ref";
    std::error_code Error;
    if (std::filesystem::exists(Path, Error) &&
        !AskYesNo("There is a table of sensor " + Work.Of.SensID + " already. Do you want to replace it?",
                  TitleWarning))
        return false;
    const FormerChannels Former;
    const ComingRefFile File{Path, RefTableText(Table)};
    StoreRefTable(Work);
    LoadRefTables(&File);
    RowOf(Work).RefTabFN = Work.Of.SensID + ".ref";
    if (!BackupFile(gCurFile) || !WriteTableAndSession(File, gCurFile)) {
        Former.PutBack();
        return false;
    }
    mSavedText = "Saved. " + Reading(Work.Of.Chan) + ": " + Path;
    return true;
}

bool cCalKeep::SaveRaw(const CalWork& Work, const std::string& Path) const
{
    const std::string Name =
        Path.empty() ? ExecComDlg("Save Raw Calibration Data", "xcl", eFileMode::Out, gCurDir) : Path;
    if (Name.empty()) return false;
    const int16_t Chan = Work.Of.Chan;
    RawCal Data;
    Data.Date = Today();
    Data.Chan = Chan;
    Data.ParamID = Chan >= 1 && Chan <= gFile.Calibr.UBound() ? gFile.Calibr[Chan].ParamID : "";
    Data.IsAuto = gAutoCalibr != 0;
    Data.Freq = SafeDiv(1, gDeltaT);
    Data.Line = Points.Line();
    Data.Lever = Work.Lever;
    Data.SensID = Work.Of.SensID;
    Data.Points.assign(Points.Stored().begin(), Points.Stored().end());
    return SaveRawCal(Name, Data);
}

std::optional<RawCal> cCalKeep::LoadRaw(const std::string& Path)
{
    const std::string Name =
        Path.empty() ? ExecComDlg("Load Raw Calibration Data", "xcl", eFileMode::In, gCurDir) : Path;
    if (Name.empty()) return {};
    return LoadRawCal(Name);
}
