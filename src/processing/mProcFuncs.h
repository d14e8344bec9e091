// Polynomials through measured points.
#pragma once

#include <cstdint>
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
