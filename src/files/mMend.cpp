// Mending of recordings: one pass learns what sound frames look like, a second one copies them.
#include "files/mMend.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "files/mBinIO.h"
#include "files/mDecode.h"
#include "platform/mHost.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>

namespace {
constexpr int16_t OldSlaveModel = 66;
constexpr int ShortLength = 28;
constexpr std::size_t OldSlaveBody = 49; // bytes, at least

// What sends the frames of a recording.
enum eSender
{
    SenderModern,  // by the length of a frame a master or a slave alone
    SenderOldSlave // model 66, whose frames no length tells from those of a master
};

// What stands at a sync byte.
struct Candidate
{
    Frame Found;
    bool IsFollowed; // directly by the next sync byte or by the end of the file

    bool IsUnbroken() const
    {
        if (!Found.IsWhole()) return false;
        const auto Body = Found.Body();
        return std::ranges::none_of(Body.first(Body.size() - 1), [](uint8_t Byte) { return Byte >= SyncLimit; });
    }
};

std::optional<Candidate> NextCandidate(ByteSource& Source)
{
    if (!FindSync(Source)) return {};
    const Frame Head{Source.Peek(FrameHeadSize)};
    if (Head.Bytes.size() < FrameHeadSize) return Candidate{Head, false};
    const std::size_t Size = Head.Size();
    const auto Seen = Source.Peek(Size + 1);
    return Candidate{{Seen.first(std::min(Size, Seen.size()))},
                     Seen.size() == Size || (Seen.size() > Size && Seen[Size] >= SyncLimit)};
}

// Reads a recording from sync byte to sync byte.
class Walk
{
public:
    /// First: the percent of the work that is done by then; the walk is the next half of it.
    Walk(RawFile& Recording, int First) : File(Recording), Meter(Recording.Length()), Before(First) {}

    /// Shows every candidate to Take, which says whether it is a frame: the next candidate stands behind a frame, or
    /// behind the sync byte of what is none. False when the user gives up.
    template <class Judge>
    bool Run(const Judge& Take)
    {
        while (const auto Next = NextCandidate(File.Bytes())) {
            const std::size_t Size = Next->Found.Bytes.size();
            File.Bytes().Skip(Take(*Next, File.Position()) ? Size : 1);
            if (Meter.IsReached(File.Position()) && !GoOn(Before + Meter.Percent() / 2)) return false;
        }
        return true;
    }

private:
    RawFile& File;
    PercentMeter Meter;
    int Before;
};

// Tells the frames of one recording from bytes that look like one.
class FrameJudge
{
public:
    /// Takes a candidate of the first pass into account. True when it may be a frame.
    bool Learn(const Candidate& Next);

    /// Ends the first pass. A session that is open says what sends the frames; without one the frames do.
    void Settle();

    /// Whether a candidate of the second pass is a frame. What the decoder keeps between frames follows those that are.
    bool IsFrame(const Candidate& Next);

private:
    bool IsDecoded(eSender Kind, const Frame& Found);

    Stream Kept = NewStream();
    eSender Sender = SenderModern;
    int ModernFrames = 0;
    int OldFrames = 0;                    // that can only come from the old slave
    std::array<std::set<int>, 2> Lengths; // L of undisturbed frames, for each sender
};

bool FrameJudge::Learn(const Candidate& Next)
{
    if (!Next.IsUnbroken()) return false;
    const bool IsModern = IsDecoded(SenderModern, Next.Found);
    const bool IsOld = IsDecoded(SenderOldSlave, Next.Found);
    if (IsModern)
        ++ModernFrames;
    else if (IsOld)
        ++OldFrames;
    if (Next.IsFollowed && IsModern) Lengths[SenderModern].insert(Next.Found.Length());
    if (Next.IsFollowed && IsOld) Lengths[SenderOldSlave].insert(Next.Found.Length());
    return IsModern || IsOld;
}

void FrameJudge::Settle()
{
    const bool IsOld = gFile.Model == 0 ? OldFrames > ModernFrames : gFile.Model == OldSlaveModel;
    Sender = IsOld ? SenderOldSlave : SenderModern;
    Kept = NewStream();
}

bool FrameJudge::IsFrame(const Candidate& Next)
{
    if (!Next.IsUnbroken()) return false;
    const std::set<int>& Known = Lengths[Sender];
    return (Known.empty() || Known.contains(Next.Found.Length())) && IsDecoded(Sender, Next.Found);
}

bool FrameJudge::IsDecoded(eSender Kind, const Frame& Found)
{
    if (Kind == SenderOldSlave) return Found.Body().size() >= OldSlaveBody;
    Stream Tried = Kept;
    SampleVector Data;
    if (Found.Length() != ShortLength && !DecodeLong(Found.Body(), Tried, Data)) return false;
    Kept = Tried;
    return true;
}

std::string Count(int64_t Number, const char* Noun)
{
    return FormatNum(static_cast<double>(Number), "0") + " " + Noun + (Number == 1 ? "" : "s");
}

// Copies frames and counts what lies between them.
class Copier
{
public:
    explicit Copier(WholeFile& Copy) : Dest(Copy) {}

