// The rows of a new sample, and samples of single strokes.
#include "processing/mSample.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "processing/mNorm.h"
#include "processing/mProcess.h"

namespace {
constexpr int32_t DetectorLag = 3; // samples from a boundary to the one that completes it

DescRow DescribeRun(int Number)
{
    DescRow Row;
    Row.SessID = gFileTitle;
    Row.SampleID.append("S").append(FormatNum(Number, "00"));
    Row.ParCount = gFile.ChanCnt;
    Row.DataCount = NormSteps;
    Row.TestTime = gTestTime;
    Row.StrokeCount = gStrokeCnt;
    Row.BadStrokes = ToInt16(gBadStrokes);
    Row.Rate = gRate;
    Row.RateDev = gRateSD;
    return Row;
}

std::vector<DataRow> RowsOf(const DescRow& Sample, const NormTable& Table)
{
    std::vector<DataRow> Rows;
    for (int Chan = 1; Chan <= gFile.ChanCnt; ++Chan) {
        const CalibrRow& Place = gFile.Calibr[Chan];
        const NormCurve& Curve = Table.Channel(Chan);
        Rows.push_back({Sample.SessID, Sample.SampleID, Place.ParamID, Place.Seat, Place.Side,
                        std::vector<double>(Curve.begin(), Curve.end())});
    }
    return Rows;
}

void Append(RowArray<DataRow>& Table, std::vector<DataRow>&& Rows)
{
    for (DataRow& Row : Rows)
        Table.Grow() = std::move(Row);
}
} // namespace

void SaveNormSample(int Run, const std::string& Prefix)
{
    const int Number = gFile.Desc.UBound() + 1;
    const NormArrays Arrays = ArraysOf(Run);
    DescRow Sample = DescribeRun(Number);
    std::vector<DataRow> Means = RowsOf(Sample, Arrays.Aver);
    std::vector<DataRow> Deviations;
    if (gExpSTD > 0) Deviations = RowsOf(Sample, Arrays.Std);
    Sample.Comment = InputBox("Input a Comment for the sample:", "Data Processed", Prefix + FormatNum(Number, "00"));
    gFile.Desc.Grow() = std::move(Sample);
    Append(gFile.Data, std::move(Means));
    Append(gFile.STD, std::move(Deviations));
}

bool ProcessStrokes(int32_t Start, int16_t MaxCnt)
{
    if (!HasKeyChannel()) return false;
    RunBackup Before;
    const int32_t Stop = gRaw.UBound();
    int32_t Cur = Start;
    int32_t PrevSample = Start;
    double FirstT = gRaw(0, Start);
    double PrevT = FirstT;
    double CycleTime = 0;
    int Done = 0;
    std::string Cut;
    ResetNorm(1);
    while (DetectCycle(Cur, Stop, CycleTime) && Done < MaxCnt) {
        if (!(CycleTime > PrevT)) {
            if (PrevSample == Start && Cur <= Start + DetectorLag) continue; // it lies ahead of the start
            FirstT += CycleTime - PrevT; // the clock was set back: its times go on from here
            PrevSample = Cur;
            PrevT = CycleTime;
            continue;
        }
        AddStroke(PrevSample, PrevT, CycleTime, 1);
        if (gFile.ChanCnt > 0 && gNormCnt1(NormSteps, 1) == 0) {
            Cut = " The one that begins at " + FormatNum(PrevT, "0.0") +
                  " s lies too near to the end of the recording to be brought to 51 points.";
            ResetNorm(1);
            break;
        }
        gTestTime = CycleTime - FirstT;
        FinishNorm(1);
        SaveNormSample(1, "Stroke ");
        DescRow& Sample = gFile.Desc[gFile.Desc.UBound()];
        Sample.Start = PrevT / 60;
        Sample.Finish = CycleTime / 60;
        PrevSample = Cur;
        PrevT = CycleTime;
        ResetNorm(1);
        ++Done;
    }
    const bool HasCycles = CycleStats(Start, Stop);
    Before.Finish();
    MsgBox(FormatNum(Done, "0") + " strokes processed." + Cut, TitleInformation);
    return HasCycles;
}
