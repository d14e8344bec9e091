// The formulas of the modes in which a channel is read.
#include "processing/mPhysVal.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mModes.h"
#include "processing/mRefTable.h"

#include <cmath>
#include <utility>

namespace {
double Square(double Q0, double Q1, double Q2, double X)
{
    return Q2 * (X * X) + Q1 * X + Q0;
}

// Number of a channel's reference table, 0 when there is no such table.
int TableNumber(const CalibrRow& Row)
{
    const double Number = RoundHalfEven(Row.Threshold);
    return Number >= 1 && Number <= gRefCnt ? static_cast<int>(Number) : 0;
}

template <class Formula>
void Convert(std::span<double> Values, const Formula& Of)
{
    for (double& Each : Values)
        Each = Of(Each);
}
} // namespace

double CalcPhysVal(int Chan, double X, double& Prev)
{
    CalcPhysVals(Chan, {&X, 1}, Prev);
    return X;
}

void CalcPhysVals(int Chan, std::span<double> Values, double& Prev)
{
    const CalibrRow& Row = gFile.Calibr[Chan];
    const auto Line = [Q0 = Row.Q0, Q1 = Row.Q1](double X) { return Q1 * X + Q0; };
    const auto Up = [Q0 = Row.Qup0, Q1 = Row.Qup1, Q2 = Row.Qup2](double X) { return Square(Q0, Q1, Q2, X); };
    const auto Down = [Q0 = Row.Qdn0, Q1 = Row.Qdn1, Q2 = Row.Qdn2](double X) { return Square(Q0, Q1, Q2, X); };
    switch (Row.ProcMode) {
    case ApproxOneLine:
        return Convert(Values, Up);
    case ApproxTwoLines:
        return Convert(Values, [&](double X) {
            const double Before = std::exchange(Prev, X);
            return X > Before ? Up(X) : X < Before ? Down(X) : (Up(X) + Down(X)) / 2;
        });
    case ApproxAbsolute:
        return Convert(Values, [&](double X) { return std::fabs(Line(X)); });
    case ApproxRefTable:
        return Convert(Values, [Table = TableNumber(Row)](double X) { return RefLookup(Table, X); });
    default:
        return Convert(Values, Line);
    }
}
