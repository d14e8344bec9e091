// Commands that find strokes: scan, strokes, process.
#include "batch/mCommands.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "files/mFrameRate.h"
#include "files/mQVN.h"
#include "platform/mHost.h"
#include "processing/mProcess.h"
#include "processing/mSample.h"
#include "processing/mStrokeLog.h"

#include <filesystem>
#include <iostream>

namespace {
// Averages the strokes of the stretch in as many runs as the settings say. False when that fails (reported to the
// user).
bool Average(const Args& Line)
{
    int32_t Stop = Line.Whole("--stop", 0);
    const int32_t Start = Line.Whole("--start", 0);
    return ProcessCycles(gKeyWin, Start, Stop, 1) && (gProcRuns != 2 || ProcessCycles(gKeyWin, Start, Stop, 2));
}

bool ProcessRaw(const std::string& Path, const Args& Line)
{
    if (!LoadRaw(Path, Line) || !Average(Line)) return false;
    if (gProcRuns != 1 && gProcRuns != 2) {
        MsgBox("gProcRuns is neither 1 nor 2: no sample is saved from " + Path, TitleInformation);
        return true;
    }
    SaveNormSample(gProcRuns, "Sample ");
    DescRow& Row = gFile.Desc[gFile.Desc.UBound()];
    Row.DistReal = Line.Real("--dist", 0);
    Row.TimeReal = Line.Real("--time", 0);
    Row.RawFN = std::filesystem::path(Path).filename().string();
    return true;
}

bool ProcessGuarded(const std::string& Path, const Args& Line)
{
    if (Guard("Processing of " + Path, [&] { return ProcessRaw(Path, Line); })) return true;
    MsgBox("No sample was made from " + Path + ", and nothing was written.", TitleWarning);
    return false;
}

// A scan counts times in frames, by the setting.
void CheckRate(const std::string& Path)
{
    const auto Own = FrameRate(Path);
    const auto Rate = Own ? Own : SessionRate();
    if (!Rate || !IsOffDataFreq(*Rate)) return;
    MsgBox((Own ? "The frames of " + Path + " come at " : "The session says ") + RateText(*Rate) +
               " Hz, but times are counted at " + FormatShortest(gDataFreq) +
               " Hz: --set gDataFreq=" + RateText(*Rate) + " counts them right.",
           TitleWarning);
}
} // namespace

bool DoScan(const Args& Line)
{
    if (!LoadSession(Line.Files[0]) || !ScanRawFile(Line.Files[1])) return false;
    CheckRate(Line.Files[1]);
    return WriteStrFile(Line.Files[2]);
}

bool DoStrokes(const Args& Line)
{
    if (!LoadSession(Line.Files[0]) || !LoadRaw(Line.Files[1], Line)) return false;
    int32_t Stop = Line.Whole("--stop", 0);
    if (!ExportStrokes(gKeyWin, Line.Whole("--start", 0), Stop)) return false;
    std::cout << StrokeLogFN << std::endl;
    return true;
}

bool DoProcess(const Args& Line)
{
    const std::string& Session = Line.Files[0];
    if (!LoadSession(Session)) return false;
    if (Line.Has("--comment")) gBatchDialogs.Answer = Line.Text("--comment", "");
    for (std::size_t i = 1; i < Line.Files.size(); ++i)
        if (!ProcessGuarded(Line.Files[i], Line)) return false;
    return SaveSession(Session, Line.Text("--out", Session));
}
