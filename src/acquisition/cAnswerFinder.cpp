// Bytes are cut into stretches of text between frames; the lines at the end of a stretch are answers.
#include "acquisition/cAnswerFinder.h"

#include "files/mFrame.h"

#include <algorithm>
#include <utility>

namespace {
constexpr std::size_t LongestFrame = 4000; // bytes; a head that claims more belongs to no frame
constexpr std::size_t ShortestKey = 2;
constexpr std::string_view Blanks = " \t\n";

bool IsSync(char Letter)
{
    return static_cast<uint8_t>(Letter) >= SyncLimit;
}

bool IsPrintable(std::string_view Text)
{
    return std::all_of(Text.begin(), Text.end(), [](char C) { return (C >= ' ' && C <= '~') || C == '\t'; });
}

bool IsLetter(char C)
{
    return (C >= 'A' && C <= 'Z') || (C >= 'a' && C <= 'z');
}

bool IsDigit(char C)
{
    return C >= '0' && C <= '9';
}

std::string_view Trimmed(std::string_view Text)
{
    const std::size_t From = Text.find_first_not_of(Blanks);
    if (From == std::string_view::npos) return {};
    return Text.substr(From, Text.find_last_not_of(Blanks) + 1 - From);
}

// Whether Text is "#", a key, ":" and a printable value.
bool IsAnswer(std::string_view Text)
{
    if (!Text.starts_with('#') || !IsPrintable(Text)) return false;
    const std::string_view Key = Trimmed(Text.substr(1, Text.find(':') - 1));
    return Text.find(':') != std::string_view::npos && Key.size() >= ShortestKey && IsLetter(Key[0]) &&
           std::all_of(Key.begin(), Key.end(), [](char C) { return IsLetter(C) || IsDigit(C); });
}

// Where the answer that ends with Text begins; npos when none does. One that begins the line is taken whole; behind
// bytes of a frame, in which there may be the same signs, the last one.
std::size_t AnswerStart(std::string_view Text)
{
    const std::size_t First = Text.find_first_not_of(Blanks);
    if (First != std::string_view::npos && IsAnswer(Text.substr(First))) return First;
    for (std::size_t At = Text.rfind('#'); At != std::string_view::npos && At > 0; At = Text.rfind('#', At - 1))
        if (IsAnswer(Text.substr(At))) return At;
    return std::string_view::npos;
}

// Whether the last line of Text is an answer, with nothing behind its CR.
bool EndsWithAnswer(std::string_view Text)
{
    if (!Text.ends_with('\r')) return false;
    Text.remove_suffix(1);
    return AnswerStart(Text.substr(Text.rfind('\r') + 1)) != std::string_view::npos;
}

std::size_t ByteAt(const std::string& Bytes, std::size_t At)
{
    return static_cast<uint8_t>(Bytes[At]);
}

std::size_t NextSync(const std::string& Bytes, std::size_t From)
{
    return static_cast<std::size_t>(
        std::find_if(Bytes.begin() + static_cast<std::ptrdiff_t>(From), Bytes.end(), IsSync) - Bytes.begin());
}
} // namespace

AnswerParts SplitAnswer(std::string_view Line)
{
    if (!IsAnswer(Line)) return {};
    const std::size_t Colon = Line.find(':');
    return {std::string(Trimmed(Line.substr(1, Colon - 1))), std::string(Trimmed(Line.substr(Colon + 1)))};
}

void cAnswerFinder::Add(std::span<const uint8_t> Bytes)
{
    Pending.append(Bytes.begin(), Bytes.end());
    Resolve(false);
}

void cAnswerFinder::Settle(bool IsOver)
{
    Resolve(true);
    if (!IsOver) return;
    if (Lines.empty() && AddLinesAtEnd(std::exchange(LastFrame, {}), 0) == 0) AddLinesAtEnd(AnswerFrame, 0);
    AnswerFrame.clear();
}

std::vector<std::string> cAnswerFinder::TakeLines()
{
    return std::exchange(Lines, {});
}

void cAnswerFinder::Resolve(bool IsCalm)
{
    while (!Pending.empty() && (IsSync(Pending[0]) ? PassFrame(IsCalm) : PassText(IsCalm))) {
    }
}

