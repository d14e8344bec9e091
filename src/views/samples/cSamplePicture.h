// A sample's mean strokes at a glance: handle force against oar angle, a curve for each oar.
#pragma once

#include "platform/iSurface.h"

#include <string>
#include <vector>

/// The mean stroke of one oar.
struct OarCurve
{
    std::string Oar;            // the force's identifier behind its first letter
    std::vector<double> Angles; // degrees
    std::vector<double> Forces; // N
};

/// Curves of a stored sample: each parameter "H" with a digit behind it, over the angle "A" of the same number.
std::vector<OarCurve> OarCurves(const std::string& SampleID);

/// Draws the curves with scales on the whole surface; of a sample without any it says so.
void DrawSamplePicture(iSurface& Surface, const std::vector<OarCurve>& Curves);
