// The polynomial fit, values and derivatives of what it gives, and fits of two parameters.
#include "processing/mProcFuncs.h"

#include "base/mError.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <utility>

namespace {
// The orthonormal polynomial that the recurrence has come to: its values on the points and its power coefficients.
struct Ortho
{
    std::span<double> P;
    std::span<double> Q; // values of the polynomial before
    std::span<double> B;
    std::span<double> BQ;
    double Alpha = 0;
    double Beta = 0;
};

// Numbers that a fit needs room for.
constexpr std::size_t RoomOf(std::size_t Points, std::size_t Count)
{
    return 3 * Points + 2 * Count;
}

// Points and coefficients of the fits that need no memory from elsewhere: those of live panels.
constexpr std::size_t SmallPoints = 8;
constexpr std::size_t CubicCount = 4;

double Dot(std::span<const double> X, std::span<const double> Y)
{
    return std::inner_product(X.begin(), X.end(), Y.begin(), 0.0);
}

// Norm of a polynomial below which it is nothing but the rounding of the points.
double RoundingNorm(std::span<const double> X)
{
    double Largest = 0;
    for (const double Each : X)
        Largest = std::max(Largest, std::fabs(Each));
    return 64 * std::numeric_limits<double>::epsilon() * Largest;
}

double NormOf(const Ortho& Poly)
{
    return std::sqrt(Dot(Poly.P, Poly.P));
}

// Divides the polynomial by its norm on the points.
void Normalise(Ortho& Poly, std::span<const double> X)
{
    Poly.Beta = NormOf(Poly);
    for (double& Each : Poly.P)
        Each /= Poly.Beta;
    for (double& Each : Poly.B)
        Each /= Poly.Beta;
    Poly.Alpha = 0;
    for (std::size_t i = 0; i < X.size(); ++i)
        Poly.Alpha += X[i] * Poly.P[i] * Poly.P[i];
}

// Replaces values by their natural logarithms. False when one has none.
bool TakeLogarithms(std::vector<double>& Values)
{
    if (!std::all_of(Values.begin(), Values.end(), [](double Each) { return Each > 0; })) return false;
    for (double& Each : Values)
        Each = std::log(Each);
    return true;
}

// The next polynomial: (x - alpha) p - beta q, normalised. False when it vanishes on the points.
bool Advance(Ortho& Poly, std::span<const double> X)
{
    for (std::size_t i = 0; i < X.size(); ++i) {
        const double Next = (X[i] - Poly.Alpha) * Poly.P[i] - Poly.Beta * Poly.Q[i];
        Poly.Q[i] = std::exchange(Poly.P[i], Next);
    }
    for (std::size_t j = Poly.B.size(); j-- > 0;) { // downward: a coefficient needs the one below it as it was
        const double Next = (j > 0 ? Poly.B[j - 1] : 0) - Poly.Alpha * Poly.B[j] - Poly.Beta * Poly.BQ[j];
        Poly.BQ[j] = std::exchange(Poly.B[j], Next);
    }
    if (NormOf(Poly) <= RoundingNorm(X)) return false;
    Normalise(Poly, X);
    return true;
}

bool AreFinite(std::span<const double> Values)
{
    return std::ranges::all_of(Values, [](double Each) { return std::isfinite(Each); });
}

// The polynomial with as many coefficients as A has, in Room, which is filled with zeros and large enough for it.
// Nothing when a result is no finite number; else the sum of squared residuals.
std::optional<double> FitInto(std::span<double> A, std::span<const double> X, std::span<const double> Y,
                              std::span<double> Room)
{
    const std::size_t Points = X.size();
    const std::size_t Count = A.size();
    const std::span<double> Rest = Room.subspan(2 * Points, Points); // residuals
    Ortho Poly{Room.first(Points), Room.subspan(Points, Points), Room.subspan(3 * Points, Count),
               Room.subspan(3 * Points + Count, Count)};
    std::ranges::fill(Poly.P, 1);
    std::ranges::copy(Y, Rest.begin());
    Poly.B[0] = 1;
    Normalise(Poly, X);
    for (std::size_t k = 0; k < Count; ++k) {
        if (k > 0 && !Advance(Poly, X)) break;
        const double C = Dot(Poly.P, Y);
        for (std::size_t j = 0; j <= k; ++j)
            A[j] += Poly.B[j] * C;
        for (std::size_t i = 0; i < Points; ++i)
            Rest[i] -= Poly.P[i] * C;
    }
    const double Squares = Dot(Rest, Rest);
    if (!std::isfinite(Squares + Poly.Beta) || !AreFinite(A)) return {};
    return Squares;
}
} // namespace

