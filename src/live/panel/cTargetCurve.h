// The target curve of the crew's category, drawn behind the curves of a live panel.
#pragma once

#include "platform/iSurface.h"

#include <vector>

class cTargetCurve
{
public:
    /// Scales the curve of gTarget and gCurves to a surface, as the first row of View1 says. Without targets, curves
    /// or a first row there is none.
    void InitTargCurves(SurfacePoint Size);

    /// Draws it. True when target curves are switched on: the pen of this width then stays for the panel's own curves.
    bool DrawTargets(iSurface& Surface) const;

    /// Width of the pen.
    static constexpr int Width = 4;

private:
    std::vector<SurfacePoint> TargPts;
};
