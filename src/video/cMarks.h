// The digitised points of one video: where each stands on each frame, and its angle there.
#pragma once

#include "core/mGlobData.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

/// A point of the figure on a frame.
struct Mark
{
    VideoPoint Place;
    std::optional<double> Angle; // degrees
};

/// The points of a frame by their numbers in gDots.
using FrameMarks = RowArray<Mark>;

class cMarks
{
public:
    /// Takes the places and angles that gVidCoords and gVidAngles hold of a video.
    void Load(const std::string& SampleID, const std::string& VideoFN);

    /// Puts them into gVidCoords and gVidAngles, as rows for frames 0 to Frames or the highest that has points. Rows of
    /// points that gDots no longer has stay.
    void Store(const std::string& SampleID, const std::string& VideoFN, int Frames) const;

    /// The points of a frame; none is placed where there are none.
    FrameMarks On(int Frame) const;

    /// Stores the points of a frame; without one that is placed the frame has none.
    void Put(int Frame, const FrameMarks& Marks);

    /// The frames that have points, in order.
    std::vector<int> Frames() const;

    /// A line for each point that has a place on a frame, by frame and point: frame,point,name,x,y,angle.
    std::string Table() const;

private:
    std::map<int, FrameMarks> Kept;
};

/// Whether a row of places or angles is of that video.
bool IsOfVideo(const VidCoordsRow& Row, const std::string& SampleID, const std::string& VideoFN);
