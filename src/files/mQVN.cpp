// The stroke scan and its table as a text file.
#include "files/mQVN.h"

#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "core/mModes.h"
#include "core/mSettings.h"
#include "files/mBinIO.h"
#include "platform/mHost.h"

#include <cmath>
#include <optional>
#include <utility>

RowArray<ScanRow> gScanRows;

namespace {
constexpr int DistChan = 16;

// A channel with its linear calibration.
struct LinearChan
{
    std::size_t Chan;
    double Q0;
    double Q1;

    double Value() const { return Q1 * gScanData[Chan] + Q0; }
};

LinearChan ChanOf(int Chan)
{
    At(gScanData, Chan);
    const CalibrRow& Row = gFile.Calibr[Chan];
    return {static_cast<std::size_t>(Chan), Row.Q0, Row.Q1};
}

// The last three values of the key channel.
struct LastKeys
{
    double o;
    double p;
    double x;
};

bool BeginsStroke(const LastKeys& Key, double Thres)
{
    switch (gKeyMode) {
    case KeyDecreasing:
        return Key.x <= Thres && Key.p > Thres;
    case KeyIncreasing:
        return Key.x >= Thres && Key.p < Thres;
    case KeyMinimum:
        return Key.x > Key.p && Key.o > Key.p && Key.p < Thres;
    case KeyMaximum:
        return Key.x < Key.p && Key.o < Key.p && Key.p > Thres;
    default:
        return false;
    }
}

// Gathers the strokes of a recording frame by frame.
class StrokeScan
{
public:
    /// Step: s, the sampling period.
    explicit StrokeScan(double Step) : TimeStep(Step) {}

    /// Takes the frame in gScanData; Pos is the position behind the frame before it.
    void AddFrame(int32_t Pos);

    RowArray<ScanRow> Rows;

private:
    void AddStroke(int32_t Pos);

    double TimeStep;
    LinearChan KeyChan = ChanOf(gKeyChan);
    bool SpeedOn = gVChan < gFile.Calibr.UBound();
    LinearChan SpeedChan = SpeedOn ? ChanOf(gVChan) : LinearChan{0, -1, -1};
    // Nothing compares with values that are not there yet.
    LastKeys Key{std::nan(""), std::nan(""), std::nan("")};
    double StrokeTime = 0; // s, stamp of the last stroke
    double SpeedSum = 0;
    int32_t Frames = 0;
    int32_t StrokeFrames = 0;
};

void StrokeScan::AddFrame(int32_t Pos)
{
    if (SpeedOn) SpeedSum += SpeedChan.Value();
    ++Frames;
    ++StrokeFrames;
    Key = {Key.p, Key.x, KeyChan.Value()};
    if (BeginsStroke(Key, static_cast<double>(gFile.KeyThres))) AddStroke(Pos);
}

// A stroke over which the clock was set back or stood still has no row; the next one is counted from it.
void StrokeScan::AddStroke(int32_t Pos)
{
    if (const double Duration = gScanData[0] - StrokeTime; Duration > 0) {
        ScanRow& Row = Rows.Grow();
        Row.Pos = Pos;
        Row.Time = Frames * TimeStep;
        Row.Rate = 60 / Duration;
        if (SpeedOn) {
            Row.Speed = SpeedSum / StrokeFrames;
            Row.Dist = gScanData[DistChan];
        }
    }
    StrokeTime = gScanData[0];
    SpeedSum = 0;
    StrokeFrames = 0;
}

// The percent read and the time of the frame. Its stamp is divided as if it were in milliseconds.
std::string ProgressText(int Percent)
{
    const double Stamp = RoundHalfEven(gScanData[0]);
    return FormatNum(Percent, "0") + "%  " + FormatNum(std::trunc(Stamp / 60000), "0") + "m " +
           FormatNum(std::fmod(Stamp, 60000) / 1000, "0") + "s";
}

// Gives the number of frames that were decoded, nothing when the user gave up.
std::optional<int32_t> ScanFrames(StrokeScan& Scan)
{
    const int32_t Length = gScanFile.Length();
    int32_t Decoded = 0;
    if (Length < gFrameMin) return Decoded;
    PercentMeter Meter(Length);
    bool IsDecoded = true;
    while (IsDecoded) {
        const int32_t Before = gScanFile.Position();
        IsDecoded = ReadFrame();
        if (IsDecoded) ++Decoded;
        Scan.AddFrame(Before);
        const int32_t Position = gScanFile.Position();
        if (Meter.IsReached(Position)) {
            ShowReading(ProgressText(Meter.Percent()));
            if (!GoOn(Meter.Percent())) return {};
        }
        if (gScanFile.AtEnd() || Position + gFrameMin >= Length) break;
    }
    return Decoded;
}

void AppendField(std::string& Line, const std::string& Field)
{
    Line += Field;
    Line += '\t';
}
} // namespace

bool ScanRawFile(const std::string& Path, Unread* Left)
{
    if (gKeyChan < 1) {
        MsgBox("There is no channel " + gFile.KeyChanID + " to find strokes by.", TitleError);
        return false;
    }
    LoadSetting("gDataFreq");
    LoadSetting("gVChan");
    const double Step = Div(1, gDataFreq);
    StrokeScan Scan(Step);
    if (!OpenScanFile(Path)) return false;
    const auto Decoded = ScanFrames(Scan);
    UpdateProgress(0);
    Unread Skipped;
    if (!CloseScanFile(Decoded ? Left : &Skipped)) return false;
    if (!Decoded) {
        ShowReading("Cancelled");
        return false;
    }
    gTimeStep = Step;
    gFromFile = true;
    if (*Decoded == 0) {
        MsgBox("There are no frames of a logger in the file: " + Path, TitleError);
        return false;
    }
    gScanRows = std::move(Scan.Rows);
    return true;
}

bool WriteStrFile(const std::string& Path)
{
    std::string Text = "N\tTime\tRate\tSpeed\tDistance\t\r\n";
    for (int i = 1; i <= gScanRows.UBound(); ++i) {
        const ScanRow& Row = gScanRows[i];
        AppendField(Text, FormatNum(i, "00"));
        AppendField(Text, FormatNum((Row.Time - gScanRows[1].Time) / 60, "00.00"));
        AppendField(Text, FormatNum(Row.Rate, "00.00"));
        AppendField(Text, FormatNum(Row.Speed, "00.00"));
        AppendField(Text, FormatNum(Row.Dist, "00.0"));
        Text += "\r\n";
    }
    Text += "End\r\n";
    return SaveWhole(Path, Text) || FileFailed(CantOpen, Path, TitleError);
}

bool SumScan(int From, int To, int& Count, double& RateSum, double& SpeedSum)
{
    if (From < 1 || To > gScanRows.UBound() || From >= To) return false;
    Count = To - From + 1;
    RateSum = 0;
    SpeedSum = 0;
    for (int i = From; i <= To; ++i) {
        RateSum += gScanRows[i].Rate;
        SpeedSum += gScanRows[i].Speed;
    }
    return true;
}
