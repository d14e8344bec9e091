// Opening a clip and finding its pictures.
#include "platform/ffmpeg/sFFmpegMedia.h"

#include "platform/ffmpeg/mFileEnd.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace {
constexpr int Threads = 2;
constexpr int32_t NearBy = 250;   // pictures that are decoded sooner than the index of a long clip is made
constexpr int32_t SoonerRead = 8; // pictures that are decoded sooner than a place is sought
constexpr double Rounding = 1e-6;
} // namespace

bool sFFmpegMedia::Fail(const std::string& Why)
{
    Close();
    Failure = Why;
    return false;
}

bool sFFmpegMedia::Open(const std::string& NewPath)
{
    Close();
    if (const std::string Why = Reader.Open(NewPath, Threads); !Why.empty()) return Fail(Why);
    Indexer.Start(NewPath);
    const AVFrame* First = Reader.Next();
    if (!First || First->width < 1 || First->height < 1)
        return Fail(BreaksOff(NewPath) ? "it breaks off before the end of its first picture"
                                       : "no picture in it can be decoded");
    Path = NewPath;
    Maker.Begin(Reader.File().Format(), Reader.File().Stream(), *First);
    if (!Keep(0, *First)) return Fail("its pictures have colours that cannot be shown");
    Counted = 1;
    LastOut = 0;
    SayInfo();
    return true;
}

void sFFmpegMedia::Close()
{
    Indexer.Stop();
    Cache.Clear();
    Path.clear();
    Failure.clear();
    Said = {};
    Counted = 0;
    LastOut = -1;
    FirstGood = 0;
    IsLost = false;
    Reader = {};
}

void sFFmpegMedia::SayInfo()
{
    const sDemuxer& File = Reader.File();
    const AVStream& Stream = File.Stream();
    Said.Width = Maker.Width();
    Said.Height = Maker.Height();
    Said.Codec = avcodec_get_name(Stream.codecpar->codec_id);
    Said.Step = UsualStep(File);
    if (Stream.duration > 0)
        Said.Duration = static_cast<double>(Stream.duration) * BaseOf(File);
    else if (File.Format().duration > 0)
        Said.Duration = static_cast<double>(File.Format().duration) / AV_TIME_BASE;
    constexpr double Many = 1e9;
    const double Frames = Stream.nb_frames > 0 ? static_cast<double>(Stream.nb_frames) : Said.Duration / Said.Step;
    Said.Frames = static_cast<int>(std::lround(std::clamp(Frames, 1.0, Many)));
}

ClipInfo sFFmpegMedia::Info() const
{
    const auto Table = IsOpen() ? Indexer.Table() : nullptr;
    if (!Table) return Said;
    ClipInfo Known = Said;
    Known.Frames = Table->Pictures();
    Known.IsCut = Table->IsCut();
    Known.Duration = Table->Duration();
    Known.Step = Table->Step();
    return Known;
}

double sFFmpegMedia::TimeOf(int32_t Number)
{
    const auto Table = IsOpen() ? Indexer.Table() : nullptr;
    const int32_t Frames = Table ? Table->Pictures() : Said.Frames;
    if (Frames < 1) return 0;
    Number = std::clamp(Number, 0, Frames - 1);
    return Table ? Table->TimeOf(Number) : Number * Said.Step;
}

int sFFmpegMedia::FrameAt(double Time)
{
    if (!IsOpen() || !(Time > 0)) return 0;
    if (const auto Table = Indexer.Table()) return Table->PictureAt(Time);
    const double Number = Said.Step > 0 ? std::floor(Time / Said.Step + Rounding) : 0;
    return static_cast<int>(std::min<double>(Number, Said.Frames - 1));
}

sFFmpegMedia::Shared sFFmpegMedia::Keep(int32_t Number, const AVFrame& Frame)
{
    Shared Made = Maker.Make(Frame);
    if (Made) Maker.Reuse(Cache.Keep(Number, Made));
    return Made;
}

