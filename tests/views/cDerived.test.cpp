// Curves of the report and of the play view from the same stored sample.
#include "support/Case.h"
#include "views/play/cData04play.h"
#include "views/report/cData03report.h"

namespace {
// Sample "S02" at rate 30 with the points j of angle A and j squared of force F; its rows stand behind those of another
// sample, and their columns are those of the channels.
struct StoredSample
{
    StoredSample()
    {
        gFile = {};
        for (const char* Name : {"A", "F", "New"}) {
            CalibrRow& Channel = gFile.Calibr.Grow();
            Channel.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
            Channel.ParamID = Name;
            Channel.Lever = 1 / 0.017453292519943278;
        }
        for (const char* Sample : {"S01", "S02"}) {
            DescRow& Desc = gFile.Desc.Grow();
            Desc.SampleID = Sample;
            Desc.DataCount = 50;
            Desc.Rate = 30;
            for (const char* Name : {"A", "F"}) {
                DataRow& Row = gFile.Data.Grow();
                Row.SampleID = Sample;
                Row.ParamID = Name;
                for (int j = 0; j <= 50; ++j)
                    Row.Values.push_back(Desc.SampleID == "S01" ? -1 : *Name == 'A' ? j : j * j);
            }
        }
        gFile.View3.Grow();
        gFile.View4.Grow();
        LoadSamplePattern(gFile.Desc[2]);
    }

    cData03report Report(int16_t Mode, int16_t Oper, const char* Arguments, const char* Functions = "") const
    {
        ViewRow& View = gFile.View3[1];
        View.ID = "Row";
        View.Mode = Mode;
        View.Oper = Oper;
        View.Arguments = Arguments;
        View.Functions = Functions;
        cData03report Plot;
        Plot.InitViewID(1);
        return Plot;
    }

    cData04play Play(int16_t Oper, const char* Arguments) const
    {
        gFile.View4[1].Oper = Oper;
        gFile.View4[1].Arguments = Arguments;
        cData04play Plot;
        Plot.InitViewID(1, 2);
        return Plot;
    }
};
} // namespace

TEST_CASE("the report's points lie between those of the pattern, the last pair missing")
{
    const StoredSample Sample;
    const auto Plot = Sample.Report(1, 6, "A,F", "MinX.,MaxX,DelY,Odd");
    REQUIRE(Plot.Ys().size() == 50);
    CHECK(Plot.Xs()[49] == 49.5);
    CHECK(Plot.Ys()[49] == doctest::Approx(99 / 0.04)); // points 2 s / 50 apart
    std::string Text;
    for (const RowValue& Each : Plot.GetFuncs())
        Text += Each.Label + (Each.Value == 0 ? "0" : Each.Value == 0.5 ? "0.5" : "more") + ";";
    CHECK(Text == "Row MinX 0.5;Row MaxX more;Row DelY more;Row Odd 0;");
    CHECK(Sample.Report(0, 5, "A,F").Ys()[7] == 0);
    CHECK(Sample.Report(0, 0, "none,F").Xs()[7] == 7.5);
    CHECK(Sample.Report(1, 1, "none,none,F").Ys()[1] == 2.5);
    CHECK_FALSE(Sample.Report(0, 0, "").Visible());
    gFile.Calibr[2].Mode = 1; // an angle of 1 degree is an arc of 1 m here
    CHECK(Sample.Report(0, 0, "A,F").Ys()[1] == doctest::Approx(2.5));
    gFile.Calibr[2].Lever *= 2;
    CHECK(Sample.Report(0, 0, "A,F").Ys()[1] == doctest::Approx(5));
}

TEST_CASE("the play view's cycle is closed and has all points")
{
    const StoredSample Sample;
    const auto Plot = Sample.Play(0, "A,F");
    REQUIRE(Plot.Ys().size() == 51);
    CHECK(Plot.Ys()[0] == 1250); // between the last point and the first
    CHECK(Plot.Ys()[1] == 0.5);
    CHECK(Sample.Play(6, "A,A").Ys()[3] == doctest::Approx(25));
    CHECK(Sample.Play(1, "A,New,A").Ys()[3] == 2.5); // a channel that the sample lacks is left out
    CHECK(Sample.Play(4, "A,F").Ys()[3] == 0);
    CHECK(Sample.Play(0, "").Ys().empty());
}

TEST_CASE("what a row cannot be computed from fails")
{
    const StoredSample Sample;
    CHECK_THROWS_AS(Sample.Report(0, 2, "A,F"), RunError);
    CHECK_THROWS_AS(Sample.Report(0, 0, "A,New"), RunError); // a channel without a column
    CHECK_THROWS_AS(Sample.Play(2, "A,F"), RunError);
    gFile.Desc[2].Rate = 0;
    CHECK_THROWS_AS(Sample.Play(0, "A,F"), RunError);
    gFile.Desc[2].DataCount = 51;
    CHECK_THROWS_AS(LoadSamplePattern(gFile.Desc[2]), RunError);
}
