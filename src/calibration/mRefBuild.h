// The making of a reference table from calibration points: local cubic fits without outliers, and smoothing.
#pragma once

#include "calibration/mCalPoints.h"
#include "processing/mRefTable.h"

/// Fills a table of 256 equal steps of physical value from Min to Max with the counts that the points within 5 physical
/// units of each step give: a cubic, and when more than three points remain a second one over those that lie closer
/// to the first than its standard error. N of a row is the number of points of its last fit; a row with three points or
/// fewer is 0 before the smoothing. Gives the number of such rows.
int BuildRefTable(std::span<const CalPoint> Points, double Min, double Max, RefTable& Table);

/// Smooths the X column by moving cubics of X on Y over seven rows; a shorter table stays as it is.
void SmoothRefTable(RefTable& Table);
