// What the data view shows: loading of each kind of data, and where each sample came from.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Kinds of data.
enum eViewMode : int16_t
{
    DataRaw = 0,      // a raw file read whole
    DataPrimary = 1,  // an old binary sample file
    DataTypical = 2,  // the typical pattern in memory: nothing to load
    DataLogger = 61,  // a raw file read whole under the name gRawFN
    DataScanned = 62, // a raw file scanned for strokes
};

/// Where the samples of gRaw are in the recording gRawFN, for saving their frames.
struct FrameMap
{
    int32_t Start = 1;           // position from which frames are counted
    std::vector<int32_t> Frames; // number of each sample's frame, none where samples are no frames of a recording
};

/// What was loaded.
struct ViewData
{
    int16_t Mode = DataRaw;
    std::string FileName; // without folder
    std::string RawFN;    // path of a recording, empty for other data
    std::string Caption;
    int DescIdx = -1;     // row of gFile.Desc of the file, below 1 when there is none
    std::string DistText; // distance and time of the sample, empty where there are none
    std::string TimeText;
    FrameMap Map;

    bool HasStrokeTable() const { return Mode == DataScanned; }
};

/// Loads a file as that kind of data into gRaw or gScanRows, and the setting StdFilter. Of a broken recording a mended
/// copy is offered, which is then loaded in its place; ahead of a search for strokes a rate of frames other than the
/// setting gDataFreq is asked about. False when that fails (reported to the user) or is cancelled: Data, gRaw and
/// gScanRows are as they were.
bool LoadView(const std::string& Path, int16_t Mode, ViewData& Data);

/// What to say of the times of strokes, which are counted in frames, when the options have another frequency than the
/// session; empty otherwise.
std::string FrequencyNote();

/// Loads the frames between two rows of gScanRows, with three strokes on either side, into gRaw. Times of the rows, in
/// seconds from the first, go to gScanStart and gScanStop. False when that fails (reported to the user): all is as it
/// was.
bool GetRawData(int FirstRow, int LastRow, ViewData& Data);

extern double gScanStart; // s, stretch of the recording taken last
extern double gScanStop;
