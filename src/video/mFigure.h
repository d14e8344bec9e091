// The stick figure that is digitised: which points stand beside each other, and the angles at its joints.
#pragma once

#include "core/mGlobData.h"

#include <optional>
#include <string>

/// The angle at B in radians, by the law of cosines: pi / 2 when B stands on A or C, pi on a straight line. Throws
/// RunError "Division by zero" for a folded joint, whose sides lie on each other.
double CalcAngle(const VideoPoint& A, const VideoPoint& B, const VideoPoint& C);

/// Whether the angle at B is 0: there CalcAngle has no result.
bool IsFolded(const VideoPoint& A, const VideoPoint& B, const VideoPoint& C);

/// The angle at B in degrees; nothing when a point has no place or the joint is folded.
std::optional<double> JointAngle(const VideoPoint& A, const VideoPoint& B, const VideoPoint& C);

/// Looks up the points that the segments name and stores their numbers, 0 for one that gDots does not have. Gives what
/// is wrong with the figure in words, a line a fault; empty when nothing is.
std::string ResolveSegs();

/// The neighbours whose directions make the angle at a point: the far end of the first segment that begins there, and
/// of the first that ends there; the point itself where there is no segment. Call ResolveSegs first.
struct Joint
{
    int End = 0;
    int Start = 0;
};
Joint JointOf(int Dot);
