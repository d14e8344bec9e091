// The records of a session and the global state that every other module reads: gFile, gData, gRaw and the scalars.
#pragma once

#include "base/mCodePage.h"
#include "base/mRowArray.h"
#include "base/mSampleStore.h"
#include "core/mModes.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <vector>

/// A calendar date in days from 30 December 1899; 0 is the unset date.
using DateDays = double;

/// A channel: its name, its place in the boat and its calibration. Chan equals the row number.
struct CalibrRow
{
    int16_t Chan = 0;
    std::string SessID;
    std::string ParamID;
    int16_t Seat = 0;
    int16_t Side = 0;
    int16_t Mode = 0; // eSensor
    double Lever = 0; // m
    double Q0 = 0;    // physical value = Q0 + Q1 x count
    double Q1 = 0;
    double Q2 = 0;
    double Min = 0; // physical units
    double Max = 0;
    int16_t Visible = 0;
    double Rmain = 0;
    double Log0 = 0;      // counts
    int16_t ProcMode = 0; // eApprox
    double Threshold = 0; // with ApproxRefTable the number of the reference table
    double Qup0 = 0;
    double Qup1 = 0;
    double Qup2 = 0;
    double Qdn0 = 0;
    double Qdn1 = 0;
    double Qdn2 = 0;
    double Rup = 0;
    double Rdn = 0;
    std::string SensorID;
    std::string RefTabFN;

    bool operator==(const CalibrRow&) const = default;
};

/// A rower's place on one side of the boat. Lengths in metres, mass in kilograms.
struct CrewRow
{
    std::string SessID;
    int16_t Seat = 0;
    int16_t Side = 0;
    std::string Name;
    std::string RowerID;
    float Height = 0;
    float Weight = 0;
    std::string Coach;
    std::string Club;
    std::string Sex;
    std::string WeightGroup;
    DateDays BirthDate = 0;
    DateDays RowingStartDate = 0;
    float Foot = 0;
    float Shank = 0;
    float Thigh = 0;
    float Trunk = 0;
    float TrunkFlex = 0;
    float Head = 0;
    float UpperArm = 0;
    float ForeArm = 0;
    float Wrist = 0;
    float ShouldersWidth = 0;
    float AnkleFlexion = 0;   // degrees
    float AnkleExtension = 0; // degrees
    float HipsToSeat = 0;
};

/// The rig of one seat and side.
struct BoatRow
{
    std::string SessID;
    int16_t Seat = 0;
    int16_t Side = 0;
    float OarInboard = 0;
    float OarLength = 0;
    float BladeLength = 0;
    float BladeArea = 0;
    float OarPitchR = 0;
    float OarPitchL = 0;
    float OarCMTop = 0;
    float OarMass = 0;
    float XFootToes = 0;
    float XSeat = 0;
    float YFootToes = 0;
    float YSeat = 0;
    float GateHeightR = 0;
    float GateHeightL = 0;
    float HalfSpan = 0;
    float BoatWidth = 0;
    float FootWidth = 0;
    float FootSize = 0;
    float SlidesLength = 0;
    float FootAngle = 0;
    float SlidesAngle = 0;
    float GatePitchR0 = 0;
    float GatePitchR90 = 0;
    float GatePitchL0 = 0;
    float GatePitchL90 = 0;
    float Reserved = 0;
    std::string OarType;
    std::string Comment;
};

/// A derived variable: what is computed and how it is drawn.
struct ViewRow
{
    int32_t Seat = 0;
    std::string ID;
    int16_t Mode = 0; // eRowMode
    int16_t Oper = 0; // eOper
    int16_t AverMode = 0;
    int32_t Color = 0; // 0x00BBGGRR
    int32_t Options = 0;
    float MinXPar = 0; // scale of the plot in the variable's units
    float MaxXPar = 0;
    float MinYPar = 0;
    float MaxYPar = 0;
    float X1 = 0; // placement of the plot
    float X2 = 0;
    float Y1 = 0;
    float Y2 = 0;
    int16_t Offset = 0;
    std::string Arguments;
    std::string Functions;
    std::string Criteria;
    std::string CritSTD;
    std::string DiamFontXY;
};

