// The report's curves from typical patterns.
#include "views/cData03report.h"

#include "core/mError.h"
#include "processing/mGlobFunc.h"
#include "processing/mNorm.h"
#include "processing/mOper.h"
#include "processing/mViewRow.h"

#include <utility>

namespace {
// The pattern of a channel at a point, as an argument takes it.
double ArgValue(int Chan, int Point)
{
    return ArcValue(gFile.Calibr[Chan], gNormAver2(Point, Chan));
}
} // namespace

void LoadSamplePattern(const DescRow& Sample)
{
    std::vector<const DataRow*> Rows(1);
    for (const DataRow& Row : gFile.Data)
        if (Row.SampleID == Sample.SampleID) Rows.push_back(&Row);
    NormTable Pattern;
    Pattern.Create(static_cast<int>(Rows.size()) - 1);
    for (int Column = 1; Column <= Pattern.ChannelUBound(); ++Column)
        for (int Point = 0; Point <= Sample.DataCount; ++Point)
            Pattern(Point, Column) = At(At(Rows, Column)->Values, Point);
    gNormAver2 = std::move(Pattern);
    gRate = Sample.Rate;
}

void cData03report::InitViewID(int Row)
{
    View = gFile.View3[Row];
    IsVisible = false;
    CurveX.clear();
    CurveY.clear();
    const auto ArgNames = SplitStr(View.Arguments);
    if (ArgNames.empty()) return;
    FillNormArr(ArgChannels(ArgNames));
    IsVisible = true;
}

void cData03report::FillNormArr(const std::vector<int>& ArgChans)
{
    const int ArgCnt = static_cast<int>(ArgChans.size()) - 1;
    PointPair Pair(ArgCnt, SafeDiv(60, gRate) / NormSteps);
    for (int k = 0; k < NormSteps; ++k) {
        double X = 0;
        if (View.Mode == 0) X = k + 0.5;
        if (View.Mode == 1 && ArgChans[0] >= 1) X = (ArgValue(ArgChans[0], k) + ArgValue(ArgChans[0], k + 1)) / 2;
        for (std::size_t Arg = 1; Arg < ArgChans.size(); ++Arg) {
            if (ArgChans[Arg] < 1) continue;
            Pair.ValA[Arg] = ArgValue(ArgChans[Arg], k);
            Pair.ValB[Arg] = ArgValue(ArgChans[Arg], k + 1);
        }
        CurveX.push_back(X);
        CurveY.push_back(Pair.DoReportOper(View.Oper));
    }
}

std::vector<RowValue> cData03report::GetFuncs() const
{
    std::vector<RowValue> Values;
    for (const std::string& Word : SplitStr(View.Functions)) {
        const std::string Key(LeftPart(Word, 4));
        Values.push_back({View.ID + " " + Key + " ", Key, RowFunction(Key, CurveX, CurveY)});
    }
    return Values;
}
