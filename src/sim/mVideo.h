// The simulated rower on video, and where the joints are on each picture.
#pragma once

#include "sim/cRowerModel.h"

#include <string>

/// Writes a video of the first Stop seconds at that many pictures a second; the ending of the name says which format.
/// Gives an empty text, or why it failed: no file is left then.
std::string WriteVideo(const std::string& Path, const DataFile& File, cRowerModel& Model, double Stop, double Rate);

/// The joints on each picture of such a video as a table: a header line, then a line for each joint of each picture,
/// fields separated by tabs, lines ended by LF. Places in pixels from the top left corner, angles in degrees, empty
/// where limbs end.
std::string JointTable(const DataFile& File, cRowerModel& Model, double Stop, double Rate);

/// Pictures in so many seconds.
int VideoPictures(double Stop, double Rate);
