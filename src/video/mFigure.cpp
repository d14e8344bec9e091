// Angles by the law of cosines, and the segments' ends by their identifiers.
#include "video/mFigure.h"

#include "base/mError.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {
constexpr double DegreesPerRadian = 180 / 3.14159265358979;

double Distance(const VideoPoint& A, const VideoPoint& B)
{
    return std::hypot(A.X - B.X, A.Y - B.Y);
}

// The cosine of the angle at B, kept within -1 and 1, which rounding may pass; nothing when a side has no length.
std::optional<double> CosineAt(const VideoPoint& A, const VideoPoint& B, const VideoPoint& C)
{
    const double AB = Distance(A, B);
    const double BC = Distance(B, C);
    const double AC = Distance(A, C);
    const double Denominator = 2 * AB * BC;
    if (Denominator == 0) return {};
    return std::clamp((BC * BC + AB * AB - AC * AC) / Denominator, -1.0, 1.0);
}

int DotNumber(const std::string& PointID)
{
    for (int i = 1; i <= gDots.UBound(); ++i)
        if (gDots[i].PointID == PointID) return i;
    return 0;
}

std::string SegFaults(SegRow& Row)
{
    std::string Text;
    for (const auto& [Number, PointID] :
         {std::pair(&Row.StartPoint, &Row.StartPointID), {&Row.EndPoint, &Row.EndPointID}}) {
        *Number = DotNumber(*PointID);
        if (*Number == 0) Text += "Segment " + Row.SegmentID + ": there is no point " + *PointID + ".\n";
    }
    return Text;
}
} // namespace

double CalcAngle(const VideoPoint& A, const VideoPoint& B, const VideoPoint& C)
{
    const auto Cosine = CosineAt(A, B, C);
    if (!Cosine) return std::numbers::pi / 2;
    if (*Cosine == -1) return std::numbers::pi;
    return std::atan(Div(-*Cosine, Root(1 - *Cosine * *Cosine))) + 2 * std::atan(1.0);
}

bool IsFolded(const VideoPoint& A, const VideoPoint& B, const VideoPoint& C)
{
    return CosineAt(A, B, C) == 1.0;
}

std::optional<double> JointAngle(const VideoPoint& A, const VideoPoint& B, const VideoPoint& C)
{
    if (!A.IsPlaced() || !B.IsPlaced() || !C.IsPlaced() || IsFolded(A, B, C)) return {};
    return CalcAngle(A, B, C) * DegreesPerRadian;
}

std::string ResolveSegs()
{
    std::string Text;
    for (int i = 1; i <= gDots.UBound(); ++i)
        if (DotNumber(gDots[i].PointID) != i)
            Text += "Two points have the identifier \"" + gDots[i].PointID + "\": the second cannot be kept.\n";
    for (SegRow& Row : gSegs)
        Text += SegFaults(Row);
    return Text;
}

Joint JointOf(int Dot)
{
    const auto First = [&](int32_t SegRow::*End, int32_t SegRow::*Far) {
        const auto Found = std::find_if(gSegs.begin(), gSegs.end(), [&](const SegRow& Row) { return Row.*End == Dot; });
        return Found == gSegs.end() || (*Found).*Far == 0 ? Dot : (*Found).*Far;
    };
    return {First(&SegRow::StartPoint, &SegRow::EndPoint), First(&SegRow::EndPoint, &SegRow::StartPoint)};
}
