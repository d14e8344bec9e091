// Reading of recordings: frames are gathered in small tiles, so that the store is filled along its channels.
#include "files/mBinIO.h"

#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "files/mDecode.h"
#include "platform/mHost.h"
#include "processing/mPhysVal.h"

#include <algorithm>
#include <filesystem>
#include <limits>
#include <vector>

RawFile gScanFile;
Stream gScanStream;
SampleVector gScanData{};

namespace {
// What the reading of a recording carries from frame to frame.
struct ReadState
{
    double LastTime = 0;             // s, last stamp seen while waiting for the first sample
    std::optional<double> FirstTime; // s, stamp of the first sample
    std::vector<double> Prev;        // last count of each channel
};

// Seconds since the first stamp that moved; 0 up to that one.
double TimeSinceFirst(double Stamp, ReadState& State)
{
    if (State.FirstTime) return Stamp - *State.FirstTime;
    if (Stamp > State.LastTime)
        State.FirstTime = Stamp;
    else
        State.LastTime = Stamp;
    return 0;
}

// Gathers frames and puts them into a store, channel by channel.
class StoreFiller
{
public:
    /// Of frames with ChanCnt channels in a stretch of that many bytes.
    StoreFiller(int ChanCnt, int64_t Bytes) : Width(static_cast<std::size_t>(ChanCnt) + 1), Stretch(Bytes)
    {
        State.Prev.resize(Width);
        Tile.resize(Width * Stride);
        Store.Create(ChanCnt, -1);
    }

    void AddFrame();
    int Count() const { return Store.UBound() + 1 + static_cast<int>(Waiting); }
    SampleStore Finish();

private:
    static constexpr std::size_t TileFrames = 64;
    static constexpr std::size_t Stride = TileFrames + 8;

    void Flush();

    SampleStore Store;
    ReadState State;
    std::vector<double> Tile; // the time, then the counts of each channel
    std::size_t Width;
    std::size_t Waiting = 0; // frames in the tile
    int64_t Stretch;
};

void StoreFiller::AddFrame()
{
    for (std::size_t Chan = 1; Chan < Width; ++Chan)
        Tile[Chan * Stride + Waiting] = gScanData[Chan];
    Tile[Waiting] = TimeSinceFirst(gScanData[0], State);
    if (++Waiting == TileFrames) Flush();
}

void StoreFiller::Flush()
{
    const int First = Store.UBound() + 1;
    // The first tile shows how many frames the stretch may hold.
    if (First == 0 && Waiting > 0)
        Store.Reserve(
            static_cast<int>(std::min<int64_t>(Stretch * Count() / gScanFile.Taken() + 1, SampleStore::MaxIndex + 1)));
    Store.Extend(static_cast<int>(Waiting));
    for (std::size_t Chan = 0; Chan < Width; ++Chan) {
        const auto Values = std::span(Tile).subspan(Chan * Stride, Waiting);
        if (Chan > 0) CalcPhysVals(static_cast<int>(Chan), Values, State.Prev[Chan]);
        Store.Put(static_cast<int>(Chan), First, Values);
    }
    Waiting = 0;
}

SampleStore StoreFiller::Finish()
{
    Flush();
    return std::move(Store);
}

void CheckChannels()
{
    const int Known = std::min(gFile.Calibr.UBound(), LastDataChan);
    if (gFile.ChanCnt >= 0 && gFile.ChanCnt <= Known) return;
    throw RunError("the session counts " + FormatNum(gFile.ChanCnt, "0") + " channels, of which " +
                   FormatNum(Known, "0") + " can be read");
}

// The frames of gScanFile between two positions.
SampleStore ReadStretch(int32_t Start, int32_t Stop)
{
    const int64_t Length = int64_t{Stop} - Start + 1;
    StoreFiller Filler(gFile.ChanCnt, std::min<int64_t>(Length, gScanFile.Length()));
    PercentMeter Meter(Length);
    if (gScanFile.Length() < gFrameMin) return Filler.Finish();
    while (ReadFrame()) {
        Filler.AddFrame();
        const int32_t Position = gScanFile.Position();
        if (Meter.IsReached(int64_t{Position} - Start)) ShowReading(FormatNum(Meter.Percent(), "0") + "%");
        if (gScanFile.AtEnd() || Position + gFrameMin >= Stop) break;
        if (Filler.Count() > SampleStore::MaxIndex) {
            gScanFile.Left.FillAt(Position);
            break;
        }
    }
    return Filler.Finish();
}

bool HasSync(std::span<const uint8_t> Bytes)
{
    return std::ranges::any_of(Bytes, [](uint8_t Byte) { return Byte >= SyncLimit; });
}

// Whether other frames may follow one that could not be decoded, or begin within it.
bool HasMore(const Frame& Broken)
{
    return HasSync(Broken.Bytes.subspan(1)) || !gScanFile.AtEnd();
}

// The frames of gScanFile that begin before Stop, at least one. False when the user gives up.
bool CopyFrames(int32_t Stop, WholeFile& Piece)
{
    const int32_t Start = gScanFile.Position();
    PercentMeter Meter(int64_t{Stop} - Start);
    do {
        const auto Taken = gScanFile.Take();
        if (!Taken || !Taken->IsWhole()) break;
        Piece.Append({reinterpret_cast<const char*>(Taken->Bytes.data()), Taken->Bytes.size()});
        if (Meter.IsReached(int64_t{gScanFile.Position()} - Start) && !GoOn(Meter.Percent())) return false;
    } while (gScanFile.Position() < Stop);
    return true;
}
} // namespace

