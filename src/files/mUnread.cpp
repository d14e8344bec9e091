// Counting and wording of what was not read.
#include "files/mUnread.h"

#include "base/mNumText.h"
#include "base/mSampleStore.h"
#include "platform/mHost.h"

bool gStrictReading = false;

void Unread::Begin(const std::string& Path, int32_t Bytes)
{
    *this = {};
    Name = Path;
    Length = Bytes;
}

void Unread::AddBroken(int32_t Position, int64_t Bytes)
{
    if (Broken++ == 0) BrokenPlace = Place(Position);
    BrokenBytes += Bytes;
}

void Unread::AddDoubtful(int32_t Position)
{
    if (Doubtful++ == 0) DoubtfulPlace = Place(Position);
}

void Unread::StopAt(int32_t Position, bool More)
{
    HasStopped = true;
    HasMore = More;
    Stop = "stopped at " + Place(Position) + ": the rest was not read";
}

void Unread::FillAt(int32_t Position)
{
    Full = "only the first " + FormatNum(SampleStore::MaxIndex + 1, "0") + " samples are used, stopped at " +
           Place(Position) + ": scan it for strokes, or choose a stretch, to reach the rest";
}

std::string Unread::Text() const
{
    const std::string Words = Damage();
    if (!IsFull()) return Words;
    return Words.empty() ? Name + ": " + Full : Words + "; " + Full;
}

std::string Unread::Damage() const
{
    std::string Words = Stop;
    if (Broken > 0)
        Words += (Words.empty() ? "" : "; ") + FormatNum(Broken, "0") + (Broken == 1 ? " frame" : " frames") +
                 " that could not be decoded left out (" + FormatNum(static_cast<double>(BrokenBytes), "0") +
                 " bytes), the first at " + BrokenPlace;
    if (Doubtful > 0)
        Words += (Words.empty() ? "" : "; ") + FormatNum(Doubtful, "0") + (Doubtful == 1 ? " frame" : " frames") +
                 " with a sync byte inside, wrong or lying over others, the first at " + DoubtfulPlace;
    return Words.empty() ? "" : Name + ": " + Words;
}

std::string Unread::Place(int32_t Position) const
{
    return "byte " + FormatNum(Position, "0") + " of " + FormatNum(Length, "0") + " (frame " + FormatNum(Count, "0") +
           ", " + FormatNum(LastTime - FirstTime, "0.0") + " s)";
}

bool ReportUnread(const Unread& Left)
{
    if (const std::string Text = Left.Text(); !Text.empty()) MsgBox(Text, TitleWarning);
    return !gStrictReading || !Left.IsShort();
}