    void Keep(const Frame& Found, int32_t Position);
    void Refuse() { HasBroken = true; }

    /// Counts what follows the last frame, up to the position behind the file.
    Mending Finish(int32_t End);

private:
    void CountGap(int32_t To, std::size_t FrameSize);

    WholeFile& Dest;
    Mending Result;
    int32_t Behind = 1; // position behind the last frame
    std::size_t LastSize = 0;
    bool HasBroken = false; // since the last frame
};

void Copier::Keep(const Frame& Found, int32_t Position)
{
    CountGap(Position, Found.Bytes.size());
    Dest.Append({reinterpret_cast<const char*>(Found.Bytes.data()), Found.Bytes.size()});
    LastSize = Found.Bytes.size();
    Behind = Position + static_cast<int32_t>(LastSize);
    ++Result.Kept;
}

// Several sync bytes may stand within one broken frame, so frames are counted by the room that they took.
void Copier::CountGap(int32_t To, std::size_t FrameSize)
{
    const int32_t Gap = To - Behind;
    const auto Frames = static_cast<int32_t>(RoundHalfEven(SafeDiv(Gap, static_cast<double>(FrameSize))));
    if (Gap > 0 && Result.FirstAt == 0) Result.FirstAt = Behind;
    Result.Bytes += Gap;
    Result.Frames += std::max(Frames, HasBroken ? 1 : 0);
    HasBroken = false;
}

Mending Copier::Finish(int32_t End)
{
    CountGap(End, LastSize);
    return Result;
}

bool IsSameFile(const std::string& First, const std::string& Second)
{
    std::error_code Ignored;
    return First == Second || std::filesystem::equivalent(First, Second, Ignored);
}

// Both passes over an open recording. Nothing when the user gives up.
std::optional<Mending> CopyFrames(RawFile& Recording, WholeFile& Copy)
{
    FrameJudge Judge;
    if (!Walk(Recording, 0).Run([&](const Candidate& Next, int32_t) { return Judge.Learn(Next); })) return {};
    Judge.Settle();
    if (!Recording.Open(std::string(Recording.Path()))) return {};
    Copier Frames(Copy);
    const auto Sift = [&](const Candidate& Next, int32_t Position) {
        const bool IsFrame = Judge.IsFrame(Next);
        if (IsFrame)
            Frames.Keep(Next.Found, Position);
        else
            Frames.Refuse();
        return IsFrame;
    };
    if (!Walk(Recording, 50).Run(Sift)) return {};
    return Frames.Finish(Recording.Length() + 1);
}
} // namespace

std::string Mending::Words() const
{
    if (Bytes == 0) return "Nothing was left out of " + Count(Kept, "frame");
    return Count(Frames, "frame") + " (" + Count(Bytes, "byte") + ") left out, the first at byte " +
           FormatNum(FirstAt, "0") + "; " + Count(Kept, "frame") + " kept";
}

std::optional<Mending> MendRawFile(const std::string& Path, const std::string& Dest)
{
    RawFile Recording;
    if (!Recording.Open(Path)) {
        MsgBox("Can't open file: " + Path, TitleError);
        return {};
    }
    if (IsSameFile(Path, Dest)) {
        MsgBox("The recording itself is never changed: choose another file than " + Path, TitleError);
        return {};
    }
    WholeFile Copy(Dest);
    const auto Result = CopyFrames(Recording, Copy);
    UpdateProgress(0);
    if (Recording.HasFailed())
        MsgBox("Can't read file: " + Path, TitleError);
    else if (!Result)
        ShowReading("Cancelled");
    else if (Result->Kept == 0)
        MsgBox("There are no frames of a logger in the file: " + Path, TitleError);
    else if (!Copy.Commit())
        MsgBox("Can't write file: " + Dest + " (" + Copy.Failure() + ")", TitleError);
    else
        return Result;
    return {};
}
