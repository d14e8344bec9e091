// Whole strokes cut out of angles over time, and averaged over the cycle.
#include "video/mAngleSample.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr int LastPoint = 50;
constexpr std::size_t FramesAStroke = 8;
constexpr double Allowed = 0.1; // of the length of the strokes
constexpr double Closed = 0.2;  // of the range of the angle
constexpr double Minute = 60;

double Length(const AngleCourse& Course)
{
    return Course.Times.empty() ? 0 : Course.Times.back() - Course.Times.front();
}

double At(const AngleCourse& Course, double Time)
{
    const auto Next = std::upper_bound(Course.Times.begin(), Course.Times.end(), Time);
    if (Next == Course.Times.begin()) return Course.Angles.front();
    if (Next == Course.Times.end()) return Course.Angles.back();
    const auto i = static_cast<std::size_t>(Next - Course.Times.begin());
    const double Share = SafeDiv(Time - Course.Times[i - 1], Course.Times[i] - Course.Times[i - 1]);
    return Course.Angles[i - 1] + Share * (Course.Angles[i] - Course.Angles[i - 1]);
}

DataRow& RowOf(const DescRow& Sample, const std::string& ParamID)
{
    for (DataRow& Row : gFile.Data)
        if (Row.SampleID == Sample.SampleID && Row.ParamID == ParamID) return Row;
    return gFile.Data.Grow();
}

int16_t ParametersOf(const std::string& SampleID)
{
    const auto Count = std::count_if(gFile.Data.begin(), gFile.Data.end(),
                                     [&](const DataRow& Row) { return Row.SampleID == SampleID; });
    return ToInt16(Count);
}
} // namespace

std::vector<AngleCourse> AngleCourses(const cMarks& All, const std::function<double(int)>& TimeOf)
{
    std::vector<AngleCourse> Courses;
    for (int Dot = 1; Dot <= gDots.UBound(); ++Dot) {
        AngleCourse Course{Dot, {}, {}};
        for (const int Frame : All.Frames())
            if (const auto Angle = All.On(Frame)[Dot].Angle) {
                Course.Times.push_back(TimeOf(Frame));
                Course.Angles.push_back(*Angle);
            }
        if (!Course.Times.empty()) Courses.push_back(std::move(Course));
    }
    return Courses;
}

std::string WhyNoStrokes(const AngleCourse& Course, int Strokes, double Rate)
{
    const std::string Name = gDots[Course.Dot].PointName + ": ";
    if (Strokes < 1) return Name + "one stroke or more is needed";
    if (Course.Times.size() < FramesAStroke * static_cast<std::size_t>(Strokes))
        return Name + FormatNum(static_cast<double>(Course.Times.size()), "0") + " frames are too few for " +
               FormatNum(Strokes, "0") + " strokes, 8 a stroke are needed";
    const double Wanted = Rate > 0 ? Strokes * Minute / Rate : Length(Course);
    if (std::abs(Length(Course) - Wanted) > Allowed * Wanted)
        return Name + "the frames last " + FormatNum(Length(Course), "0.00") + " s, " + FormatNum(Strokes, "0") +
               " strokes at the sample's rate " + FormatNum(Wanted, "0.00") + " s";
    const auto [Low, High] = std::minmax_element(Course.Angles.begin(), Course.Angles.end());
    const double Gap = std::abs(Course.Angles.back() - Course.Angles.front());
    if (Gap > Closed * (*High - *Low))
        return Name + "the angle ends " + FormatNum(Gap, "0.0") +
               " degrees off where it begins: the frames hold no whole strokes";
    return {};
}

std::vector<double> MeanCycle(const AngleCourse& Course, int Strokes)
{
    std::vector<double> Mean(LastPoint + 1, 0.0);
    const double Cycle = Length(Course) / Strokes;
    for (int Point = 0; Point <= LastPoint; ++Point) {
        for (int Stroke = 0; Stroke < Strokes; ++Stroke)
            Mean[static_cast<std::size_t>(Point)] +=
                At(Course, Course.Times.front() + (Stroke + Point / static_cast<double>(LastPoint)) * Cycle);
        Mean[static_cast<std::size_t>(Point)] /= Strokes;
    }
    return Mean;
}

int StrokesIn(const AngleCourse& Course, double Rate)
{
    constexpr int32_t Many = 1000;
    return RoundWithin(Length(Course) * Rate / Minute, 1, Many);
}

bool StoreAngles(const std::vector<AngleCourse>& Courses, int Desc, int Strokes)
{
    DescRow& Sample = gFile.Desc[Desc];
    if (Sample.DataCount != LastPoint) {
        MsgBox("The sample " + Sample.SampleID + " has curves of another length than 51 points.", TitleWarning);
        return false;
    }
    for (const AngleCourse& Each : Courses)
        if (const std::string Why = WhyNoStrokes(Each, Strokes, Sample.Rate); !Why.empty()) {
            MsgBox("The angles cannot be taken into the sample. " + Why + ".", TitleWarning);
            return false;
        }
    const auto FormerData = gFile.Data;
    const DescRow FormerSample = Sample;
    for (const AngleCourse& Each : Courses) {
        const std::string& ParamID = gDots[Each.Dot].PointID;
        RowOf(Sample, ParamID) = {gSessID, Sample.SampleID, ParamID, 0, 0, MeanCycle(Each, Strokes)};
    }
    Sample.ParCount = ParametersOf(Sample.SampleID);
    if (WriteSession()) return true;
    gFile.Data = FormerData;
    Sample = FormerSample;
    return false;
}
