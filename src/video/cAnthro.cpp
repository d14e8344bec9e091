// Clicks to lengths, and lengths to the table of measurements.
#include "video/cAnthro.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "platform/mHost.h"
#include "records/mSessName.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double Metre = 1000;

double Tenth(double X)
{
    return RoundHalfEven(X * 10) / 10;
}

double Pixels(const std::pair<VideoPoint, VideoPoint>& Ends)
{
    return std::hypot(Ends.first.X - Ends.second.X, Ends.first.Y - Ends.second.Y); // not a number without both
}

AntroRow& TodaysRow(const std::string& RowerID)
{
    for (AntroRow& Row : gAntro)
        if (Row.RowerID == RowerID && Row.Date == Today()) return Row;
    const AntroRow* Newest = NewestAntro(RowerID);
    AntroRow New = Newest ? *Newest : AntroRow();
    New.RowerID = RowerID;
    New.Date = Today();
    return gAntro.Grow() = New;
}
} // namespace

std::span<const BodyLength> BodyLengths()
{
    static constexpr BodyLength Table[] = {
        {"Foot", &AntroRow::Foot, 1},         {"Shank", &AntroRow::Shank, 1},
        {"Thigh", &AntroRow::Thigh, 1},       {"Trunk", &AntroRow::Trunk, 1},
        {"Head", &AntroRow::Head, 1},         {"Upper Arm", &AntroRow::UpArm, 1},
        {"Fore Arm", &AntroRow::ForeArm, 1},  {"Wrist", &AntroRow::Wrist, 1},
        {"Shoulders", &AntroRow::ShouldW, 1}, {"Hips to seat", &AntroRow::HipSeat, 1},
        {"Height", &AntroRow::Height, Metre},
    };
    return Table;
}

cAnthro::cAnthro() : Lines(BodyLengths().size() + 1) {}

void cAnthro::Select(int Line)
{
    if (Line >= 0 && Line < static_cast<int>(Lines.size())) CurLine = Line;
}

void cAnthro::Press(double X, double Y, double Reach)
{
    const auto IsNear = [&](const VideoPoint& End) {
        return std::abs(End.X - X) <= Reach && std::abs(End.Y - Y) <= Reach;
    };
    for (std::size_t i = 0; i < Lines.size(); ++i)
        for (VideoPoint* End : {&Lines[i].first, &Lines[i].second})
            if (IsNear(*End)) {
                Steps.push_back({static_cast<int>(i), Lines[i]});
                Dragged = End;
                return;
            }
    auto& Ends = At(Lines, CurLine);
    Steps.push_back({CurLine, Ends});
    const bool IsSecond = Ends.first.IsPlaced() && !Ends.second.IsPlaced();
    if (!IsSecond) Ends = {};
    (IsSecond ? Ends.second : Ends.first) = {Tenth(X), Tenth(Y)};
    if (IsSecond) CurLine = (CurLine + 1) % static_cast<int>(Lines.size());
}

void cAnthro::Move(double X, double Y)
{
    if (Dragged) *Dragged = {Tenth(X), Tenth(Y)};
}

bool cAnthro::Undo()
{
    Dragged = nullptr;
    if (Steps.empty()) return false;
    CurLine = Steps.back().Line;
    At(Lines, CurLine) = Steps.back().Before;
    Steps.pop_back();
    return true;
}

const std::pair<VideoPoint, VideoPoint>& cAnthro::Ends(int Line) const
{
    return At(Lines, Line);
}

std::optional<double> cAnthro::Length(int Line) const
{
    const double Scale = Pixels(Lines[0]);
    const double Measured = Pixels(At(Lines, Line));
    if (!(Known > 0) || !(Scale > 0) || !std::isfinite(Measured)) return {};
    return Measured / Scale * Known;
}

std::string cAnthro::NextName() const
{
    const std::string Name = CurLine == 0 ? "Known length" : BodyLengths()[static_cast<std::size_t>(CurLine) - 1].Name;
    const auto& Ends = At(Lines, CurLine);
    return Name + (Ends.first.IsPlaced() && !Ends.second.IsPlaced() ? ": other end" : ": first end");
}

bool cAnthro::HasMeasured() const
{
    for (int Line = 1; Line < static_cast<int>(Lines.size()); ++Line)
        if (Length(Line)) return true;
    return false;
}

bool cAnthro::Store(const std::string& RowerID)
{
    if (RowerID.empty() || !HasMeasured()) {
        MsgBox(RowerID.empty() ? "Whose measurements are these? Choose the Rower ID."
                               : "Nothing is measured yet: give the known length, click its two ends, then those of a "
                                 "segment.",
               TitleWarning);
        return false;
    }
    if (!LoadAntro()) return false;
    const auto Former = gAntro;
    AntroRow& Row = TodaysRow(RowerID);
    for (std::size_t i = 0; i < BodyLengths().size(); ++i)
        if (const auto Measured = Length(static_cast<int>(i) + 1))
            Row.*BodyLengths()[i].Member = static_cast<float>(*Measured / BodyLengths()[i].Millimetres);
    if (SaveAntro()) return true;
    gAntro = Former;
    return false;
}
