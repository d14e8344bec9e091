// The two conditioning passes over the sample store.
#include "processing/mFilter.h"

#include "base/mError.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"

#include <algorithm>
#include <cmath>

namespace {
bool IsLongEnough()
{
    return gRaw.UBound() - 1 > 1;
}

// The greatest step between neighbouring samples that is taken for a movement.
double StepLimit(std::span<const double> X)
{
    double Sum = 0;
    double SumSq = 0;
    double SumAbs = 0;
    for (std::size_t i = 0; i + 1 < X.size(); ++i) {
        const double D = X[i + 1] - X[i];
        Sum += D;
        SumSq += D * D;
        SumAbs += std::fabs(D);
    }
    // One less than the number of steps, so the variance of an evenly rising channel is negative: it has no spread.
    const auto Count = static_cast<double>(X.size() - 2);
    const double Mean = Sum / Count;
    const double Var = SumSq / Count - Mean * Mean;
    const double SD = Var > 0 ? std::sqrt(Var) : 0;
    return StdFilter * SD + SumAbs / Count;
}

void RepairChannel(std::span<double> X, double Lo, double Hi)
{
    const double Limit = StepLimit(X);
    for (std::size_t i = 0; i + 2 < X.size(); ++i) {
        const double D1 = std::fabs(X[i + 1] - X[i]);
        const double D2 = std::fabs(X[i + 2] - X[i + 1]);
        if (X[i + 1] > Hi || X[i + 1] < Lo || (D1 > Limit && D2 > Limit)) X[i + 1] = (X[i] + X[i + 2]) / 2;
    }
}
} // namespace

bool ZeroTime()
{
    if (!IsLongEnough()) return false;
    const auto Time = gRaw.Channel(0);
    const auto First = std::find_if(Time.begin(), Time.end() - 1, [](double T) { return T > 0; });
    if (First == Time.end() - 1) return true;
    const double T0 = *First;
    std::for_each(First, Time.end() - 1, [T0](double& T) { T -= T0; });
    return true;
}

bool SpikeFilter()
{
    if (!IsLongEnough()) return false;
    CheckIndex(gRaw.ChannelUBound(), static_cast<std::size_t>(gFile.Calibr.UBound()) + 1);
    for (int Chan = 1; Chan <= gRaw.ChannelUBound(); ++Chan)
        RepairChannel(gRaw.Channel(Chan), gFile.Calibr[Chan].Min, gFile.Calibr[Chan].Max);
    return true;
}
