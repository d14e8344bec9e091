// Writing and reading of raw calibration files.
#include "calibration/mRawCal.h"

#include "base/mCodePage.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mSettings.h"
#include "platform/mHost.h"

#include <algorithm>
#include <string_view>

namespace {
constexpr const char* HeadLine = "Raw Calibration Data";
constexpr const char* EndLine = "\r\n";

// Fields of the second line that are read.
enum eHeadField
{
    FieldChan = 1,
    FieldQ0 = 7,
    FieldQ1 = 9,
    FieldR2 = 11,
    FieldSensor = 15
};

std::string_view TakeUpTo(std::string_view& Text, char Separator)
{
    const std::size_t End = std::min(Text.find(Separator), Text.size());
    const std::string_view Part = Text.substr(0, End);
    Text.remove_prefix(std::min(End + 1, Text.size()));
    return Part;
}

std::string_view TakeLine(std::string_view& Text)
{
    std::string_view Line = TakeUpTo(Text, '\n');
    if (Line.ends_with('\r')) Line.remove_suffix(1);
    return Line;
}

std::string Describe(const RawCal& Data)
{
    const std::string Fields[] = {
        FormatDate(Data.Date),
        FormatNum(Data.Chan, "00"),
        Data.ParamID,
        Data.IsAuto ? "Auto" : "Manual",
        "Freq=",
        FormatSig6(Data.Freq),
        "Q0=",
        FormatSig6(Data.Line.Q0),
        "Q1=",
        FormatNum(Data.Line.Q1, "0.000000000"),
        "R=",
        FormatSig6(Data.Line.R2),
        "Lever=",
        FormatSig6(Data.Lever),
        "SensID=",
        Data.SensID,
    };
    std::string Line;
    for (const std::string& Field : Fields)
        Line += Field + "\t";
    return Line;
}

// A number that is no channel becomes 0.
void ReadHead(std::string_view Line, RawCal& Data)
{
    for (int Field = 0; !Line.empty(); ++Field) {
        const std::string_view Text = TakeUpTo(Line, '\t');
        const double Number = Val(Text);
        if (Field == FieldChan)
            Data.Chan = static_cast<int16_t>(Number >= 0 && Number <= LastDataChan ? RoundHalfEven(Number) : 0);
        if (Field == FieldQ0) Data.Line.Q0 = Number;
        if (Field == FieldQ1) Data.Line.Q1 = Number;
        if (Field == FieldR2) Data.Line.R2 = Number;
        if (Field == FieldSensor) Data.SensID = Text;
    }
}

// Number, P and L; whatever follows the last tab of a line is L too.
std::optional<CalPoint> ReadPoint(std::string_view Line)
{
    TakeUpTo(Line, '\t');
    const auto P = LeadingNumber(TakeUpTo(Line, '\t'));
    auto L = LeadingNumber(TakeUpTo(Line, '\t'));
    if (const auto Last = Line.rfind('\t') + 1; Last < Line.size()) L = LeadingNumber(Line.substr(Last));
    if (!P || !L) return {};
    return CalPoint{*L, *P};
}
} // namespace

bool SaveRawCal(const std::string& Path, const RawCal& Data)
{
    std::string Text = std::string(HeadLine) + EndLine + Describe(Data) + EndLine;
    for (std::size_t i = 0; i < Data.Points.size(); ++i) {
        const CalPoint& Point = Data.Points[i];
        Text += FormatNum(static_cast<double>(i), "0") + "\t" + FormatSig6(Point.P) + "\t" + FormatSig6(Point.L) +
                "\t" + EndLine;
    }
    WholeFile File(Path);
    File.Append(EncodeText(Text, TextEncoding::Legacy, TextPage()));
    return File.Commit() || FileFailed(CantWrite, Path, TitleError, File.Failure());
}

std::optional<RawCal> LoadRawCal(const std::string& Path)
{
    auto Bytes = ReadWhole(Path);
    if (!Bytes) {
        FileFailed(CantOpen, Path, TitleError);
        return {};
    }
    int Bad = 0;
    auto Data = ParseRawCal(std::move(*Bytes), Bad);
    if (!Data) MsgBox(Path + " is not a Calibration Data File.", TitleError);
    if (Bad > 0) MsgBox(FormatNum(Bad, "0") + " lines hold no point and were left out: " + Path, TitleWarning);
    return Data;
}

std::optional<RawCal> ParseRawCal(std::string Bytes, int& Bad)
{
    TextEncoding Encoding{};
    const std::string Whole = DecodeText(std::move(Bytes), Encoding, TextPage());
    std::string_view Text = Whole;
    if (TakeLine(Text) != HeadLine) return {};
    RawCal Data;
    ReadHead(TakeLine(Text), Data);
    while (!Text.empty()) {
        if (const auto Point = ReadPoint(TakeLine(Text)))
            Data.Points.push_back(*Point);
        else
            ++Bad;
    }
    return Data;
}
