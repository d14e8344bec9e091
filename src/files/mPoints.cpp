// The table of digitised points: its text, its reading with every fault named, and its writing with the session.
#include "files/mPoints.h"

#include "base/mCsv.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "platform/mHost.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <tuple>

namespace {
// The columns in order.
enum eColumn : std::size_t
{
    ColSample,
    ColVideo,
    ColFrame,
    ColPoint,
    ColX,
    ColY,
    ColAngle,
    ColCnt
};
const std::vector<std::string> Header = {"Sample ID", "Video FN", "Frame", "Point ID", "X", "Y", "Angle"};

constexpr std::size_t MostValues = 8'000'000; // of all rows: ten minutes at 240 pictures a second with 50 points
constexpr int AngleDigits = 9;
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

// The files of points that were read or written, with a digest of their bytes: these are this program's to replace.
std::map<std::string, std::size_t>& OwnFiles()
{
    static std::map<std::string, std::size_t> Files;
    return Files;
}

std::string VideoOf(const VidCoordsRow& Row)
{
    if (!Row.VideoFN.empty()) return Row.VideoFN;
    const auto Found = std::find_if(gVideoID.begin(), gVideoID.end(),
                                    [&](const VideoIDRow& Each) { return Each.SampleID == Row.SampleID; });
    return Found == gVideoID.end() ? "" : Found->VideoFN;
}

const VidCoordsRow* FindRow(const RowArray<VidCoordsRow>& Rows, const VidCoordsRow& Like)
{
    const auto Found = std::find_if(Rows.begin(), Rows.end(), [&](const VidCoordsRow& Each) {
        return Each.SampleID == Like.SampleID && Each.VideoFN == Like.VideoFN && Each.PointID == Like.PointID;
    });
    return Found == Rows.end() ? nullptr : &*Found;
}

void AppendRow(std::string& Text, const VidCoordsRow& Row)
{
    const VidCoordsRow* Angles = FindRow(gVidAngles, Row);
    const std::string Video = VideoOf(Row);
    for (std::size_t Frame = 0; Frame < Row.Values.size(); ++Frame) {
        const VideoPoint& Place = Row.Values[Frame];
        if (!Place.IsPlaced()) continue;
        const bool HasAngle = Angles && Frame < Angles->Values.size() && std::isfinite(Angles->Values[Frame].X);
        AppendCsv(Text, {Row.SampleID, Video, FormatNum(static_cast<double>(Frame), "0"), Row.PointID,
                         FormatShortest(Place.X), FormatShortest(Place.Y),
                         HasAngle ? FormatGeneral(Angles->Values[Frame].X, AngleDigits) : ""});
    }
}

// Takes the records of a table one by one into rows.
class cTaker
{
public:
    explicit cTaker(PointTables& Wanted) : Tables(Wanted) {}

    // What is wrong with the record, empty when nothing is.
    std::string Take(const std::vector<std::string>& Cells)
    {
        if (Cells.size() != ColCnt)
            return FormatNum(static_cast<double>(Cells.size()), "0") + " cells stand where 7 belong";
        const auto Frame = NumberAlone(Cells[ColFrame]);
        const auto X = NumberAlone(Cells[ColX]);
        const auto Y = NumberAlone(Cells[ColY]);
        const auto Angle = NumberAlone(Cells[ColAngle]);
        if (!Frame || *Frame < 0 || *Frame != std::floor(*Frame)) return Cells[ColFrame] + " is no number of a frame";
        if (!X || !Y) return "X or Y is no number";
        if (!Angle && !Cells[ColAngle].empty()) return Cells[ColAngle] + " is no angle";
        return Store(Cells, *Frame, {*X, *Y}, Angle);
    }

private:
    std::string Store(const std::vector<std::string>& Cells, double Number, const VideoPoint& Place,
                      const std::optional<double>& Angle)
    {
        const int Row = RowFor(Cells);
        auto& Values = Tables.Coords[Row].Values;
        const double Grown = std::max(0.0, Number + 1 - static_cast<double>(Values.size()));
        if (Grown > static_cast<double>(MostValues - Count)) return "frame " + Cells[ColFrame] + " is too high";
        const auto Frame = static_cast<std::size_t>(Number);
        Count += static_cast<std::size_t>(Grown);
        if (Frame < Values.size() && Values[Frame].IsPlaced())
            return "point " + Cells[ColPoint] + " stands twice on frame " + Cells[ColFrame];
        for (VidCoordsRow* Each : {&Tables.Coords[Row], &Tables.Angles[Row]}) {
            if (Frame >= Each->Values.size()) Each->Values.resize(Frame + 1);
            Each->Count = static_cast<int32_t>(Each->Values.size() - 1);
            Each->High = Each->Count;
        }
        Values[Frame] = Place;
        if (Angle) Tables.Angles[Row].Values[Frame] = {*Angle, 0};
        return {};
    }

    int RowFor(const std::vector<std::string>& Cells)
    {
        const auto [Found, IsNew] =
            Known.try_emplace({Cells[ColSample], Cells[ColVideo], Cells[ColPoint]}, Tables.Coords.UBound() + 1);
        if (!IsNew) return Found->second;
        for (RowArray<VidCoordsRow>* Each : {&Tables.Coords, &Tables.Angles}) {
            VidCoordsRow& Row = Each->Grow();
            std::tie(Row.SampleID, Row.VideoFN, Row.PointID) = Found->first;
        }
        return Found->second;
    }

