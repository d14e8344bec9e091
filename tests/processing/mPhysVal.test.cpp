// Conversion of raw counts to physical values.
#include "processing/mPhysVal.h"

#include "base/mError.h"
#include "core/mGlobData.h"
#include "support/Case.h"

#include <tuple>

TEST_CASE("each mode of a channel converts by its own formula")
{
    CalibrRow& Row = gFile.Calibr.Grow();
    Row.Q0 = -10;
    Row.Q1 = 2;
    Row.Q2 = 100; // belongs to the fit, not to the conversion
    Row.Qup0 = 1;
    Row.Qup1 = 10;
    Row.Qup2 = 0.5;
    Row.Qdn0 = 3;
    Row.Qdn1 = 20;
    Row.Qdn2 = 1.5;
    const std::tuple<int16_t, double, double, double, double> Cases[] = {
        {0, 2, 7, -6, 7}, {5, 2, 7, -6, 7}, {7, 2, 7, -6, 7},  {-1, 2, 7, -6, 7}, {3, 2, 7, 6, 7},
        {1, 2, 7, 23, 7}, {2, 4, 3, 49, 4}, {2, 4, 5, 107, 4}, {2, 4, 4, 78, 4}};
    for (const auto& [Mode, X, Before, Y, After] : Cases) {
        CAPTURE(Mode);
        CAPTURE(Before);
        Row.ProcMode = Mode;
        double Prev = Before;
        CHECK(CalcPhysVal(1, X, Prev) == Y);
        CHECK(Prev == After);
    }
    double Prev = 0;
    CHECK_THROWS_AS(CalcPhysVal(2, 0, Prev), RunError);
}
