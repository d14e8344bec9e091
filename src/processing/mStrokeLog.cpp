// The figures of single strokes and the file that they are written to.
#include "processing/mStrokeLog.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "platform/mHost.h"
#include "processing/mProcess.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <memory>

double gDriveT = 0;
double gMaxFT = 0;
double gRecovT = 0;
double gLength = 0;
double gMaxForce = 0;
double gAverForce = 0;
double gImpulse = 0;
double gWork = 0;
double gPower = 0;
std::string StrokeLogFN;

namespace {
struct Column
{
    const char* Title;
    const double* Value;
    const char* Form;
};
// All but the first, the stroke's number.
constexpr Column Columns[] = {
    {"Rate", &gRate, "0.00"},           {"DriveT", &gDriveT, "0.0000"}, {"MaxFT", &gMaxFT, "0.0000"},
    {"RecovT", &gRecovT, "0.0000"},     {"Length", &gLength, "0.000"},  {"MaxForce", &gMaxForce, "0.00"},
    {"AverForce", &gAverForce, "0.00"}, {"Impulse", &gImpulse, "0.00"}, {"WPS", &gWork, "0.00"},
    {"Power", &gPower, "0.00"},
};

// The open log. It grows line by line, so that a failure leaves the lines before it.
class StrokeLog
{
public:
    // Opens a file of that name. An existing one is left alone: false with errno EEXIST.
    bool Open(const std::string& Name)
    {
        File.reset(std::fopen(Name.c_str(), "wbx"));
        return File != nullptr;
    }

    bool IsOpen() const { return File != nullptr; }

    // Whether every line so far was handed to the operating system.
    bool IsWhole() const { return !HasFailed; }

    void Write(const std::string& Line)
    {
        if (!File || HasFailed) return;
        HasFailed = std::fwrite(Line.data(), 1, Line.size(), File.get()) != Line.size() || std::fflush(File.get()) != 0;
    }

private:
    struct Closer
    {
        void operator()(std::FILE* Each) const { std::fclose(Each); }
    };
    std::unique_ptr<std::FILE, Closer> File;
    bool HasFailed = false;
};

std::string HeaderLine()
{
    std::string Line = "Str N";
    for (const Column& Each : Columns)
        Line.append("\t").append(Each.Title);
    return Line + "\r\n";
}

std::string FiguresLine()
{
    std::string Line = FormatNum(gStrokeCnt, "0");
    for (const Column& Each : Columns)
        Line.append("\t").append(FormatNum(*Each.Value, Each.Form));
    return Line + "\r\n";
}

void OpenStrokeLog(StrokeLog& Log)
{
    const std::string Base = gCurDir + gFileTitle + "_str";
    StrokeLogFN = Base + ".csv";
    for (int N = 1; !Log.Open(StrokeLogFN) && errno == EEXIST; ++N)
        StrokeLogFN = Base + "_" + FormatNum(N, "00") + ".csv";
    if (!Log.IsOpen()) FileFailed("Can't open Log file: ", StrokeLogFN, TitleWarning);
    Log.Write(HeaderLine());
}

// The window of a stroke's own peak search, the newest key value last.
using PeakWindow = std::array<double, 5>;

bool IsCatch(const PeakWindow& K)
{
    return K[0] > K[1] && K[1] >= K[2] && K[2] < K[3] && K[3] < K[4];
}

bool IsFinish(const PeakWindow& K)
{
    return K[0] < K[1] && K[1] <= K[2] && K[2] > K[3] && K[3] > K[4];
}

struct KeyPoint
{
    double T = 0; // s
    double K = 0;
};

// Adds a sample of the drive: its force H at time T with the steps to it from the sample before.
void AddToDrive(double T, double H, double PrevH, double dT, double dK)
{
    if (H > gMaxForce) {
        gMaxForce = H;
        gMaxFT = T;
    }
    const double FM = (PrevH + H) / 2;
    gImpulse += dT * FM;
    gWork += FM * dK;
}

void WriteStroke(const KeyPoint& Catch, const KeyPoint& Finish, StrokeLog& Log)
{
    const double DriveT = Finish.T - Catch.T;
    const double AverForce = Div(gImpulse, DriveT);
    const double Power = Div(gWork, gMeanCycleT);
    gStrokeCnt = ToInt16(gStrokeCnt + 1);
    gRate = SafeDiv(60, gMeanCycleT);
    gDriveT = DriveT;
    gLength = Finish.K - Catch.K;
    gRecovT = gMeanCycleT - gDriveT;
    gMaxFT -= Catch.T;
    gAverForce = AverForce;
    gPower = Power;
    Log.Write(FiguresLine());
    gImpulse = 0;
    gMaxForce = 0;
    gWork = 0;
}

// Without a finish nothing is written, and the sums run on into the next cycle. What is kept from the samples before
// starts at zero in every cycle: where the key value is above 0 at the boundary, the first step counts from zero time
// and zero key value; where the boundary is the catch itself, the stroke is counted from zero.
void StrokeRow(int32_t From, int32_t To, StrokeLog& Log)
{
    const double CycleT = gRaw(0, To) - gRaw(0, From);
    if (CycleT < 0) return; // the clock was set back
    gMeanCycleT = CycleT;
    PeakWindow K{};
    double PrevT = 0;
    double PrevH = 0;
    KeyPoint Catch;
    for (int32_t i = From; i <= To; ++i) {
        const double T = gRaw(0, i);
        const double H = gRaw(gH1Chan, i);
        K[4] = gRaw(gKeyChan, i);
        const double dK = K[4] - K[3];
        if (dK > 0) AddToDrive(T, H, PrevH, T - PrevT, dK);
        if (IsCatch(K)) Catch = {gRaw(0, i - 2), K[2]};
        if (IsFinish(K) && gRaw(0, i - 2) >= Catch.T) return WriteStroke(Catch, {gRaw(0, i - 2), K[2]}, Log);
        std::copy(K.begin() + 1, K.end(), K.begin());
        PrevT = T;
        PrevH = H;
    }
}

bool HasForceChannel()
{
    if (gH1Chan >= 1 && gH1Chan <= gRaw.ChannelUBound()) return true;
    MsgBox("There is no channel \"H1\": the stroke log needs the handle force.", TitleWarning);
    return false;
}
} // namespace

bool ExportStrokes(KeyWindow& Win, int32_t Start, int32_t& Stop)
{
    if (!HasKeyChannel() || !HasForceChannel()) return false;
    if (Stop == 0) Stop = gRaw.UBound();
    if (!PublishStats(CycleStats(Win, Start, Stop))) {
        MsgBox("Could not find any cycle!", TitleWarning);
        return false;
    }
    StrokeLog Log;
    OpenStrokeLog(Log);
    gStrokeCnt = 0;
    int32_t Cur = Start;
    double CycleTime = 0;
    DetectCycle(Win, Cur, Stop, CycleTime);
    for (int32_t From = Cur; DetectCycle(Win, Cur, Stop, CycleTime); From = Cur)
        StrokeRow(From, Cur, Log);
    if (!Log.IsOpen()) return false;
    if (!Log.IsWhole()) return FileFailed("Can't write Log file: ", StrokeLogFN, TitleWarning);
    MsgBox("Stroke date was recorded into the file " + StrokeLogFN, TitleInformation);
    return true;
}
