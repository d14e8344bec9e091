// Choice of the points, the fits, and their texts.
#include "calibration/mCalFit.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "processing/mProcFuncs.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr std::size_t CoefCnt = std::tuple_size_v<CalCoefs>;
constexpr const char* EndLine = "\r\n";

// Whether the points have enough different counts to determine a curve.
bool AreSpread(std::span<const CalPoint> Points)
{
    std::vector<double> Counts;
    for (const CalPoint& Point : Points)
        Counts.push_back(Point.L);
    std::sort(Counts.begin(), Counts.end());
    return std::unique(Counts.begin(), Counts.end()) - Counts.begin() >= static_cast<std::ptrdiff_t>(CoefCnt);
}

// Fits a branch to Chosen without its last point; all of them count for the correlation. Gives an empty text, or why
// there is no curve.
std::string FitBranch(std::span<const CalPoint> Chosen, CalBranch& Branch)
{
    if (Chosen.size() < CoefCnt + 1) return TooFewPoints;
    const auto Fitted = Chosen.first(Chosen.size() - 1);
    const auto Forward = FitArr(Fitted, true);
    const auto Inverse = FitArr(Fitted, false);
    if (!Forward || !Inverse || !AreSpread(Fitted)) return NoSolution;
    Branch.Q = *Forward;
    Branch.QInv = *Inverse;
    Branch.R = CalcCorrel(Chosen, Branch.Q);
    return std::isfinite(Branch.R) ? "" : NoSolution;
}

// An analysis without a result.
CalAnalysis Failed(const std::string& Reason)
{
    CalAnalysis Result;
    Result.Text = Reason;
    return Result;
}

std::string BranchText(const std::string& Head, const CalBranch& Branch)
{
    std::string Text;
    for (std::size_t i = 0; i < CoefCnt; ++i)
        Text += Head + "Q" + FormatNum(static_cast<double>(i), "0") + " = " + FormatSig6(Branch.Q[i]) + EndLine;
    return Text + Head + "R2 = " + FormatSig6(Branch.R) + EndLine;
}
} // namespace

double CurveAt(const CalCoefs& Q, double X)
{
    return Q[0] + Q[1] * X + Q[2] * X * X;
}

std::optional<CalCoefs> FitArr(std::span<const CalPoint> Points, bool XIsLogical)
{
    std::vector<double> X;
    std::vector<double> Y;
    for (const CalPoint& Point : Points) {
        X.push_back(XIsLogical ? Point.L : Point.P);
        Y.push_back(XIsLogical ? Point.P : Point.L);
    }
    int16_t Degree = CoefCnt - 1;
    double Sigma = 0;
    std::vector<double> Coef;
    if (!PolyFit(X, Y, Degree, Sigma, Coef)) return {};
    CalCoefs Q{};
    std::copy_n(Coef.begin(), CoefCnt, Q.begin());
    return Q;
}

double CalcCorrel(std::span<const CalPoint> Points, const CalCoefs& Q)
{
    double Sp = 0, Sf = 0, Spf = 0, Spp = 0, Sff = 0;
    for (const CalPoint& Point : Points) {
        const double F = CurveAt(Q, Point.L);
        Sp += Point.P;
        Sf += F;
        Spf += F * Point.P;
        Spp += Point.P * Point.P;
        Sff += F * F;
    }
    const double N = static_cast<double>(Points.size()) + 1;
    const double Squares = (N * Spp - Sp * Sp) * (N * Sff - Sf * Sf);
    return Squares > 0 ? (N * Spf - Sf * Sp) / std::sqrt(Squares) : 0;
}

CalAnalysis AnalyseOneLine(std::span<const CalPoint> Points, double Lo, double Hi, double CutOff)
{
    const double Cut = (Hi - Lo) * CutOff;
    CalAnalysis Result;
    for (const CalPoint& Point : Points)
        if (Lo + Cut <= Point.P && Point.P <= Hi - Cut) Result.Up.Points.push_back(Point);
    if (Result.Up.Points.empty()) return Failed(TooFewPoints);
    const std::string Reason = FitBranch(std::span(Result.Up.Points).subspan(1), Result.Up);
    if (!Reason.empty()) return Failed(Reason);
    const CalCoefs& Q = Result.Up.Q;
    Result.Text = std::string("Calibration Analysis:") + EndLine + "Q0 = " + FormatSig(Q[0], 6) + EndLine +
                  "Q1 = " + FormatSig(Q[1], 8) + EndLine + "Q2 = " + FormatSig(Q[2], 8) + EndLine +
                  "R2 = " + FormatSig(Result.Up.R, 8) + EndLine;
    Result.IsDone = true;
    return Result;
}

CalAnalysis AnalyseTwoLines(std::span<const CalPoint> Points, double CutOff)
{
    const CalRange Range = FindMinMax(Points);
    const double Cut = (Range.MaxP - Range.MinP) * CutOff;
    CalAnalysis Result;
    for (std::size_t i = 1; i + 1 < Points.size(); ++i) {
        const CalPoint& Point = Points[i];
        if (Point.P <= Range.MinP + Cut || Point.P >= Range.MaxP - Cut) continue;
        (Point.P > Points[i - 1].P ? Result.Up : Result.Down).Points.push_back(Point);
    }
    for (CalBranch* Branch : {&Result.Up, &Result.Down})
        if (const std::string Reason = FitBranch(Branch->Points, *Branch); !Reason.empty()) return Failed(Reason);
    Result.Text = std::string("Calibration Analysis:") + EndLine + BranchText("Up: ", Result.Up) +
                  BranchText("Down: ", Result.Down);
    Result.IsDone = true;
    return Result;
}
