// Local fits and smoothing of reference tables.
#include "calibration/mRefBuild.h"

#include "processing/mProcFuncs.h"

#include <cmath>

namespace {
constexpr double HalfWidth = 5.0; // physical units to either side of a step
constexpr int16_t Cubic = 3;
constexpr int SmoothReach = 3; // rows to either side

struct Sample
{
    std::vector<double> P;
    std::vector<double> L;

    void Add(double Phys, double Count)
    {
        P.push_back(Phys);
        L.push_back(Count);
    }
    bool IsEnough() const { return P.size() > Cubic; }
};

struct Fit
{
    std::vector<double> Coef;
    double Sigma = 0;
};

bool FitCubic(const Sample& Points, Fit& Result)
{
    int16_t Degree = Cubic;
    return PolyFit(Points.P, Points.L, Degree, Result.Sigma, Result.Coef);
}

// The count at physical value V; gives the number of points that it was fitted to, 0 where there are too few.
std::size_t CountAt(std::span<const CalPoint> Points, double V, double& Count)
{
    Sample Near;
    for (const CalPoint& Point : Points)
        if (V - HalfWidth <= Point.P && Point.P <= V + HalfWidth) Near.Add(Point.P, Point.L);
    Fit First;
    if (!Near.IsEnough() || !FitCubic(Near, First)) return 0;
    Sample Close;
    for (std::size_t i = 0; i < Near.P.size(); ++i)
        if (std::fabs(Near.L[i] - PolyVal(First.Coef, Near.P[i])) < First.Sigma) Close.Add(Near.P[i], Near.L[i]);
    Fit Second;
    const bool IsSecond = Close.IsEnough() && FitCubic(Close, Second);
    Count = PolyVal(IsSecond ? Second.Coef : First.Coef, V);
    return IsSecond ? Close.P.size() : Near.P.size();
}
} // namespace

int BuildRefTable(std::span<const CalPoint> Points, double Min, double Max, RefTable& Table)
{
    const double Step = (Max - Min) / RefTable::MaxRow;
    int Empty = 0;
    Table.Cnt = RefTable::MaxRow;
    for (std::size_t i = 0; i <= RefTable::MaxRow; ++i) {
        Table.Y[i] = Min + static_cast<double>(i) * Step;
        Table.X[i] = 0;
        Table.N[i] = static_cast<double>(CountAt(Points, Table.Y[i], Table.X[i]));
        if (Table.N[i] == 0) ++Empty;
    }
    SmoothRefTable(Table);
    SmoothRefTable(Table);
    return Empty;
}

void SmoothRefTable(RefTable& Table)
{
    auto X = Table.X;
    for (int i = SmoothReach; i <= Table.Cnt - SmoothReach; ++i) {
        const auto First = static_cast<std::size_t>(i - SmoothReach);
        constexpr std::size_t Width = 2 * SmoothReach + 1;
        int16_t Degree = Cubic;
        double Sigma = 0;
        std::vector<double> Coef;
        if (!PolyFit(std::span(Table.Y).subspan(First, Width), std::span(Table.X).subspan(First, Width), Degree, Sigma,
                     Coef))
            continue;
        // The first and the last fit also give the rows beyond their middle.
        const int From = i == SmoothReach ? 0 : i;
        const int To = i == Table.Cnt - SmoothReach ? Table.Cnt : i;
        for (int Row = From; Row <= To; ++Row)
            X[static_cast<std::size_t>(Row)] = PolyVal(Coef, Table.Y[static_cast<std::size_t>(Row)]);
    }
    Table.X = X;
}