bool PolyFit(std::span<const double> X, std::span<const double> Y, int16_t& Degree, double& Sigma,
             std::vector<double>& Coef)
{
    if (X.size() != Y.size() || X.empty() || Degree < 0) return false;
    const std::size_t Count = static_cast<std::size_t>(Degree) + 1;
    std::vector<double> Room(RoomOf(X.size(), Count));
    std::vector<double> A(Count);
    const auto Squares = FitInto(A, X, Y, Room);
    if (!Squares) return false;
    Sigma = X.size() > 1 ? std::sqrt(*Squares / static_cast<double>(X.size() - 1)) : 0;
    Degree = static_cast<int16_t>(Count);
    Coef = std::move(A);
    return true;
}

double PolyVal(std::span<const double> Coef, double X)
{
    if (Coef.size() < 2 || Coef.size() > 4) return 0;
    return std::accumulate(Coef.rbegin(), Coef.rend(), 0.0, [X](double Sum, double C) { return Sum * X + C; });
}

std::array<double, 4> PolyDeriv7(std::span<const double> Coef, double X, double H)
{
    const auto F = [&](int Step) { return PolyVal(Coef, X + Step * H); };
    const double Odd1 = F(1) - F(-1);
    const double Odd2 = F(2) - F(-2);
    const double Odd3 = F(3) - F(-3);
    const double Even1 = F(1) + F(-1);
    const double Even2 = F(2) + F(-2);
    const double Even3 = F(3) + F(-3);
    return {Div(8 * Odd1 - Odd2, 12 * H), Div(16 * Even1 - Even2 - 30 * F(0), 12 * H * H),
            Div(8 * Odd2 - 13 * Odd1 - Odd3, 8 * H * H * H),
            Div(56 * F(0) - 39 * Even1 + 12 * Even2 - Even3, 6 * H * H * H * H)};
}

double PolyFitAt(std::span<const double> X, std::span<const double> Y, double V)
{
    if (X.size() != Y.size() || X.empty()) return 0;
    std::array<double, CubicCount> A{};
    if (X.size() <= SmallPoints) {
        std::array<double, RoomOf(SmallPoints, CubicCount)> Room{};
        return FitInto(A, X, Y, Room) ? PolyVal(A, V) : 0;
    }
    std::vector<double> Room(RoomOf(X.size(), CubicCount));
    return FitInto(A, X, Y, Room) ? PolyVal(A, V) : 0;
}

std::optional<TwoParameters> Regress2(eRegress Type, std::span<const double> X, std::span<const double> Y)
{
    std::vector<double> Xs(X.begin(), X.end());
    std::vector<double> Ys(Y.begin(), Y.end());
    if (Type == eRegress::Logarithmic && !TakeLogarithms(Xs)) return {};
    if (Type == eRegress::Exponential && !TakeLogarithms(Ys)) return {};
    int16_t Degree = 1;
    double Sigma = 0;
    std::vector<double> Coef;
    if (!PolyFit(Xs, Ys, Degree, Sigma, Coef)) return {};
    return TwoParameters{Type == eRegress::Exponential ? std::exp(Coef[0]) : Coef[0], Coef[1]};
}
