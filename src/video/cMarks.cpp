// Points by frame, and their rows in the session's tables.
#include "video/cMarks.h"

#include "base/mCsv.h"
#include "base/mNumText.h"

#include <algorithm>

namespace {
constexpr int AngleDigits = 9;

VidCoordsRow& RowOf(RowArray<VidCoordsRow>& Rows, const std::string& SampleID, const std::string& VideoFN,
                    const std::string& PointID)
{
    const auto Found = std::find_if(Rows.begin(), Rows.end(), [&](const VidCoordsRow& Each) {
        return Each.PointID == PointID && IsOfVideo(Each, SampleID, VideoFN);
    });
    return Found == Rows.end() ? Rows.Grow() : *Found;
}

// The row of a point that no earlier point of the figure has the identifier of, 0 for another.
int DotOf(const std::string& PointID)
{
    for (int Dot = 1; Dot <= gDots.UBound(); ++Dot)
        if (gDots[Dot].PointID == PointID) return Dot;
    return 0;
}

VideoPoint ValueOf(const Mark& Each, bool IsPlace)
{
    if (IsPlace) return Each.Place;
    return Each.Angle ? VideoPoint{*Each.Angle, 0} : VideoPoint{};
}
} // namespace

bool IsOfVideo(const VidCoordsRow& Row, const std::string& SampleID, const std::string& VideoFN)
{
    return Row.SampleID == SampleID && (Row.VideoFN.empty() || Row.VideoFN == VideoFN);
}

void cMarks::Load(const std::string& SampleID, const std::string& VideoFN)
{
    Kept.clear();
    const auto Take = [&](const RowArray<VidCoordsRow>& Rows, const auto& Store) {
        for (const VidCoordsRow& Row : Rows) {
            const int Dot = IsOfVideo(Row, SampleID, VideoFN) ? DotOf(Row.PointID) : 0;
            for (std::size_t i = 0; Dot > 0 && i < Row.Values.size(); ++i)
                Store(static_cast<int>(i), Dot, Row.Values[i]);
        }
    };
    Take(gVidCoords, [this](int Frame, int Dot, const VideoPoint& Place) {
        if (!Place.IsPlaced()) return;
        FrameMarks& Marks = Kept[Frame];
        Marks.Resize(gDots.UBound());
        Marks[Dot].Place = Place;
    });
    Take(gVidAngles, [this](int Frame, int Dot, const VideoPoint& Angle) {
        const auto Found = Kept.find(Frame);
        if (Found != Kept.end() && std::isfinite(Angle.X)) Found->second[Dot].Angle = Angle.X;
    });
}

void cMarks::Store(const std::string& SampleID, const std::string& VideoFN, int Frames) const
{
    const int High = Kept.empty() ? 0 : Kept.rbegin()->first;
    const int Last = std::max(Frames, High);
    for (RowArray<VidCoordsRow>* Rows : {&gVidCoords, &gVidAngles}) {
        const bool IsPlaces = Rows == &gVidCoords;
        for (int Dot = 1; Dot <= gDots.UBound(); ++Dot) {
            if (DotOf(gDots[Dot].PointID) != Dot) continue;
            VidCoordsRow& Row = RowOf(*Rows, SampleID, VideoFN, gDots[Dot].PointID);
            Row = {SampleID, VideoFN, gDots[Dot].PointID, Last, High, {}};
            Row.Values.resize(static_cast<std::size_t>(Last) + 1);
            for (const auto& [Frame, Marks] : Kept)
                Row.Values[static_cast<std::size_t>(Frame)] =
                    ValueOf(Dot <= Marks.UBound() ? Marks[Dot] : Mark(), IsPlaces);
        }
    }
}

FrameMarks cMarks::On(int Frame) const
{
    const auto Found = Kept.find(Frame);
    FrameMarks Marks = Found == Kept.end() ? FrameMarks() : Found->second;
    Marks.Resize(gDots.UBound());
    return Marks;
}

void cMarks::Put(int Frame, const FrameMarks& Marks)
{
    const bool HasAny = std::any_of(Marks.begin(), Marks.end(), [](const Mark& Each) { return Each.Place.IsPlaced(); });
    if (HasAny)
        Kept[Frame] = Marks;
    else
        Kept.erase(Frame);
}

std::vector<int> cMarks::Frames() const
{
    std::vector<int> Numbers;
    for (const auto& [Frame, Marks] : Kept)
        Numbers.push_back(Frame);
    return Numbers;
}

std::string cMarks::Table() const
{
    std::string Text = "frame,point,name,x,y,angle\r\n";
    for (const auto& [Frame, Marks] : Kept)
        for (int Dot = 1; Dot <= std::min(Marks.UBound(), gDots.UBound()); ++Dot) {
            const Mark& Each = Marks[Dot];
            if (!Each.Place.IsPlaced()) continue;
            AppendCsv(Text,
                      {FormatNum(Frame, "0"), gDots[Dot].PointID, gDots[Dot].PointName, FormatShortest(Each.Place.X),
                       FormatShortest(Each.Place.Y), Each.Angle ? FormatGeneral(*Each.Angle, AngleDigits) : ""});
        }
    return Text;
}