sFFmpegMedia::Shared sFFmpegMedia::Frame(int32_t Number)
{
    if (!IsOpen()) return nullptr;
    Failure.clear();
    Number = std::max(Number, 0);
    if (!Indexer.Table()) {
        if (Shared Kept = Cache.Find(Number)) return Kept;
        if (Number >= Counted && Number - Counted <= NearBy)
            if (Shared Found = CountOn(Number)) return Found;
        Indexer.Wait();
    }
    const auto Table = Indexer.Table();
    if (Table->Pictures() < 1) {
        Failure = "the index of the video cannot be made: the file cannot be read any more, or memory is short";
        return nullptr;
    }
    Number = std::min(Number, Table->Pictures() - 1);
    if (Shared Kept = Cache.Find(Number)) return Kept;
    if (Shared Found = Decode(*Table, Number)) return Found;
    return Nearest(*Table, Number);
}

// While there is no index, pictures have the numbers in which they come.
sFFmpegMedia::Shared sFFmpegMedia::CountOn(int32_t Number)
{
    while (!IsLost && Counted <= Number) {
        const AVFrame* Next = Reader.Next();
        if (!Next) {
            IsLost = true;
            return nullptr;
        }
        LastOut = Counted++;
        Shared Found = Number - LastOut <= Cache.Depth() ? Keep(LastOut, *Next) : nullptr;
        if (LastOut == Number) return Found;
    }
    return nullptr;
}

bool sFFmpegMedia::CanGoOn(int32_t Number, int32_t Key) const
{
    if (IsLost || Number <= LastOut) return false;
    return Number - LastOut <= SoonerRead || Key <= Reader.NextPacket();
}

sFFmpegMedia::Shared sFFmpegMedia::Decode(const sClipTable& Table, int32_t Number)
{
    constexpr int Tries = 3; // further and further back
    int32_t Key = Table.KeyFor(Number, std::numeric_limits<int32_t>::max());
    if (CanGoOn(Number, Key))
        if (Shared Found = DecodeOn(Table, Number)) return Found;
    for (int Try = 0; Try < Tries; ++Try) {
        if (Try == Tries - 1) Key = 0;
        IsLost = !Reader.GoTo(Table, Key);
        if (IsLost) return nullptr;
        LastOut = -1;
        FirstGood = Key == 0 ? 0 : Table.PictureOf(Key);
        if (Shared Found = DecodeOn(Table, Number)) return Found;
        if (Key == 0) return nullptr;
        Key = Table.KeyFor(Number, Key);
    }
    return nullptr;
}

// Pictures that come ahead of the key picture are made of what was not decoded.
sFFmpegMedia::Shared sFFmpegMedia::DecodeOn(const sClipTable& Table, int32_t Number)
{
    while (const AVFrame* Next = Reader.Next()) {
        const int32_t Came = Table.PictureOf(Next->pts);
        if (Came < FirstGood || Came < 0) continue;
        LastOut = std::max(LastOut, Came);
        if (Came <= Number && Number - Came > Cache.Depth()) continue;
        Shared Made = Keep(Came, *Next);
        if (Came == Number) return Made;
        if (Came > Number) return nullptr;
    }
    IsLost = true;
    return nullptr;
}

// In place of a picture that is damaged the one before it stays.
sFFmpegMedia::Shared sFFmpegMedia::Nearest(const sClipTable& Table, int32_t Number)
{
    for (int32_t Before = Number - 1; Before >= std::max(Number - SoonerRead, 0); --Before) {
        Shared Found = Cache.Find(Before);
        if (!Found) Found = Decode(Table, Before);
        if (!Found) continue;
        Failure = "picture " + std::to_string(Number) + " is damaged: picture " + std::to_string(Before) + " is shown";
        return Found;
    }
    Failure =
        "picture " + std::to_string(Number) + " and those before it cannot be decoded: the file is damaged, or gone";
    return nullptr;
}