/// A recorded sample.
struct DescRow
{
    std::string SessID;
    std::string SampleID;
    int16_t ParCount = 0;
    int16_t DataCount = 0; // Values of the sample's data rows have the indices 0 to DataCount
    double TestTime = 0;   // s
    int16_t StrokeCount = 0;
    int16_t BadStrokes = 0;
    double Rate = 0; // strokes per minute
    double RateDev = 0;
    double Start = 0;  // min
    double Finish = 0; // min
    double DistReal = 0;
    std::string Comment;
    double TimeReal = 0;
    std::string RawFN; // file names without folder
    std::string PrimFN;
    int16_t VideoStrN = 0;
    std::string VideoFN;
};

/// The mean cycle, the deviations or the model curve of one channel of a sample.
struct DataRow
{
    std::string SessID;
    std::string SampleID;
    std::string ParamID;
    int16_t Seat = 0;
    int16_t Side = 0;
    std::vector<double> Values;

    bool operator==(const DataRow&) const = default;
};

/// The open session data file.
struct DataFile
{
    int16_t Model = 0; // eModel
    int16_t SlaveCnt = 0;
    int16_t SlaveChans = 0;
    int16_t KeyMode = 0; // eKeyMode
    std::string KeyChanID;
    float KeyThres = 0; // units of the key channel
    int16_t ChanCnt = 0;
    int16_t View1Cnt = 0;
    int16_t CrewCnt = 0;
    int16_t SampleCnt = 0; // number of the next sample to record
    double TimeStep = 0;   // s
    bool Signed = false;
    std::string SessID;
    DateDays SessDate = 0;
    std::string Place;
    std::string Coach;
    std::string Sex;
    std::string BoatType;
    std::string Category;
    std::string AgeGroup;
    std::string SessNum;
    float AirTemp = 0;
    float WaterTemp = 0;
    float TestDist = 0; // m
    std::string Comment;
    std::string BoatMake;
    float BoatMass = 0;   // kg
    float BoatHeight = 0; // mm
    float BoatLength = 0; // m
    float SessSpare1 = 0;
    float SessSpare2 = 0;
    RowArray<CrewRow> Crew;
    RowArray<CalibrRow> Calibr;
    RowArray<BoatRow> Boat;
    RowArray<ViewRow> View1;
    RowArray<ViewRow> View3;
    RowArray<ViewRow> View4;
    RowArray<ViewRow> View5;
    RowArray<DescRow> Desc;
    RowArray<DataRow> Data;
    RowArray<DataRow> STD;
    RowArray<DataRow> Models;
    TextEncoding Encoding = TextEncoding::Ascii; // of the file it was read from
};

/// A point of the video stick figure.
struct DotRow
{
    std::string PointID;
    std::string PointName;
    int16_t IsAngle = 0;
};

/// A segment of the video stick figure.
struct SegRow
{
    std::string SegmentID;
    std::string SegmentName;
    std::string StartPointID;
    std::string EndPointID;
    int32_t StartPoint = 0;
    int32_t EndPoint = 0;
    float X1 = 0;
    float Y1 = 0;
    float X2 = 0;
    float Y2 = 0;
};

/// A video digitised for a sample.
struct VideoIDRow
{
    std::string SampleID;
    std::string VideoFN;
    int16_t Spare1 = 0;
    int32_t FirstFrame = 0;
    int32_t FrameCnt = 0;
    float Length = 0; // s
    int32_t DotCnt = 0;
    float Spare2 = 0;
    float Spare3 = 0;
};

/// A place on a video frame in pixels of the picture, y downward. Not a number: there is none.
struct VideoPoint
{
    double X = std::numeric_limits<double>::quiet_NaN();
    double Y = std::numeric_limits<double>::quiet_NaN();

    bool IsPlaced() const { return std::isfinite(X) && std::isfinite(Y); }
};

