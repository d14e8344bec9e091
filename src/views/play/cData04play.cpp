// The play view's curves of a stored sample.
#include "views/play/cData04play.h"

#include "base/mError.h"
#include "processing/mGlobFunc.h"
#include "processing/mOper.h"
#include "processing/mViewRow.h"

namespace {
// An argument of a row: its channel's row and the values of the sample; without values it is left out.
struct SampleArg
{
    const CalibrRow* Channel = nullptr;
    const DataRow* Data = nullptr;

    double operator()(int Point) const { return ArcValue(*Channel, At(Data->Values, Point)); }
};

std::vector<SampleArg> SampleArgs(const std::vector<std::string>& ArgNames, const std::string& SampleID)
{
    const auto Chans = ArgChannels(ArgNames);
    std::vector<SampleArg> Args(ArgNames.size());
    for (std::size_t i = 0; i < Args.size(); ++i) {
        const int Row = FindData(gFile.Data, SampleID, ArgNames[i]);
        if (Chans[i] >= 1 && Row >= 1) Args[i] = {&gFile.Calibr[Chans[i]], &gFile.Data[Row]};
    }
    return Args;
}
} // namespace

// Unlike the report's the cycle is closed: the point before the first is the last one. Argument 0 is an argument like
// the others.
void cData04play::InitViewID(int Row, int Sample)
{
    CurveY.clear();
    const ViewRow& View = gFile.View4[Row];
    const DescRow& Desc = gFile.Desc[Sample];
    const auto ArgNames = SplitStr(View.Arguments);
    if (ArgNames.empty()) return;
    const int PntCnt = Desc.DataCount;
    const auto Args = SampleArgs(ArgNames, Desc.SampleID);
    PointPair Pair(static_cast<int>(Args.size()) - 1, Div(Div(60, Desc.Rate), PntCnt));
    for (int k = 0; k <= PntCnt; ++k) {
        for (std::size_t i = 0; i < Args.size(); ++i) {
            if (!Args[i].Data) continue;
            Pair.ValA[i] = Args[i](k == 0 ? PntCnt : k - 1);
            Pair.ValB[i] = Args[i](k);
        }
        CurveY.push_back(Pair.DoPlayOper(View.Oper));
    }
}
