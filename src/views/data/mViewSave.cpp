// Recordings cut out of recordings, and text.
#include "views/data/mViewSave.h"

#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "files/mBinIO.h"
#include "files/mExport.h"
#include "files/mQVN.h"
#include "files/mRawLog.h"
#include "platform/mHost.h"

#include <algorithm>
#include <filesystem>

double gDistInp;
double gTimeInp;

namespace {
constexpr const char* SaveTitle = "Save Raw Data as text";

// The file to write, empty when cancelled. A piece never takes the place of the recording it is cut from, nor of one
// that is running (reported to the user).
std::string AskTarget(const char* Ext, const std::string& Proposed)
{
    const std::string Path = ExecComDlg(SaveTitle, Ext, eFileMode::Out, Proposed);
    std::error_code Ignored;
    const bool IsRunning = gLogging && std::filesystem::equivalent(Path, gLogFile.Path(), Ignored);
    if (IsRunning) MsgBox("The recording is still running: " + Path, TitleError);
    if (IsRunning) return {};
    if (Path.empty() || !std::filesystem::equivalent(Path, gRawFN, Ignored)) return Path;
    MsgBox("This is the recording itself: a piece of it would take its place. Choose another name. " + Path,
           TitleError);
    return {};
}

// Appends the frames whose numbers stand in Numbers, rising, to Piece. False when the recording ends before them.
bool CopyFrames(RawFile& Source, std::span<const int32_t> Numbers, WholeFile& Piece)
{
    int32_t Next = 0;
    for (const int32_t Number : Numbers) {
        std::optional<Frame> Taken;
        for (; Next <= Number; ++Next) {
            Taken = Source.Take();
            if (!Taken || !Taken->IsWhole()) return false;
        }
        Piece.Append({reinterpret_cast<const char*>(Taken->Bytes.data()), Taken->Bytes.size()});
    }
    return true;
}
} // namespace

bool SaveFrames(int32_t Start, int32_t Stop, const FrameMap& Map)
{
    const auto Count = static_cast<int32_t>(Map.Frames.size());
    if (Start < 0 || Start >= Stop || Start >= Count) {
        MsgBox(Count == 0 ? "These samples are not from a recording: export them as text."
                          : "Select the samples to be saved first.",
               TitleInformation);
        return false;
    }
    const std::string Path = AskTarget("qvn", gCurDir);
    if (Path.empty()) return false;
    RawFile Source;
    if (!Source.Open(gRawFN, Map.Start)) return FileFailed(CantOpen, gRawFN, TitleError);
    WholeFile Piece(Path);
    const auto First = static_cast<std::size_t>(Start);
    const auto Numbers =
        std::span(Map.Frames).subspan(First, static_cast<std::size_t>(std::min(Stop + 1, Count)) - First);
    if (!CopyFrames(Source, Numbers, Piece)) {
        MsgBox("The recording is shorter than it was when it was read: " + gRawFN, TitleError);
        return false;
    }
    return Piece.Commit() || FileFailed(CantWrite, Path, TitleError, Piece.Failure());
}

bool SaveRows(int FirstRow, int LastRow)
{
    if (FirstRow < 1 || FirstRow >= LastRow || LastRow > gScanRows.UBound()) {
        MsgBox("Select the strokes to be saved first.", TitleInformation);
        return false;
    }
    const std::string Path = AskTarget("qvn", gCurDir);
    if (Path.empty()) return false;
    if (!CutRawFile(Path, gScanRows[FirstRow].Pos, gScanRows[LastRow].Pos)) return false;
    gScanStart = gScanRows[FirstRow].Time - gScanRows[1].Time;
    gScanStop = gScanRows[LastRow].Time - gScanRows[1].Time;
    return true;
}

std::string ExportName(const ViewData& Data, int32_t Start, int32_t Stop)
{
    return gCurDir + std::filesystem::path(Data.FileName).stem().string() + "_" + FormatNum(Start, "0") + "-" +
           FormatNum(Stop, "0") + ".txt";
}

bool ExportSamples(const ViewData& Data, int32_t Start, int32_t Stop)
{
    const std::string Path = AskTarget("txt", ExportName(Data, Start, Stop));
    return !Path.empty() && WriteText(Path, Start, Stop);
}

bool SaveStrokes()
{
    const std::string Path = gCurDir + gFileTitle + ".str";
    if (!WriteStrFile(Path)) return false;
    UpdateStatus("The stroke table is in " + Path);
    return true;
}