    PointTables& Tables;
    std::map<std::tuple<std::string, std::string, std::string>, int> Known;
    std::size_t Count = 0; // values of all rows of places
};

// A kill between the writing of the points and of the session leaves points of a video that the session does not name.
void NameVideos()
{
    for (const VidCoordsRow& Row : gVidCoords) {
        auto Found = std::find_if(gVideoID.begin(), gVideoID.end(), [&](const VideoIDRow& Each) {
            return Each.SampleID == Row.SampleID && Each.VideoFN == Row.VideoFN;
        });
        if (Found != gVideoID.end()) continue;
        VideoIDRow& New = gVideoID.Grow();
        New.SampleID = Row.SampleID;
        New.VideoFN = Row.VideoFN;
        New.FirstFrame = 1;
        New.FrameCnt = Row.High + 1;
        New.DotCnt = gDots.UBound();
    }
}

// Why the file at Path may not be replaced, empty when it may.
std::string WhyNotReplaced(const std::string& Path, const std::string& Bytes, bool IsOpenSession)
{
    const auto Own = OwnFiles().find(Path);
    if (Own != OwnFiles().end() && Own->second == std::hash<std::string>{}(Bytes)) return {};
    PointTables Tables;
    constexpr const char* Advice = " It is left as it is, and nothing was saved: move or rename it, and save again.";
    const std::string Wrong = ParsePoints(Bytes, Tables);
    if (!Wrong.empty()) return "this is no file of this session's points. " + Wrong + "." + Advice;
    if (IsOpenSession) return std::string("it is not as it was read.") + Advice;
    return {};
}

// Commits both files and says what failed.
bool CommitTwo(const std::string& Session, WholeFile& New, const std::string& Path, const std::string& Text)
{
    WholeFile Points(Path);
    Points.Append(Text);
    if (CommitBoth(Points, New)) {
        OwnFiles()[Path] = std::hash<std::string>{}(Text);
        return true;
    }
    if (!Points.Failure().empty()) FileFailed(CantWrite, Path, TitleWarning, Points.Failure());
    if (!New.Failure().empty()) FileFailed(CantWrite, Session, TitleWarning, New.Failure());
    return false;
}
} // namespace

std::string PointsPath(const std::string& Session)
{
    const std::filesystem::path Path(Session);
    return (Path.parent_path() / Path.stem()).string() + "_points.csv";
}

std::string PointsText()
{
    std::string Text;
    AppendCsv(Text, Header);
    for (const VidCoordsRow& Row : gVidCoords)
        AppendRow(Text, Row);
    return Text;
}

std::string ParsePoints(std::string_view Text, PointTables& Tables)
{
    if (Text.starts_with(ByteOrderMark)) Text.remove_prefix(ByteOrderMark.size());
    std::vector<CsvRecord> Records;
    if (std::string Wrong = ParseCsv(Text, Records); !Wrong.empty()) return Wrong;
    if (Records.empty() || Records[0].Cells != Header)
        return "Line 1: the columns Sample ID, Video FN, Frame, Point ID, X, Y, Angle do not stand there";
    cTaker Taker(Tables);
    for (std::size_t i = 1; i < Records.size(); ++i)
        if (const std::string Wrong = Taker.Take(Records[i].Cells); !Wrong.empty())
            return "Line " + FormatNum(Records[i].Line, "0") + ": " + Wrong;
    return {};
}

void ReadPoints(const std::string& Session)
{
    const std::string Path = PointsPath(Session);
    std::error_code Error;
    OwnFiles().erase(Path);
    if (!std::filesystem::exists(Path, Error)) return;
    const auto Bytes = ReadWhole(Path);
    PointTables Tables;
    const std::string Wrong = Bytes ? ParsePoints(*Bytes, Tables) : "";
    if (!Bytes || !Wrong.empty()) {
        FileFailed(Bytes ? "The digitised points were not read; the file is left as it is: " : CantOpen, Path,
                   TitleWarning, Wrong);
        return;
    }
    OwnFiles()[Path] = std::hash<std::string>{}(*Bytes);
    gVidCoords = std::move(Tables.Coords);
    gVidAngles = std::move(Tables.Angles);
    NameVideos();
}

bool CommitWithPoints(const std::string& Session, WholeFile& New)
{
    const std::string Path = PointsPath(Session);
    const std::string Text = PointsText();
    const bool HasPoints = Text.find('\n') + 1 < Text.size();
    std::error_code Error;
    const bool Exists = std::filesystem::exists(Path, Error);
    const auto Bytes = Exists ? ReadWhole(Path) : std::nullopt;
    const std::string WhyNot = Bytes    ? WhyNotReplaced(Path, *Bytes, Session == gCurFile)
                               : Exists ? "it cannot be read."
                                        : "";
    const bool IsKept = Exists ? (!HasPoints && !WhyNot.empty()) || Bytes == Text : !HasPoints;
    if (!IsKept && !WhyNot.empty()) return FileFailed(CantWrite, Path, TitleWarning, WhyNot);
    if (!IsKept) return CommitTwo(Session, New, Path, Text);
    return New.Commit() || FileFailed(CantWrite, Session, TitleWarning, New.Failure());
}
