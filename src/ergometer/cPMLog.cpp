// Header, rows and files of the comparison.
#include "ergometer/cPMLog.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <filesystem>

namespace {
// The monitor counts a drive about when the panel sees its end: somewhat earlier or later, but not a drive earlier.
constexpr int64_t Earlier = 400; // ms
constexpr int64_t Patience = 500;

constexpr const char* Header =
    "QVN N\tPMI N\tQVN Rate\tPMI Rate\tQVN Drive\tPMI Drive\tQVN Recov\tPMI Recov\tQVN Length\tPMI Length\tQVN "
    "Power\tPMI Power\tQVN PeakForce\tPMI PeakForce\tQVN Impulse\tPMI Impulse\tQVN AverForce\tPMI AverForce\tQVN "
    "WPS\tPMI WPS\tPMI Pace/500\tQVN MaxForceT";
constexpr const char* LineEnd = "\r\n";

// What the monitor has for one column; nothing when it does not say.
struct Pair
{
    double Own;
    std::optional<double> PMI;
};

std::string Cell(double X)
{
    constexpr int Digits = 6;
    return FormatGeneral(X, Digits);
}

std::string Row(const PMStroke& Own, const std::optional<PMFigures>& PMI)
{
    const auto Of = [&](double X) { return PMI ? std::optional(X) : std::nullopt; };
    const PMFigures Has = PMI.value_or(PMFigures{});
    const auto OfForces = [&](double X) { return Has.Forces ? std::optional(X) : std::nullopt; };
    const PMForces Forces = Has.Forces.value_or(PMForces{});
    const Pair Pairs[] = {
        {static_cast<double>(Own.StrokeN), Of(Has.DriveCount)},
        {Own.Rate, Of(Has.Cadence)},
        {Own.Drive, Of(Has.DriveTime)},
        {Own.Recov, Of(Has.RecovTime)},
        {Own.Length, Of(Has.StrokeLen)},
        {Own.Power, Of(Has.Power)},
        {Own.PeakForce, OfForces(Forces.PeakForce)},
        {Own.Impulse, OfForces(Forces.AverForce * Has.DriveTime)},
        {Own.AverForce, OfForces(Forces.AverForce)},
        {Own.Work, OfForces(Forces.Work)},
    };
    std::string Line;
    for (const Pair& Each : Pairs)
        Line += Cell(Each.Own) + "\t" + (Each.PMI ? Cell(*Each.PMI) : "") + "\t";
    return Line + (PMI ? Cell(Has.Pace500()) : "") + "\t" + Cell(Own.MaxForceT) + LineEnd;
}

// One question for both files: they belong together.
bool MayReplace(const std::string& HeadPath, const std::string& RowsPath)
{
    std::error_code Ignored;
    for (const std::string& Path : {HeadPath, RowsPath})
        if (std::filesystem::exists(Path, Ignored))
            return AskYesNo("Are you sure to replace file " + Path + "?", TitleWarning);
    return true;
}
} // namespace

bool cPMLog::PMStartLog()
{
    if (gCurFile.empty()) {
        MsgBox("There is no session to log for: open one first.", TitleInformation);
        return false;
    }
    const int16_t Next = ToInt16(int64_t{gFile.SampleCnt} + 1);
    const std::string Base = gCurDir + "PMlog" + FormatNum(gFile.SampleCnt, "000");
    if (!MayReplace(Base + ".csv", Base + "_strokes.csv")) return false;
    Waiting.reset();
    for (auto& [File, Path] : {std::pair{&Head, Base + ".csv"}, {&Rows, Base + "_strokes.csv"}})
        if (!File->Open(Path, OldBytes::Dropped)) {
            Head.Close();
            return FileFailed("Can't open Log file: ", Path, TitleError, File->Failure());
        }
    gFile.SampleCnt = Next;
    WriteSession(); // a failure is reported to the user; the comparison goes on
    return Write(Head, std::string(Header) + LineEnd) && Write(Rows, std::string(Header) + LineEnd);
}

void cPMLog::AddStroke(const PMStroke& Stroke, const PMSnapshot& Monitor, int64_t Now)
{
    if (!IsOpen()) return;
    if (Waiting) WriteRow(Monitor, Now);
    Waiting = Stroke;
    EndedAt = Now;
}

void cPMLog::Look(const PMSnapshot& Monitor, int64_t Now)
{
    if (!Waiting) return;
    const bool HasFigures = Monitor.IsConnected(Now) && Monitor.StrokeAt >= EndedAt - Earlier;
    if (HasFigures || !Monitor.IsConnected(Now) || Now - EndedAt >= Patience) WriteRow(Monitor, Now);
}

void cPMLog::WriteRow(const PMSnapshot& Monitor, int64_t Now)
{
    const PMStroke Stroke = *Waiting;
    Waiting.reset();
    Write(Rows, Row(Stroke, Monitor.IsConnected(Now) ? Monitor.Figures : std::nullopt));
}

void cPMLog::Stop(const PMSnapshot& Monitor, int64_t Now)
{
    if (Waiting) WriteRow(Monitor, Now);
    for (cRawLog* File : {&Head, &Rows})
        if (!File->Close()) FileFailed(CantWrite, File->Path(), TitleError, File->Failure());
}

bool cPMLog::Write(cRawLog& File, const std::string& Line)
{
    if (File.Append({reinterpret_cast<const uint8_t*>(Line.data()), Line.size()})) return true;
    const std::string Reason = File.Failure();
    Head.Close();
    Rows.Close();
    return FileFailed("Can't write Log file: ", File.Path(), TitleError,
                      Reason + "; the comparison has stopped, what was written until now is whole");
}
