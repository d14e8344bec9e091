// The data view without its window: selections, what is processed of them, changes, and what is drawn.
#include "views/data/cData02view.h"

#include "files/mTextIO.h"
#include "processing/mProcess.h"
#include "support/Case.h"
#include "support/SurfaceLog.h"
#include "views/report/cData03report.h"

namespace {
constexpr int Last = 999;
constexpr int StrokeSamples = 100;

// Strokes of about two seconds at 50 samples a second on A1, a force of H1, a speed of 4 m/s, in a session on disk.
struct Desk : FreshState
{
    SurfaceLog PlotLog{600, 236};
    SurfaceLog StripLog{600, 110};
    cData02view View{PlotLog, StripLog};

    Desk()
    {
        gFile = {};
        gFile.Model = 67;
        gFile.ChanCnt = 3;
        gRaw.Create(3, Last);
        for (const char* Name : {"A1", "H1", "Vs"}) {
            CalibrRow& Row = gFile.Calibr.Grow();
            Row.ParamID = Name;
            Row.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
            Row.Visible = static_cast<int16_t>(Row.Chan != 3);
            Row.Min = Row.Chan == 1 ? -50 : 0;
            Row.Max = Row.Chan == 1 ? 50 : 400;
        }
        for (int i = 0; i <= Last; ++i) {
            const double Phase = (i - 20.5 + 3 * std::sin(i / 160.0)) / StrokeSamples * 2 * 3.14159265358979;
            gRaw(0, i) = i * 0.02;
            gRaw(1, i) = 40 * std::sin(Phase);
            gRaw(2, i) = 300 * std::max(0.0, std::cos(Phase));
            gRaw(3, i) = 4;
        }
        gFile.KeyChanID = "A1";
        gKeyMode = 1;
        StdFilter = 3;
        gXScale = 1;
        ResolveChannels();
        SetCurFile(Folder.Path("s.txt"));
        REQUIRE(WriteDataFile(gCurFile, gFile, SectionFilter::Any));
        View.Draw();
    }

    void Set(int Sample, cData02view::Command Action)
    {
        View.Plot.Range.Cursor = Sample;
        View.Run("Selection", Action);
    }

    std::string Told(std::initializer_list<std::size_t> Which)
    {
        std::string All;
        for (const std::size_t i : Which)
            All += View.Numbers.Selected[i].Text + (View.Numbers.Selected[i].IsCurrent ? "|" : "(old)|");
        return All;
    }

    bool HasDrawn(const std::string& Part)
    {
        PlotLog.Take();
        View.Draw();
        for (const std::string& Call : PlotLog.Take())
            if (Call.find(Part) != std::string::npos) return true;
        return false;
    }
};
} // namespace

TEST_CASE_FIXTURE(Desk,
                  "a start behind the old stop is shown without one, and nothing is processed until it has its own")
{
    gXScale = 4;
    Set(100, &cData02view::SetStartSel);
    CHECK(Told({1, 2, 4}) == "2.0|no stop||");
    Set(500, &cData02view::SetStopSel);
    CHECK(Told({1, 2, 3, 4}) == "2.0|10.0|8.0|3|");
    CHECK_FALSE(HasDrawn("no stop yet"));
    Set(600, &cData02view::SetStartSel);
    CHECK(Told({1, 2, 3, 4, 5}) == "12.0|no stop||||");
    CHECK(HasDrawn("\"Start, no stop yet\""));
    CHECK_FALSE(HasDrawn("box 0"));
    int Plotted = 0;
    View.OnPlot = [&](int, int32_t, int32_t) { ++Plotted; };
    const auto Session = ReadWhole(gCurFile);
    for (const auto Action : {&cData02view::ProcSelection, &cData02view::PlotTypical, &cData02view::ProcStrokes}) {
        Dialogs.Told.clear();
        View.Run("Command", Action);
        REQUIRE(Dialogs.Told.size() == 1);
        CHECK(Dialogs.Told[0].find("starts at 12.0 s and has no stop yet") != std::string::npos);
    }
    CHECK((gFile.Desc.UBound() == 0 && Plotted == 0 && ReadWhole(gCurFile) == Session));
    Set(900, &cData02view::SetStopSel);
    CHECK(Told({1, 2, 3, 4}) == "12.0|18.0|6.0|2|");
    View.Run("Proc Sel", &cData02view::ProcSelection);
    REQUIRE(gFile.Desc.UBound() == 1);
    CHECK((gFile.Desc[1].StrokeCount == 2 && gFile.Desc[1].TestTime == doctest::Approx(4).epsilon(0.03)));
    View.Run("Report", &cData02view::PlotTypical);
    CHECK(Plotted == 1);
}

TEST_CASE_FIXTURE(Desk,
                  "start and stop may be set in either order, at the first sample too, and one place is no selection")
{
    Set(0, &cData02view::SetStartSel); // 0 and 0 stand for no selection
    CHECK(View.Plot.Range.IsOpen());
    View.Run("Proc Sel", &cData02view::ProcSelection);
    CHECK(gFile.Desc.UBound() == 0);
    Set(0, &cData02view::SetStopSel);
    CHECK(Told({1, 2}) == "0.0|no stop|");
    Set(700, &cData02view::SetStopSel);
    CHECK(Told({1, 2}) == "0.0|14.0|");
    Set(800, &cData02view::SetStartSel);
    Set(300, &cData02view::SetStopSel);
    CHECK(Told({1, 2}) == "6.0|16.0|");
    Set(350, &cData02view::SetStartSel);
    CHECK(Told({1, 2}) == "7.0|16.0|");
    Set(900, &cData02view::SetStartSel);
    View.Run("Dist", &cData02view::ShowDist); // a distance without a stop runs to the end, which is seen
    CHECK(Told({1, 2, 7}) == "(old)|(old)|7.8|");
    View.Plot.Range.SetStart(990);
    View.Plot.Range.SetStart(995);
    gRaw.Resize(500);
    View.Draw();
    CHECK_FALSE(View.Plot.Range.IsOpen()); // its sample is gone
    View.Plot.Range.ClearSelection();
    View.Run("Proc Sel", &cData02view::ProcSelection); // no selection at all is the whole recording
    REQUIRE(gFile.Desc.UBound() == 1);
    CHECK(View.Plot.Range.SelStop() == 500);
}
