// Under which identifier the points of a video are kept in the session.
#pragma once

#include "core/mGlobData.h"

#include <string>

/// What is known of a clip that is digitised.
struct DigitClip
{
    std::string Title;   // file name without folder and extension: its data are kept under it
    int Frames = 0;      // the highest frame number by length and step
    int Pictures = 1;    // that decode; points stand on frames below
    double Duration = 0; // s
};

/// The row of a new video: identifier "T". Where gVideoID has a row of that video it is that one; those of other videos
/// stay.
VideoIDRow InitVidData(const DigitClip& Clip);

/// The row that digitising goes on with. By a sample's identifier: its row of this video, else its row of another,
/// which this video then takes the place of, else a new one. Without an identifier: the row of the file's name, else
/// a new one "V" and a number. Found: whether gVideoID has it.
VideoIDRow FindVidData(const DigitClip& Clip, const std::string& SampleID, bool& Found);

/// Stores a row in gVideoID, in place of the one with its identifier and video, else behind the last.
void StoreVidID(const VideoIDRow& Row);

/// Stores a row as "Save Data" does: asks before it rewrites one that is there. False when the answer was Cancel.
bool SaveVidID(const VideoIDRow& Row);
