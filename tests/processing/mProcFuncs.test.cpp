// Fits and derivatives against curves that are known.
#include "processing/mProcFuncs.h"
#include "support/Case.h"

TEST_CASE("the derivatives of a cubic are exact whatever the step")
{
    const double Cubic[] = {1, 2, 3, 4}; // 1 + 2x + 3x2 + 4x3
    for (const double H : {0.5, -2.0}) {
        const auto D = PolyDeriv7(Cubic, 2, H);
        CHECK(D[0] == doctest::Approx(62));
        CHECK(D[1] == doctest::Approx(54));
        CHECK(D[2] == doctest::Approx(24));
        CHECK(std::fabs(D[3]) < 1e-9);
    }
    CHECK_THROWS_AS(PolyDeriv7(Cubic, 2, 0), RunError);
    CHECK(PolyVal(std::span(Cubic, 1), 2) == 0);
}

TEST_CASE("each kind of regression finds its own curve")
{
    const double X[] = {1, 2, 4, 8};
    double Straight[4], Log[4], Exp[4], Cubic[4];
    for (int i = 0; i < 4; ++i) {
        Straight[i] = 3 - 2 * X[i];
        Log[i] = 3 - 2 * std::log(X[i]);
        Exp[i] = 3 * std::exp(-0.2 * X[i]);
        Cubic[i] = X[i] * X[i] * X[i];
    }
    const std::tuple<eRegress, const double*, double> Cases[] = {
        {eRegress::Linear, Straight, -2}, {eRegress::Logarithmic, Log, -2}, {eRegress::Exponential, Exp, -0.2}};
    for (const auto& [Type, Y, B] : Cases) {
        const auto Found = Regress2(Type, X, {Y, 4});
        REQUIRE(Found);
        CHECK(Found->A == doctest::Approx(3));
        CHECK(Found->B == doctest::Approx(B));
    }
    CHECK_FALSE(Regress2(eRegress::Exponential, X, Straight));
    CHECK_FALSE(Regress2(eRegress::Linear, {}, {}));
    CHECK(PolyFitAt(X, Cubic, 10) == doctest::Approx(1000));
    CHECK(PolyFitAt({}, {}, 10) == 0);
}
