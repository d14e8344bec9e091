// The data view's curves and numbers: places of samples, what is drawn at two zooms, the figures of a selection.
#include "views/data/cDataPlot.h"
#include "processing/mProcess.h"
#include "support/Case.h"
#include "support/SurfaceLog.h"
#include "views/data/mSelNumbers.h"

#include <algorithm>

namespace {
constexpr int Last = 999;

// Strokes that begin half a sample behind these.
constexpr int Begins[] = {20, 120, 215, 320, 415, 520, 615, 720, 795, 920, 1220};

double Wave(int i)
{
    const auto* const Next = std::upper_bound(std::begin(Begins), std::end(Begins), i);
    const int From = Next == std::begin(Begins) ? *Next - 200 : *(Next - 1);
    return 40 * std::sin((i - From - 0.5) / (*Next - From) * 2 * 3.14159265358979);
}

// 50 samples a second: channel 1 rises by 0.1 a sample, channel 2 swings, channel 3 is a speed of 4 m/s.
struct Record : FreshState
{
    SurfaceLog Log{1000, 436}; // 30 of margin, 400 of height
    cDataPlot View{Log};

    Record()
    {
        gFile = {};
        gRaw.Create(3, Last);
        for (const char* Name : {"C1", "A1", "Vs"}) {
            CalibrRow& Row = gFile.Calibr.Grow();
            Row.ParamID = Name;
            Row.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
            Row.Visible = static_cast<int16_t>(Row.Chan != 3);
            Row.Min = Row.Chan == 1 ? 0 : -50;
            Row.Max = Row.Chan == 1 ? 100 : 50;
        }
        for (int i = 0; i <= Last; ++i) {
            gRaw(0, i) = i * 0.02;
            gRaw(1, i) = i * 0.1;
            gRaw(2, i) = Wave(i);
            gRaw(3, i) = 4;
        }
        gFile.KeyChanID = "A1";
        gKeyMode = 1;
        StdFilter = 1;
        gXScale = 1;
        ResolveChannels();
        View.SetUpPoly();
    }

    Texts Curves()
    {
        View.Draw();
        Texts Found;
        for (const std::string& Call : Log.Take())
            if (Call.starts_with("polyline")) Found.push_back(Call);
        return Found;
    }
};
} // namespace

TEST_CASE_FIXTURE(Record,
                  "a curve has a point for each of 401 stretches, in its band, and stops ahead of the last sample")
{
    Texts Lines = Curves();
    REQUIRE(Lines.size() == 2);
    // Sample 1 at 30 + int(2.425); 0.1 of 100 in 200 units of height is 0.2.
    CHECK(Lines[0].starts_with("polyline 32 200 34 200 37 199 39 199 42 199 "));
    CHECK(Lines[0].find(" 1000 120 #") != std::string::npos); // sample 400
    CHECK(std::count(Lines[0].begin(), Lines[0].end(), ' ') == 2 * 400 + 1);

    REQUIRE((cDataRange::ZoomOut() && cDataRange::ZoomOut()));
    Lines = Curves();
    CHECK(Lines[0].starts_with("polyline 32 199 34 198 "));                  // samples 4 and 8
    CHECK(Lines[0].find(" 633 1 #") != std::string::npos);                   // sample 996
    CHECK(std::count(Lines[0].begin(), Lines[0].end(), ' ') == 2 * 249 + 1); // 4 to 996
}

TEST_CASE_FIXTURE(Record, "places and samples belong together at each zoom, and zoom and scrolling end at their limits")
{
    for (const auto& [Scale, First, X, Sample] :
         {std::tuple{1, 0, 30.0, 0}, {1, 0, 32.4, 0}, {1, 0, 32.5, 1}, {1, 100, 999.9, 499}, {8, 16, 40.0, 48}}) {
        CAPTURE(X);
        gXScale = static_cast<int16_t>(Scale);
        View.Range.FirstSample = First;
        CHECK(View.Range.RawXtoLog(X) == Sample);
        CHECK(View.Range.RawXtoLog(View.Range.LogToX(Sample) + 0.01) == Sample);
    }
    REQUIRE(View.Range.ZoomAt(515, true));
    CHECK(View.Range.RawXtoLog(515) == 16 + 8 * 200);
    View.Range.ScrollTo(400);
    gXScale = 64;
    CHECK_FALSE(cDataRange::ZoomOut());
    View.Range.MoveView(1);
    CHECK(View.Range.FirstSample == Last);
    gXScale = 1;
    CHECK_FALSE(cDataRange::ZoomIn());
    View.Range.MoveView(-0.4999);
    CHECK(View.Range.FirstSample == Last - 199);
    View.Range.MoveView(-9);
    CHECK(View.Range.FirstSample == 0);
}

TEST_CASE_FIXTURE(Record, "the selection of all strokes has the numbers that follow from its record")
{
    int32_t Start = 0, Stop = 0;
    REQUIRE(FindAllStrokes(Start, Stop));
    CHECK(Start == 24); // the boundary and the samples that back it
    CHECK(Stop == 924);
    REQUIRE(View.Bands.ShowDist(Start, Stop));
    // Eight strokes behind that of the first boundary: three of 1.9 s, three of 2.1 s, one of 1.5 s, one of 2.5 s.
    const SelTexts Told = *SelectionNumbers(Start, Stop);
    const SelTexts Known = {"",     "0.5",  "18.5", "18.0",  "8",    "30.0", "13.2%",
                            "72.0", "4.00", "6",    "75.0%", "30.0", "5.0%"};
    for (std::size_t i = 1; i < Known.size(); ++i) {
        CAPTURE(i);
        CHECK(Told[i] == Known[i]);
    }
    CHECK_FALSE(SelectionDist(Start, Stop + 1)); // beyond the band
    // A stroke from the end of another scan to the first one here would be of no use to anybody.
    for (const double Key : {-1e6, 1e6}) {
        gKeyWin.K.fill(Key);
        gKeyWin.T.fill(900);
        CHECK(SelectionNumbers(Start, Stop) == Told);
    }
    // A second press is a second band, and a store without a boundary leaves the selection.
    View.Bands.ShowDist(Start, Stop);
    View.SetUpPoly();
    CHECK(View.Bands.All().size() == 4);
    gKeyMode = 4;
    CHECK_FALSE(FindAllStrokes(Start, Stop));
    CHECK(Stop == 924);
}

TEST_CASE_FIXTURE(Record, "the numbers within the filter are those of the strokes that it leaves")
{
    // 1.9, 2.1, 1.9, 2.1, 1.9, 2.1 and 1.5 s: the last one is further from the mean than the deviation.
    const SelTexts Shown = *SelectionNumbers(24, 805);
    const SelTexts Known = {"", "", "", "", "7", "31.1", "10.3%", "", "", "6", "85.7%", "30.0", "5.0%"};
    for (const std::size_t i : {4U, 5U, 6U, 9U, 10U, 11U, 12U}) {
        CAPTURE(i);
        CHECK(Shown[i] == Known[i]);
    }
}
