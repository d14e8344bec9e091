// The commands calibrate and lookup.
#include "batch/mCommands.h"

#include "base/mNumText.h"
#include "calibration/cCalibr.h"
#include "calibration/mCalStore.h"
#include "core/mGlobData.h"
#include "platform/mHost.h"
#include "processing/mPhysVal.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

namespace {
void PrintAnalysis(const cCalibr& Bench)
{
    std::string Text = Bench.Analys();
    std::erase(Text, '\r');
    while (Text.ends_with('\n'))
        Text.pop_back();
    std::cout << Text << std::endl;
}

// Sets the workbench up with the points of a file and the options of the command. False when that fails (reported to
// the user).
bool SetUp(cCalibr& Bench, const Args& Line)
{
    const int32_t Chan = Line.Whole("--channel", 0);
    if (!Bench.LoadRawCalData(Line.Files[1]) || !Bench.TakeChan(Chan)) return false;
    if (Line.Has("--cutoff")) Bench.SetBox(BoxCutOff, Line.Text("--cutoff", ""));
    if (Line.Has("--min")) Bench.SetArrMin(Line.Text("--min", ""));
    if (Line.Has("--max")) Bench.SetArrMax(Line.Text("--max", ""));
    if (Line.Has("--sensor")) Bench.SetSensID(Line.Text("--sensor", ""));
    Bench.SetApprox(static_cast<eApprox>(Val(Line.Text("--apply", ""))));
    return true;
}

// Table and session together; the table lies beside the session.
bool SaveTable(cCalibr& Bench, const RefTable& Table, const std::string& Session, const std::string& Out)
{
    Bench.StoreRefTable();
    if (!BackUpReplaced(Session, Out)) return false;
    const auto Path = std::filesystem::path(Out).parent_path() / (Bench.SensID() + ".ref");
    return WriteTableAndSession({Path.string(), RefTableText(Table)}, Out);
}

// A line does not change how a channel is read.
void ReportUnused(const cCalibr& Bench)
{
    const int16_t Mode = gFile.Calibr[Bench.Chan()].ProcMode;
    const bool IsByLine = Mode != ApproxOneLine && Mode != ApproxTwoLines && Mode != ApproxRefTable;
    if (Bench.Approx() == ApproxLinear && !IsByLine)
        MsgBox(Bench.Reading() + " and stays so: Q0 and Q1 are stored, but do not count for it.", TitleWarning);
}

bool IsNumber(const std::string& Text)
{
    return LeadingNumber(Text) && Text.find_first_not_of("0123456789.+-eE") == std::string::npos;
}
} // namespace

std::string CalibrateObjection(const Args& Line)
{
    for (const char* Name : {"--channel", "--apply"})
        if (!Line.Has(Name)) return std::string(Name) + " is missing";
    return {};
}

bool DoCalibrate(const Args& Line)
{
    const std::string& Session = Line.Files[0];
    const std::string Out = Line.Text("--out", Session);
    if (!LoadSession(Session)) return false;
    cCalibr Bench;
    if (!SetUp(Bench, Line)) return false;
    RefTable Table;
    const bool IsTable = Bench.Approx() == ApproxRefTable;
    const bool IsStored = Bench.AnalyseArr() && Bench.Store() && (!IsTable || Bench.MakeRefTable(Table));
    PrintAnalysis(Bench);
    if (!IsStored) return false;
    if (IsTable) return SaveTable(Bench, Table, Session, Out);
    ReportUnused(Bench);
    return SaveSession(Session, Out);
}

std::string LookupObjection(const Args& Line)
{
    for (std::size_t i = 2; i < Line.Files.size(); ++i)
        if (!IsNumber(Line.Files[i])) return "\"" + Line.Files[i] + "\" is no count";
    return {};
}

bool DoLookup(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    const std::string& Name = Line.Files[1];
    const double Number = IsNumber(Name) ? RoundHalfEven(Val(Name)) : FindChan(gFile.Calibr, Name);
    if (!(Number >= 1 && Number <= gFile.Calibr.UBound())) {
        MsgBox("The session has no channel " + Name + ": " + Line.Files[0], TitleError);
        return false;
    }
    constexpr int Digits = 12;
    double Prev = 0;
    for (std::size_t i = 2; i < Line.Files.size(); ++i)
        std::cout << FormatGeneral(CalcPhysVal(static_cast<int>(Number), Val(Line.Files[i]), Prev), Digits) << "\n";
    std::cout << std::flush;
    return true;
}
