// Polynomials and curves of two parameters through measured points.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

/// Least-squares polynomial of Y on X through all points, by orthonormal polynomials on the points (Forsythe's
/// recurrence). Degree comes in as the degree and goes out as the number of coefficients; Coef[i] belongs to X to the
/// power i. Points that determine a polynomial of lower degree only give that one, with 0 above it. Sigma is the root
/// of the sum of squared residuals divided by the points less one, whatever the degree; 0 for a single point. False,
/// with everything as it was, when there are no points or a result is no finite number.
bool PolyFit(std::span<const double> X, std::span<const double> Y, int16_t& Degree, double& Sigma,
             std::vector<double>& Coef);

/// Value at X of a polynomial of degree 1, 2 or 3 with the coefficients in the order of PolyFit; 0 for another degree.
double PolyVal(std::span<const double> Coef, double X);

/// The first four derivatives at X of the polynomial that PolyVal gives, by central differences of its values at X and
/// up to three steps H to either side. Throws RunError for a step of 0.
std::array<double, 4> PolyDeriv7(std::span<const double> Coef, double X, double H);

/// Value at V of the cubic regression of Y on X as PolyFit gives it; 0 where it gives none. Allocates nothing for eight
/// points or fewer.
double PolyFitAt(std::span<const double> X, std::span<const double> Y, double V);

/// The curves of Regress2.
enum class eRegress
{
    Linear = 1,      // Y = A + B X
    Logarithmic = 2, // Y = A + B ln X
    Exponential = 3  // Y = A exp(B X), fitted to the logarithm of Y
};

struct TwoParameters
{
    double A = 0;
    double B = 0;
};

/// Least-squares parameters of a curve through all points as PolyFit gives them. Nothing where it gives none, or when
/// a point has no logarithm.
std::optional<TwoParameters> Regress2(eRegress Type, std::span<const double> X, std::span<const double> Y);
