// The angles of a digitised clip as mean curves of a stored sample, beside those of its sensors.
#pragma once

#include "video/cMarks.h"

#include <functional>
#include <string>
#include <vector>

/// The angles of one joint over the clip.
struct AngleCourse
{
    int Dot = 0;
    std::vector<double> Times;  // s, ascending
    std::vector<double> Angles; // degrees
};

/// The courses of all joints that have angles. TimeOf gives the time of a frame in seconds.
std::vector<AngleCourse> AngleCourses(const cMarks& All, const std::function<double(int)>& TimeOf);

/// Why a course does not hold that many whole strokes of a sample with Rate (strokes a minute, 0: not known), in words;
/// empty when it does. Its length must be theirs within a tenth, it must end near where it begins, and have eight
/// frames or more a stroke.
std::string WhyNoStrokes(const AngleCourse& Course, int Strokes, double Rate);

/// The mean of the strokes at 51 points of the cycle; the last is the end of the cycle.
std::vector<double> MeanCycle(const AngleCourse& Course, int Strokes);

/// The strokes that a course holds as far as its length says, at least 1.
int StrokesIn(const AngleCourse& Course, double Rate);

/// Stores the courses as rows of gFile.Data of the sample in row Desc, with the points' identifiers as ParamID, in
/// place of rows of these names, and saves the session. False when that failed (reported to the user): gFile is as it
/// was.
bool StoreAngles(const std::vector<AngleCourse>& Courses, int Desc, int Strokes);
