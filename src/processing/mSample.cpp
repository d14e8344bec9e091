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

// The rows of a sample that is not stored yet.
struct NewSample
{
    DescRow Desc;
    std::vector<DataRow> Means;
    std::vector<DataRow> Deviations;
};

// A row with what all samples have alike; the figures of the run are left to the caller.
DescRow DescribeSample(int Number)
{
    DescRow Row;
    Row.SessID = gFileTitle;
    Row.SampleID.append("S").append(FormatNum(Number, "00"));
    Row.ParCount = gFile.ChanCnt;
    Row.DataCount = NormSteps;
    Row.BadStrokes = ToInt16(gBadStrokes);
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

// Fills the rows of a pattern and asks for its comment.
NewSample MakeSample(DescRow&& Desc, const NormTable& Means, const NormTable& Deviations, const std::string& Proposed)
{
    NewSample Made{std::move(Desc), {}, {}};
    Made.Means = RowsOf(Made.Desc, Means);
    if (gExpSTD > 0) Made.Deviations = RowsOf(Made.Desc, Deviations);
    Made.Desc.Comment = InputBox("Input a Comment for the sample:", "Data Processed", Proposed);
    return Made;
}

void Store(NewSample&& Made)
{
    gFile.Desc.Grow() = std::move(Made.Desc);
    Append(gFile.Data, std::move(Made.Means));
    Append(gFile.STD, std::move(Made.Deviations));
}

// The strokes of a recording from a sample on, each made into a sample of its own.
class SingleStrokes
{
public:
    explicit SingleStrokes(int32_t First) : Start(First), PrevSample(First), FirstT(gRaw(0, First)), PrevT(FirstT) {}

    // Takes the stroke that ends at a boundary. False when it cannot be brought to 51 points; Cut then says so.
    bool Take(int32_t Cur, double CycleTime);

    std::vector<NewSample> Made;
    std::string Cut;
    double TestTime = gTestTime; // s from the start to the end of the last stroke

private:
    void PassOver(int32_t Cur, double CycleTime);

    int32_t Start;
    int32_t PrevSample;
    double FirstT;
    double PrevT;
};

// A boundary ahead of the start ends no stroke. Where the clock was set back, the times of the strokes go on from
// there.
void SingleStrokes::PassOver(int32_t Cur, double CycleTime)
{
    if (PrevSample == Start && Cur <= Start + DetectorLag) return;
    FirstT += CycleTime - PrevT;
    PrevSample = Cur;
    PrevT = CycleTime;
}

bool SingleStrokes::Take(int32_t Cur, double CycleTime)
{
    if (!(CycleTime > PrevT)) {
        PassOver(Cur, CycleTime);
        return true;
    }
    NormRun Stroke = ResetNorm(1);
    AddStroke(Stroke, PrevSample, PrevT, CycleTime);
    if (gFile.ChanCnt > 0 && Stroke.Cnt(NormSteps, 1) == 0) {
        Cut = " The one that begins at " + FormatNum(PrevT, "0.0") +
              " s lies too near to the end of the recording to be brought to 51 points.";
        return false;
    }
    FinishNorm(Stroke);
    const int Number = gFile.Desc.UBound() + 1 + static_cast<int>(Made.size());
    DescRow Desc = DescribeSample(Number);
    Desc.StrokeCount = 1;
    Desc.TestTime = TestTime = CycleTime - FirstT;
    Desc.Rate = Stroke.Rates.Mean();
    Desc.RateDev = Stroke.RateSD();
    Desc.Start = PrevT / 60;
    Desc.Finish = CycleTime / 60;
    Made.push_back(MakeSample(std::move(Desc), Stroke.Aver, Stroke.Std, "Stroke " + FormatNum(Number, "00")));
    PrevSample = Cur;
    PrevT = CycleTime;
    return true;
}
} // namespace

void SaveNormSample(int Run, const std::string& Prefix)
{
    const int Number = gFile.Desc.UBound() + 1;
    const NormArrays Arrays = ArraysOf(Run);
    DescRow Desc = DescribeSample(Number);
    Desc.StrokeCount = gStrokeCnt;
    Desc.TestTime = gTestTime;
    Desc.Rate = gRate;
    Desc.RateDev = gRateSD;
    Store(MakeSample(std::move(Desc), Arrays.Aver, Arrays.Std, Prefix + FormatNum(Number, "00")));
}

bool ProcessStrokes(KeyWindow& Win, int32_t Start, int16_t MaxCnt)
{
    if (!HasKeyChannel()) return false;
    SingleStrokes Strokes(Start);
    const int32_t Stop = gRaw.UBound();
    int32_t Cur = Start;
    double CycleTime = 0;
    while (DetectCycle(Win, Cur, Stop, CycleTime) && static_cast<int>(Strokes.Made.size()) < MaxCnt)
        if (!Strokes.Take(Cur, CycleTime)) break;
    const auto Found = CycleStats(Win, Start, Stop);
    const auto Done = static_cast<int>(Strokes.Made.size());
    for (NewSample& Each : Strokes.Made)
        Store(std::move(Each));
    NormRun Empty = ResetNorm(1);
    Empty.TestTime = Strokes.TestTime;
    PublishNorm(std::move(Empty));
    const bool HasCycles = PublishStats(Found);
    MsgBox(FormatNum(Done, "0") + " strokes processed." + Strokes.Cut, TitleInformation);
    return HasCycles;
}
