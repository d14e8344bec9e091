// The command points: a clip digitised from a table of clicks.
#include "batch/mCommands.h"

#include "base/mCsv.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "platform/mHost.h"
#include "video/cDigit.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <optional>

namespace {
struct Click
{
    int Frame = 0;
    int Dot = 0;
    VideoPoint Place;
};

// What a table of clicks holds, or what is wrong with it and in which line.
struct Clicks
{
    std::vector<Click> List;
    std::string Wrong;
};

// Places of the columns frame, point, x and y among the cells; Cells.size() for one that is missing.
std::array<std::size_t, 4> ColumnsOf(const std::vector<std::string>& Cells)
{
    std::array<std::size_t, 4> Places{};
    constexpr const char* Names[] = {"frame", "point", "x", "y"};
    for (std::size_t i = 0; i < Places.size(); ++i)
        Places[i] = static_cast<std::size_t>(std::find(Cells.begin(), Cells.end(), Names[i]) - Cells.begin());
    return Places;
}

std::string TakeClick(const std::vector<std::string>& Cells, const std::array<std::size_t, 4>& Columns, int Pictures,
                      Click& Taken)
{
    if (Cells.size() <= *std::max_element(Columns.begin(), Columns.end())) return "a cell is missing";
    const auto Frame = NumberAlone(Cells[Columns[0]]);
    const auto X = NumberAlone(Cells[Columns[2]]);
    const auto Y = NumberAlone(Cells[Columns[3]]);
    if (!Frame || *Frame < 0 || *Frame != RoundHalfEven(*Frame)) return Cells[Columns[0]] + " is no frame";
    if (*Frame >= Pictures)
        return "there is no frame " + Cells[Columns[0]] + ", the last is " + FormatNum(Pictures - 1, "0");
    if (!X || !Y) return "x or y is no number";
    const std::string& PointID = Cells[Columns[1]];
    const auto Dot =
        std::find_if(gDots.begin(), gDots.end(), [&](const DotRow& Row) { return Row.PointID == PointID; });
    if (Dot == gDots.end()) return "the session has no point " + PointID;
    Taken = {static_cast<int>(*Frame), static_cast<int>(Dot - gDots.begin()) + 1, {*X, *Y}};
    return {};
}

Clicks ParseClicks(const std::string& Text, int Pictures)
{
    Clicks Read;
    std::vector<CsvRecord> Records;
    Read.Wrong = ParseCsv(Text, Records);
    if (!Read.Wrong.empty()) return Read;
    const std::vector<std::string> Head = Records.empty() ? std::vector<std::string>() : Records[0].Cells;
    const auto Columns = ColumnsOf(Head);
    if (std::count(Columns.begin(), Columns.end(), Head.size()) > 0)
        Read.Wrong = "line 1: the columns frame, point, x, y do not stand there";
    for (std::size_t i = 1; i < Records.size() && Read.Wrong.empty(); ++i) {
        const std::string Wrong = TakeClick(Records[i].Cells, Columns, Pictures, Read.List.emplace_back());
        if (!Wrong.empty()) Read.Wrong = "line " + FormatNum(Records[i].Line, "0") + ": " + Wrong;
    }
    return Read;
}

std::optional<DigitClip> ClipOf(const std::string& Path)
{
    const auto Media = gHost.MakeMedia ? gHost.MakeMedia() : nullptr;
    if (!Media || !Media->Open(Path)) {
        FileFailed(CantOpen, Path, TitleError, Media ? Media->Reason() : "this program was built without video");
        return {};
    }
    Media->WaitForIndex();
    const ClipInfo Info = Media->Info();
    const double Duration = RoundHalfEven(Info.Duration * 100) / 100;
    const int Frames = RoundWithin(SafeDiv(Duration, Info.Step), 0, 1 << 30);
    return DigitClip{std::filesystem::path(Path).stem().string(), Frames, Info.Frames, Duration};
}

bool IsKnownSample(const std::string& SampleID)
{
    if (SampleID.empty() || FindDesc(gFile, SampleID, DescKey::TestID) > 0) return true;
    MsgBox("There is no sample " + SampleID + " in the session.", TitleError);
    return false;
}
} // namespace

bool DoPoints(const Args& Line)
{
    const std::string Sample = Line.Text("--sample", "");
    if (!LoadSession(Line.Files[0]) || !IsKnownSample(Sample)) return false;
    const auto Clip = ClipOf(Line.Files[1]);
    if (!Clip) return false;
    const auto Text = ReadWhole(Line.Files[2]);
    if (!Text) return FileFailed(CantOpen, Line.Files[2], TitleError);
    const Clicks Given = ParseClicks(*Text, Clip->Pictures);
    if (!Given.Wrong.empty()) return FileFailed(CantRead, Line.Files[2], TitleError, Given.Wrong);

    cDigit Digit(*Clip);
    Digit.Begin(Sample.empty() ? DigItBody : DigItPlayBody, Sample);
    Digit.SetNewFrame(0);
    for (const Click& Each : Given.List) {
        if (Each.Frame != Digit.Frame()) Digit.SetNewFrame(Each.Frame);
        Digit.SelectDot(Each.Dot);
        Digit.SetDot(Each.Place.X, Each.Place.Y, 1);
    }
    Digit.SaveFrame();
    WholeFile Out(Line.Files[3]);
    Out.Append(Digit.All().Table());
    if (Out.Sync() && !Digit.SaveRower()) return false;
    return Out.Commit() || FileFailed(CantWrite, Line.Files[3], TitleError, Out.Failure());
}