/// The places of one digitised point, or its angles (degrees) as X; a value a frame. VideoFN is empty in rows of old
/// files: there a sample has one video.
struct VidCoordsRow
{
    std::string SampleID;
    std::string VideoFN;
    std::string PointID;
    int32_t Count = 0; // frames in the row
    int32_t High = 0;  // highest frame with data
    std::vector<VideoPoint> Values;
};

/// Highest index of the current sample vector.
inline constexpr int LastDataChan = 84;

/// Full scale of a logger channel in counts.
inline constexpr double FullScale = 16384;

extern DataFile gFile;
extern RowArray<DotRow> gDots;
extern RowArray<SegRow> gSegs;
extern RowArray<VideoIDRow> gVideoID;
extern RowArray<VidCoordsRow> gVidCoords;
extern RowArray<VidCoordsRow> gVidAngles;

/// The current sample vector: element 0 the frame's time in seconds, element Chan the raw count of a channel.
extern std::array<double, LastDataChan + 1> gData;

/// Calibrated samples; channel 0 is the time in seconds from the start of the data.
extern SampleStore gRaw;
extern double gRawStart; // s, time span of an old sample file
extern double gRawStop;

extern double gTimeStep;   // s, sampling period in use
extern double gDeltaT;     // s between the last two frames
extern int16_t gFrameMin;  // bytes required before a frame is taken; 0 until a link has set it
extern int32_t gFrameCnt;  // frames decoded since the link opened
extern double gSampleTime; // s, time of the last frame
extern double gFrequency;  // Hz, measured frame rate
extern int32_t gMissed;    // frames counted as lost
extern int16_t gKeyChan;   // channel that drives stroke detection, 0 or -1 when there is none
extern double gKeyQ0;
extern double gKeyQ1;
extern int16_t gKeyMode; // stroke key mode in use, eKeyMode
extern int16_t gH1Chan;  // channel of handle force H1, 0 or -1 when there is none
extern double gH1Q0;
extern double gH1Q1;
extern std::string gCurFile;   // path of the session data file
extern std::string gFileTitle; // its name without folder and extension
extern std::string gCurDir;    // its folder, ending in the separator
extern std::string gSessID;    // session identifier that each row read takes
extern std::string gRawFN;     // raw sample file in use
extern bool gFromFile;         // data come from a file
extern double gRate;           // strokes per minute
extern int16_t gStrokeCnt;
extern bool gFirstCycle;   // the next stroke start of a live panel only arms the cycle clock
extern double gCycleTime;  // s, last live cycle
extern double gCycleSum;   // s, all live cycles
extern double gRateAver;   // strokes per minute, mean of the live cycles
extern double gPlayTime;   // s, the play clock
extern int32_t gPlayIdx;   // sample of gRaw at the play clock
extern double gPlayStep;   // s, what the play clock moves in a step: one picture of the video
extern int32_t gPlayFrame; // number of the picture at the play clock, from 0
extern int32_t gVidMs;     // ms, one tick of the playback controls

/// Stores Path as the current session data file, splits it into folder and title and shows the title in panel 1.
void SetCurFile(const std::string& Path);

/// Writes the session identifier, the title of Path, into File and into its Crew, Calibr, Desc, Data and Boat rows.
void SetSessID(const std::string& Path, DataFile& File);

/// Chan of the first channel row with that ParamID, -1 when none has it or ParamID is empty.
int16_t FindChan(const RowArray<CalibrRow>& Table, const std::string& ParamID);

/// Number of the first row of that sample and parameter, -1 when there is none.
int FindData(const RowArray<DataRow>& Table, const std::string& SampleID, const std::string& ParamID);

enum class DescKey
{
    TestID,
    RawFN,
    PrimFN
};

/// Number of the first sample whose field equals Key, -1 when there is none or Key is empty.
int FindDesc(const DataFile& File, const std::string& Key, DescKey Field);

/// Resolves gKeyChan and gH1Chan with their factors from the channel rows; factors of a missing row are 0.
void ResolveChannels();

/// Empties the current sample vector.
void CreateData();

/// Moves gPlayIdx up or down to the last sample of gRaw that is not later than Time (s), within the store.
void FindTimeIdx(double Time);