bool RawFile::Open(const std::string& Path, int32_t Start)
{
    Close();
    std::error_code Error;
    const auto Bytes = std::filesystem::file_size(Path, Error);
    if (Error || Bytes >= std::numeric_limits<int32_t>::max()) return false;
    File.rdbuf()->pubsetbuf(nullptr, 0); // the source has a buffer of its own
    Name = Path;
    File.open(Path, std::ios::binary);
    File.seekg(Start - 1);
    First = Start;
    Size = static_cast<int32_t>(Bytes);
    Left.Begin(Path, Size);
    return File.good();
}

void RawFile::Close()
{
    File.close();
    File.clear();
    Source.Restart();
}

std::optional<Frame> RawFile::Take()
{
    const int32_t Behind = Position();
    const auto Taken = TakeFrame(Source);
    const std::size_t Bytes = Taken ? Taken->Bytes.size() : 0;
    LastAt = Position() - static_cast<int32_t>(Bytes);
    // A stretch may begin within a frame.
    if (Behind > First || First == 1) Left.AddStray(Behind, LastAt - Behind, Taken && Taken->IsWhole() ? Bytes : 0);
    return Taken;
}

std::size_t RawFile::Read(std::span<uint8_t> Room)
{
    File.read(reinterpret_cast<char*>(Room.data()), static_cast<std::streamsize>(Room.size()));
    return static_cast<std::size_t>(File.gcount());
}

bool OpenScanFile(const std::string& Path, int32_t Start)
{
    if (!gScanFile.Open(Path, Start)) return FileFailed(CantOpen, Path, TitleError);
    gScanStream = NewStream();
    gScanData.fill(0);
    return true;
}

bool CloseScanFile(Unread* Left)
{
    PublishFile(gScanStream);
    const bool HasFailed = gScanFile.HasFailed();
    gScanFile.Close();
    if (HasFailed) return FileFailed(CantRead, gScanFile.Path(), TitleError);
    if (!Left) return ReportUnread(gScanFile.Left);
    *Left = gScanFile.Left;
    return true;
}

bool ReadFrame()
{
    const auto Taken = gScanFile.Take();
    if (!Taken) return false;
    const bool IsDecoded = DecodeFrame(FrameSource::File, *Taken, gScanStream, gScanData);
    if (!IsDecoded) {
        gScanFile.Left.StopAt(gScanFile.FrameAt(), HasMore(*Taken));
        return false;
    }
    // The long decoder refuses such a frame.
    if (IsShortFrame(FrameSource::File, Taken->Length()) && HasSync(Taken->Body().first(Taken->Body().size() - 1)))
        gScanFile.Left.AddDoubtful(gScanFile.FrameAt());
    gScanFile.Left.AddFrame(gScanStream.SampleTime);
    return true;
}

bool ReadRawFile(const std::string& Path, int32_t& Start, int32_t& Stop, Unread* Left)
{
    CheckChannels();
    const int32_t From = std::max(Start, 1);
    if (!OpenScanFile(Path, From)) return false;
    const int32_t To = Stop < 1 ? gScanFile.Length() : Stop;
    SampleStore Store = ReadStretch(From, To);
    if (!CloseScanFile(Left)) return false;
    gRaw = std::move(Store);
    Start = From;
    Stop = To;
    return true;
}

bool CutRawFile(const std::string& Dest, int32_t Start, int32_t Stop)
{
    if (!OpenScanFile(gRawFN, std::max(Start, 1))) return false;
    if (Stop < 1) Stop = gScanFile.Length();
    WholeFile Piece(Dest);
    const bool IsCut = CopyFrames(Stop, Piece);
    UpdateProgress(0);
    Unread Known; // to whoever read the recording before
    if (!CloseScanFile(&Known)) return false;
    if (!IsCut) {
        ShowReading("Cancelled");
        return false;
    }
    return Piece.Commit() || FileFailed(CantWrite, Dest, TitleError, Piece.Failure());
}
