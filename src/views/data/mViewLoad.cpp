// Loading of the data view.
#include "views/data/mViewLoad.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "files/mBinIO.h"
#include "files/mFrameRate.h"
#include "files/mMend.h"
#include "files/mOldBin.h"
#include "files/mQVN.h"
#include "platform/mHost.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <numeric>

double gScanStart;
double gScanStop;

namespace {
constexpr int StrokesAround = 3; // so that the detector finds the first and the last boundary

FrameMap MapFrom(int32_t Start)
{
    FrameMap Map{Start, std::vector<int32_t>(static_cast<std::size_t>(gRaw.UBound() + 1))};
    std::iota(Map.Frames.begin(), Map.Frames.end(), 0);
    return Map;
}

bool ReadFrames(const std::string& Path, int32_t Start, int32_t Stop, ViewData& Data, Unread& Left)
{
    if (!ReadRawFile(Path, Start, Stop, &Left)) return false;
    Data.Map = MapFrom(Start);
    return true;
}

// Strokes are timed by counting frames, so their rate must be right before the search.
void SettleRate(const std::string& Path)
{
    if (const auto Rate = FrameRate(Path))
        AskDataFreq(*Rate, "The frames of " + std::filesystem::path(Path).filename().string() + " come");
    else if (const auto Said = SessionRate())
        AskDataFreq(*Said, "The session is sampled");
}

bool Scan(const std::string& Path, Unread& Left)
{
    SettleRate(Path);
    UpdateStatus("Looking for strokes. Esc ends the search.");
    const bool IsDone = ScanRawFile(Path, &Left);
    UpdateStatus(IsDone ? FormatNum(gScanRows.UBound(), "0") + " strokes found" : "");
    if (IsDone) gRaw.Create(gFile.ChanCnt, -1);
    return IsDone;
}

// A view that ends too early must not pass for the whole.
void ReportCount(const Unread& Left, const char* What, const char* Advice)
{
    const std::string Count = FormatNum(gRaw.UBound() + 1, "0");
    UpdateStatus(Count + " samples are read");
    if (Left.IsFull())
        MsgBox(std::string(What) + " more samples than a view holds: the first " + Count + " are shown. " + Advice,
               TitleWarning);
}

bool ReadWholeFile(const std::string& Path, ViewData& Data, Unread& Left)
{
    if (!ReadFrames(Path, 0, 0, Data, Left)) return false;
    ReportCount(Left, "The recording has", "Scan it for strokes to reach the rest.");
    return true;
}

// A name beside the recording that no file has.
std::string MendedName(const std::filesystem::path& Path)
{
    const std::string Stem = (Path.parent_path() / Path.stem()).string() + "_mended";
    std::string Name = Stem + ".qvn";
    for (int i = 2; std::filesystem::exists(Name); ++i)
        Name = Stem + "_" + FormatNum(i, "0") + ".qvn";
    return Name;
}

// Reports what was left out of a recording. The path of a mended copy when the user wants one, otherwise an empty text.
std::string OfferMending(const std::string& Path, const Unread& Left)
{
    const std::string Damage = Left.Damage();
    if (Damage.empty()) return {};
    if (!Left.IsMendable()) {
        MsgBox(Damage, TitleWarning);
        return {};
    }
    if (!AskYesNo(Damage + ".\n\nWrite a copy without the broken bytes and open it? The recording stays as it is.",
                  TitleWarning))
        return {};
    const std::string Copy = MendedName(Path);
    const auto Result = MendRawFile(Path, Copy);
    if (!Result) return {};
    MsgBox(Result->Words() + ": " + Copy, TitleInformation);
    return Copy;
}

// The head of an old file tells its span of time, and no distance.
bool ReadPrimary(const std::string& Path, ViewData& Data)
{
    if (!ReadOldFile(Path)) return false;
    Data.TimeText = FormatNum(gRawStop - gRawStart, "0.0");
    return true;
}

bool LoadKind(const std::string& Path, int16_t Mode, ViewData& Data, Unread& Left)
{
    switch (Mode) {
    case DataRaw:
    case DataLogger:
        return ReadWholeFile(Path, Data, Left);
    case DataPrimary:
        return ReadPrimary(Path, Data);
    case DataScanned:
        return Scan(Path, Left);
    default:
        return true;
    }
}

std::string CaptionOf(const ViewData& Data)
{
    switch (Data.Mode) {
    case DataRaw:
        return "Raw Data in " + Data.FileName;
    case DataPrimary:
        return "Primary Data in " + Data.FileName;
    case DataTypical:
        return "Typical Patterns";
    default:
        return "Skarvelin Data in " + Data.FileName;
    }
}
} // namespace

std::string FrequencyNote()
{
    if (gFile.TimeStep <= 0 || std::abs(gFile.TimeStep * gDataFreq - 1) < 0.01) return {};
    return "Attention: times at " + FormatNum(gDataFreq, "0") + " Hz as the options say, but the session says " +
           FormatNum(1 / gFile.TimeStep, "0") + " Hz";
}

bool LoadView(const std::string& Path, int16_t Mode, ViewData& Data)
{
    ViewData New;
    Unread Left;
    const bool IsLoaded = LoadKind(Path, Mode, New, Left);
    const std::string Mended = OfferMending(Path, Left);
    const bool HasCopy = !Mended.empty() && LoadKind(Mended, Mode, New, Left);
    if (!IsLoaded && !HasCopy) return false;
    const std::string& FileName = HasCopy ? Mended : Path;
    New.Mode = Mode;
    New.FileName = std::filesystem::path(FileName).filename().string();
    New.Caption = CaptionOf(New);
    LoadSetting("StdFilter");
    if (Mode != DataPrimary && Mode != DataTypical) New.RawFN = gRawFN = FileName;
    if (Mode == DataRaw || Mode == DataPrimary)
        New.DescIdx = FindDesc(gFile, New.FileName, Mode == DataRaw ? DescKey::RawFN : DescKey::PrimFN);
    if (New.DescIdx >= 1 && gFile.SampleCnt >= 1) {
        New.DistText = FormatNum(gFile.Desc[New.DescIdx].DistReal, "0.0");
        New.TimeText = FormatNum(gFile.Desc[New.DescIdx].TimeReal, "0.0");
    }
    Data = std::move(New);
    return true;
}

bool GetRawData(int FirstRow, int LastRow, ViewData& Data)
{
    if (FirstRow < 1 || FirstRow > LastRow || LastRow > gScanRows.UBound()) {
        MsgBox("Select the strokes whose data are wanted first.", TitleInformation);
        return false;
    }
    const int From = std::max(FirstRow - StrokesAround, 0);
    const int To = std::min(LastRow + StrokesAround, gScanRows.UBound());
    Unread Left;
    if (!ReadFrames(gRawFN, gScanRows[From].Pos, gScanRows[To].Pos, Data, Left)) return false;
    // A long wait ahead of the first stroke would leave no room for the strokes.
    if (From == 0 && Left.IsFull() && !ReadFrames(gRawFN, gScanRows[1].Pos, gScanRows[To].Pos, Data, Left))
        return false;
    ReportCount(Left, "The selected strokes have", "Select fewer strokes.");
    if (const std::string Damage = Left.Damage(); !Damage.empty()) MsgBox(Damage, TitleWarning);
    const double Zero = gScanRows[1].Time;
    gScanStart = gScanRows[FirstRow].Time - Zero;
    gScanStop = gScanRows[LastRow].Time - Zero;
    return true;
}
