// Polynomials through measured points.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

/// Least-squares polynomial of Y on X through all points, by orthonormal polynomials on the points (Forsythe's
/// recurrence). Degree comes in as the degree and goes out as the number of coefficients; Coef[i] belongs to X to the
/// power i. Sigma is the root of the sum of squared residuals divided by the points less one, whatever the degree; 0
/// for a single point. False, with everything as it was, when the points do not determine such a polynomial or its
/// coefficients are no finite numbers.
bool PolyFit(std::span<const double> X, std::span<const double> Y, int16_t& Degree, double& Sigma,
             std::vector<double>& Coef);

/// Value at X of a polynomial of degree 1, 2 or 3 with the coefficients in the order of PolyFit; 0 for another degree.
double PolyVal(std::span<const double> Coef, double X);
