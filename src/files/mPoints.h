// The points digitised on the videos of a session: a table in a file of its own beside the session, kept with it.
#pragma once

#include "core/mGlobData.h"

#include <string>
#include <string_view>

class WholeFile;

/// Path of the points' file of a session: <session>_points.csv in its folder.
std::string PointsPath(const std::string& Session);

/// The points of gVidCoords with the angles of gVidAngles (degrees): a comma-separated table in UTF-8 with the columns
/// "Sample ID,Video FN,Frame,Point ID,X,Y,Angle", a line a point and frame. X and Y are pixels of the video's picture,
/// frames count from 0; Angle is empty where there is none.
std::string PointsText();

/// What a table of points holds.
struct PointTables
{
    RowArray<VidCoordsRow> Coords;
    RowArray<VidCoordsRow> Angles;
};

/// Reads such a table. Gives an empty text, or what is wrong and in which line: then Tables is not to be used.
std::string ParsePoints(std::string_view Text, PointTables& Tables);

/// Puts the points of the file beside a session that was just read into gVidCoords and gVidAngles, in place of what its
/// old sections held; a video that has points and no row in gVideoID gets one. A file that cannot be read or is broken
/// is reported to the user with the line, and is left as it is: saving does not replace it.
void ReadPoints(const std::string& Session);

/// Puts a new session file in its place, and with it the points of its videos: both are new, or both are as they were.
/// A file of points that this program has neither read nor written is not replaced, unless the session of which it was
/// is replaced too. False when it fails (reported to the user).
bool CommitWithPoints(const std::string& Session, WholeFile& New);
