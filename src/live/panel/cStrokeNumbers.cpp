// Stroke numbers by keys, scores by the stroke model, and their colours.
#include "live/panel/cStrokeNumbers.h"

#include "base/mNumText.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "processing/mGlobFunc.h"

#include <algorithm>
#include <limits>

namespace {
constexpr int32_t Black = 0x000000;
constexpr int32_t Blue = 0xFF0000;
constexpr int32_t Green = 0x00FF00;
constexpr int32_t Orange = 0x007FFF;
constexpr int32_t Red = 0x0000FF;

constexpr int NumberLine = 60; // from one stroke number to the next
constexpr int NumberFont = 48;

constexpr double LowestScore = 1;
constexpr double HighestScore = 10;
constexpr double GoodScore = 7.5; // above it green
constexpr double FairScore = 4.0; // above it orange

// A late catch within this many seconds is written in blue.
constexpr double CatchLimit = -0.08;

// Entry i of a list of marks, 0 where there is none or it is out of range.
int MarkNumber(const std::vector<double>& Marks, std::size_t i, double Factor = 1)
{
    using Limits = std::numeric_limits<int16_t>;
    const double Whole = i < Marks.size() ? RoundHalfEven(Marks[i] * Factor) : 0;
    return Whole >= Limits::min() && Whole <= Limits::max() ? static_cast<int>(Whole) : 0;
}

int32_t MarkColour(double Score)
{
    return Score > GoodScore ? Green : Score > FairScore ? Orange : Red;
}
} // namespace

void cStrokeNumbers::Init(const ViewRow& View)
{
    for (std::string& Key : SplitStr(View.Functions))
        Numbers.push_back({Key});
    if (HasKeys()) ReadModel(View);
}

void cStrokeNumbers::ReadModel(const ViewRow& View)
{
    IsMod = Numbers[0].Key == "Mod";
    IsAcceleration = Numbers.size() > 1 && Numbers[1].Key == "As";
    const auto CritVals = SplitNum(View.Criteria);
    const auto CritStd = SplitNum(View.CritSTD);
    Targets.resize(Numbers.size());
    for (std::size_t i = 0; i < Targets.size(); ++i) {
        if (i < CritVals.size()) Targets[i].Value = CritVals[i];
        if (i < CritStd.size()) Targets[i].Deviation = CritStd[i];
    }
    const auto Marks = SplitNum(View.DiamFontXY);
    MarkDiam = MarkNumber(Marks, 0, 0.5);
    MarkFont = MarkNumber(Marks, 1);
    MarkX = MarkNumber(Marks, 2);
    MarkY = MarkNumber(Marks, 3);
}

void cStrokeNumbers::Take(double X, double Y, double A, double Time)
{
    if (!HasKeys()) return;
    Stats.CheckFunc(X, Y, A, Time);
    if (IsMod) Model.Take(X, Y);
}

void cStrokeNumbers::EndStroke(double X)
{
    HasStroke = gIsValue && HasKeys();
    if (HasStroke) {
        SetFuncs(X);
        if (IsMod) CheckModel();
        Stats.ResetFuncs();
    }
    Model.Reset();
}

void cStrokeNumbers::SetFuncs(double X)
{
    for (StrokeNumber& Number : Numbers)
        if (const auto Value = Stats.Value(Number.Key, X)) Number.Value = *Value;
}

void cStrokeNumbers::CheckModel()
{
    const auto Stroke = IsAcceleration ? Model.MeasureAcceleration(gRate, gTimeStep) : Model.MeasureForce();
    for (std::size_t i = 1; i < Numbers.size(); ++i) {
        StrokeNumber& Number = Numbers[i];
        const auto Score = Stroke ? ModelScore(Number.Key, *Stroke, Targets[i - 1], gRate) : std::nullopt;
        Number.IsMade = Score.has_value();
        if (!Score) continue;
        const bool IsClamped = *Score != NoScore && Number.Key != "As";
        Number.Value = IsClamped ? std::clamp(*Score, LowestScore, HighestScore) : *Score;
    }
    MarkText.clear();
    if (IsAcceleration && Stroke)
        MarkText = "F=" + FormatNum(Numbers[1].Value, "0.0") + ", Min=" + FormatNum(Stroke->LowestY, "0.0") +
                   ", Max=" + FormatNum(Stroke->Peak, "0.0") + ", DA=" + FormatNum(Stroke->Rise, "0.0");
}

std::span<const StrokeNumber> cStrokeNumbers::Made() const
{
    return HasStroke ? std::span(Numbers) : std::span<const StrokeNumber>();
}

void cStrokeNumbers::Draw(iSurface& Surface, const NumberPen& Pen) const
{
    if (!HasStroke) return;
    if (IsMod) DrawMarks(Surface, Pen);
    DrawNumbers(Surface, Pen);
}

void cStrokeNumbers::DrawMarks(iSurface& Surface, const NumberPen& Pen) const
{
    int32_t Ink = Black;
    for (std::size_t i = 1; !IsAcceleration && i < Numbers.size(); ++i)
        if (Numbers[i].IsMade) DrawForceMark(Surface, Pen, static_cast<int>(i), Numbers[i].Value, Ink);
    if (MarkText.empty()) return;
    Surface.SetPen(Black, Pen.Width);
    Surface.SetFont(MarkFont);
    Surface.Text(MarkX, MarkY, MarkText);
}

// Only the circles form a column: the two texts of every key stand at the same place. An unknown key takes the colour
// of the one before it.
void cStrokeNumbers::DrawForceMark(iSurface& Surface, const NumberPen& Pen, int Key, double Score, int32_t& Ink) const
{
    if (Score != NoScore) {
        Score = std::clamp(Score, LowestScore, HighestScore);
        Ink = MarkColour(Score);
    }
    Surface.SetPen(Ink, Pen.Width);
    Surface.SetFill(Ink);
    Surface.SetFont(MarkFont);
    Surface.Text(MarkX / 2.0, MarkY, FormatNum(Score, "0"));
    if (gIsInd) Surface.Circle(MarkX, static_cast<double>(MarkY) * Key, MarkDiam);
    if (gIsScore) Surface.Text(MarkX, MarkY, FormatNum(Score, "0.0"));
}

void cStrokeNumbers::DrawNumbers(iSurface& Surface, const NumberPen& Pen) const
{
    Surface.SetPen(Pen.Colour, Pen.Width);
    Surface.SetFont(NumberFont);
    for (std::size_t i = 0; i < Numbers.size(); ++i) {
        const StrokeNumber& Number = Numbers[i];
        if (!Number.IsMade) continue;
        if (Number.Key == "Catch" && Number.Value > CatchLimit && Number.Value < 0) Surface.SetPen(Blue, Pen.Width);
        Surface.Text(Pen.At.X, Pen.At.Y + NumberLine * static_cast<double>(i),
                     Number.Key + "=" + FormatSig(Number.Value, 4));
    }
}
