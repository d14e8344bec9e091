// What the strip of strokes and the picture of a sample draw, call by call.
#include "files/mQVN.h"
#include "support/Golden.h"
#include "support/SurfaceLog.h"
#include "views/data/cDataNav.h"
#include "views/samples/cSamplePicture.h"

TEST_CASE_FIXTURE(FreshState,
                  "the strip of strokes draws rates, speeds, scales and the selection as in the golden list")
{
    SurfaceLog Surface(600, 120);
    cDataNav Strip(Surface);
    Strip.Draw(); // without strokes
    double Time = 0;
    for (int i = 0; i < 12; ++i) {
        ScanRow& Row = gScanRows.Grow();
        Row.Rate = 20 + i % 4;
        Time += 60 / Row.Rate;
        Row.Time = Time;
        Row.Speed = 3.5 + 0.1 * (i % 3);
        Row.Dist = 10 * i;
    }
    Strip.FirstRow = 3;
    Strip.LastRow = 7;
    Strip.Cursor = 9;
    Strip.Draw();
    CheckGolden("strip.txt", Surface.Take());
}

TEST_CASE("the picture of a sample draws scales and a curve for each oar as in the golden list")
{
    SurfaceLog Surface(300, 200);
    DrawSamplePicture(Surface, {}); // says that there is none
    OarCurve Right{"1", {}, {}};
    OarCurve Left{"2", {}, {}};
    for (int i = 0; i <= 10; ++i) {
        Right.Angles.push_back(-55 + 9 * i);
        Right.Forces.push_back(i < 7 ? 80 * i : 1600 - 160 * i);
        Left.Angles.push_back(-50 + 8 * i);
        Left.Forces.push_back(30 * i);
    }
    DrawSamplePicture(Surface, {Right, Left});
    CheckGolden("sample-picture.txt", Surface.Take());
}