// False when more bytes are needed to know.
bool cAnswerFinder::PassFrame(bool IsCalm)
{
    const std::size_t Next = NextSync(Pending, 1);
    const bool HasHead = Next >= FrameHeadSize;
    const std::size_t Size =
        HasHead ? FrameHeadSize + ByteAt(Pending, 2) + 128 * ByteAt(Pending, 3) + 1 : FrameHeadSize;
    if (HasHead && Size <= Next) {
        LastFrame = Pending.substr(0, Size);
        if (EndsWithAnswer(LastFrame)) AnswerFrame = LastFrame;
        Pending.erase(0, Size);
        IsInText = false;
        return true;
    }
    if (Next == Pending.size() && !IsCalm && Size <= LongestFrame) return false;
    // Torn: what follows its sync byte is no more than bytes in which an answer may end.
    Pending.erase(0, 1);
    LastFrame.clear();
    Begun.clear();
    IsInText = false;
    return true;
}

bool cAnswerFinder::PassText(bool IsCalm)
{
    const std::size_t Next = NextSync(Pending, 0);
    if (Next == Pending.size() && !IsCalm) return false;
    const std::string Text = Pending.substr(0, Next);
    Pending.erase(0, Next);
    const std::string Frame = std::exchange(LastFrame, {});
    const std::string Whole = std::exchange(Begun, {}) + Text;
    // A frame that breaks off takes the beginning of the answer behind it for its own rest.
    std::size_t Found = Frame.empty() ? 0 : AddLinesAtEnd(Frame + Text, Frame.size());
    if (Found == 0) Found = AddLinesAtEnd(Whole, 0);
    const std::size_t Rest = Whole.rfind('\r') + 1; // 0 without one
    const std::size_t Start = Whole.find(IsInText ? Whole[Rest] : '#', Rest);
    if (Rest < Whole.size() && Start != std::string::npos && IsPrintable(Trimmed(Whole.substr(Start))))
        Begun = Whole.substr(Start);
    return true;
}

// Adds the lines with which Text ends, in their order, as far as they reach back without a gap and the last one ends
// behind EndsBehind and the first begins ahead of it. Lines of another form count behind an answer. Gives their number.
std::size_t cAnswerFinder::AddLinesAtEnd(std::string_view Text, std::size_t EndsBehind)
{
    const std::size_t End = Text.rfind('\r');
    if (End == std::string_view::npos || End < EndsBehind) return 0;
    const std::string_view Rest = Trimmed(Text.substr(End + 1));
    const bool IsNextLine = IsPrintable(Rest) && (IsInText || Rest.empty() || Rest[0] == '#');
    if (!IsNextLine) return 0; // a frame's bytes go on
    std::vector<std::string> Found;
    std::size_t Sure = 0;    // lines of Found, from the last one of the text on, that are or follow an answer
    std::size_t First = End; // where the first of them begins
    for (std::size_t To = End; To != std::string_view::npos;) {
        const std::size_t Cr = To == 0 ? std::string_view::npos : Text.rfind('\r', To - 1);
        const std::size_t From = Cr == std::string_view::npos ? 0 : Cr + 1;
        std::string_view Line = Text.substr(From, To - From);
        To = Cr;
        if (Trimmed(Line).empty()) continue;
        Line = Line.substr(0, Line.find_last_not_of(Blanks) + 1);
        const std::size_t Start = AnswerStart(Line);
        const bool IsAnAnswer = Start != std::string_view::npos;
        if (!IsAnAnswer && !IsPrintable(Line)) break;
        Found.emplace_back(Trimmed(IsAnAnswer ? Line.substr(Start) : Line));
        if (!IsAnAnswer && !(IsInText && EndsBehind == 0)) continue;
        Sure = Found.size();
        First = From + (IsAnAnswer ? Start : 0);
        if (IsAnAnswer && !Trimmed(Line.substr(0, Start)).empty()) break;
    }
    const bool IsNoneOfFrame = EndsBehind > 0 && First >= EndsBehind;
    if (Sure == 0 || IsNoneOfFrame) {
        IsInText = IsInText && Trimmed(Text).empty();
        return 0;
    }
    Found.resize(Sure);
    IsInText = true;
    Lines.insert(Lines.end(), Found.rbegin(), Found.rend());
    return Sure;
}
