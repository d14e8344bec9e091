// Curves are kept in unit form: the target's catch angle, total angle and peak force give them their size.
#include "live/panel/cTargetCurve.h"

#include "core/mSettings.h"
#include "live/panel/cData01real.h"
#include "records/mTargets.h"

#include <algorithm>

namespace {
constexpr std::size_t CatchAngle = 0, TotalAngle = 2, PeakForce = 4; // values of a target
constexpr int32_t Black = 0;
} // namespace

void cTargetCurve::InitTargCurves(SurfacePoint Size)
{
    TargPts.clear();
    if ((gIsTargVals & gIsTargCurves) == 0 || gFile.View1.UBound() < 1) return;
    if (gCurves.empty() || gTarget.Values.size() <= PeakForce) return;
    const ViewRow& View = gFile.View1[1];
    const double XRange = Wide(View.MaxXPar) - Wide(View.MinXPar);
    const double YRange = Wide(View.MaxYPar) - Wide(View.MinYPar);
    if (XRange == 0 || YRange == 0) return;
    TargPts.resize(gCurves.front().Values.size());
    for (const CurveRow& Curve : gCurves) {
        for (std::size_t i = 0; i < std::min(TargPts.size(), Curve.Values.size()); ++i) {
            const double Angle = gTarget.Values[TotalAngle] * Curve.Values[i] + gTarget.Values[CatchAngle];
            const double Force = gTarget.Values[PeakForce] * Curve.Values[i];
            if (Curve.Name == "A") TargPts[i].X = ToUnit((Angle - Wide(View.MinXPar)) * (Size.X / XRange)).value_or(0);
            if (Curve.Name == "F")
                TargPts[i].Y = ToUnit(Size.Y - (Force - Wide(View.MinYPar)) * (Size.Y / YRange)).value_or(0);
        }
    }
}

bool cTargetCurve::DrawTargets(iSurface& Surface) const
{
    if (gIsTargCurves == 0) return false;
    Surface.SetPen(Black, Width);
    for (std::size_t i = 0; i + 1 < TargPts.size(); ++i)
        Surface.Line(TargPts[i].X, TargPts[i].Y, TargPts[i + 1].X, TargPts[i + 1].Y);
    return true;
}
