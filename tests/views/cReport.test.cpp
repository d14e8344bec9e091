// The report: rows of samples and patterns on a page that a surface writes down.
#include "support/Case.h"
#include "support/Golden.h"
#include "support/SurfaceLog.h"
#include "views/report/cReportPage.h"

#include <algorithm>

namespace {
// A session of an angle A1 and a force H1 with a stored sample of both, a circle of the radii 50 and 400.
struct ReportState : FreshState
{
    ReportState()
    {
        gFile = {};
        for (const char* Name : {"A1", "H1"}) {
            CalibrRow& Channel = gFile.Calibr.Grow();
            Channel.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
            Channel.ParamID = Name;
            DataRow& Row = gFile.Data.Grow();
            Row.SampleID = "S07";
            Row.ParamID = Name;
            for (int j = 0; j <= 50; ++j)
                Row.Values.push_back(*Name == 'A' ? -50 * std::cos(j * 0.04 * 3.141592653589793)
                                                  : 400 * std::sin(j * 0.04 * 3.141592653589793));
        }
        DescRow& Sample = gFile.Desc.Grow();
        Sample.SampleID = "S07";
        Sample.DataCount = 50;
        Sample.Rate = 30;
        Sample.StrokeCount = 12;
        Add("Force", 1, -100, 100, 0, 50, "A1,H1", "MinX,MaxY");
        Add("Course", 0, 0, 50, 50, 100, "A1,H1", "MaxY");
    }

    static ViewRow& Add(const char* ID, int16_t Mode, float MinX, float MaxX, float Top, float Bottom,
                        const char* Arguments, const char* Functions)
    {
        ViewRow& Row = gFile.View3.Grow();
        Row.ID = ID;
        Row.Mode = Mode;
        Row.Color = 1;
        Row.MinXPar = MinX;
        Row.MaxXPar = MaxX;
        Row.MinYPar = -500;
        Row.MaxYPar = 500;
        Row.Y1 = 100;
        Row.X2 = Top;
        Row.Y2 = Bottom;
        Row.Arguments = Arguments;
        Row.Functions = Functions;
        return Row;
    }

    static Texts Lines(int Kind, int Page = 0)
    {
        cReport Report;
        Report.InitData(Kind, 1, 0, 0);
        SurfaceLog Surface(cReportPage::PageSize.X, cReportPage::PageSize.Y);
        cReportPage(Report).Draw(Surface, Page);
        return Surface.Take();
    }

    static auto Count(const Texts& Lines, const char* Part)
    {
        return std::count_if(Lines.begin(), Lines.end(),
                             [&](const std::string& Line) { return Line.find(Part) != std::string::npos; });
    }
};
} // namespace

TEST_CASE_FIXTURE(ReportState, "a page has the sample, both plots within their rectangles and the values with units")
{
    const Texts Page = Lines(ReportStored);
    for (const char* Part : {"\"S07\"", "\"30.0 /min\"", "\"12\"", "\"Handle force, N\"", "over oar angle, °",
                             "over the stroke, %", "\"-49.8\"", "\"399\""})
        CHECK_MESSAGE(Count(Page, Part) >= 1, Part);
    Texts Curves;
    for (const std::string& Line : Page)
        if (Line.starts_with("polyline")) Curves.push_back(Line.substr(9, Line.find(" #") - 9));
    REQUIRE(Curves.size() == 2);
    std::vector<double> First;
    for (const std::string& Curve : Curves)
        for (std::size_t At = 0; At < Curve.size(); At = std::min(Curve.find(' ', At), Curve.size() - 1) + 1)
            if (&Curve == &Curves[0]) First.push_back(Val(Curve.substr(At)));
    REQUIRE(First.size() == 2 * 51);
    CHECK(First[0] == First[100]); // closed
    CHECK(First[1] == First[101]);
    const auto [Left, Right] = std::minmax_element(First.begin(), First.end());
    CHECK(*Left > 0);
    CHECK(*Right < 1000);
    // The plot over the position runs from edge to edge, without a line back.
    const std::string& Course = Curves[1];
    const double Start = Val(Course);
    const double End = Val(Course.substr(Course.rfind(' ', Course.rfind(' ') - 1) + 1));
    CHECK(End - Start > 800);
}

TEST_CASE_FIXTURE(ReportState, "a page is drawn as it was: head, plots with scales and legends, table, foot")
{
    gFile.View3[1].MaxYPar = 300; // the force goes beyond it
    Add("Seat 1", 1, -100, 100, 0, 50, "A1,H1", "DelX").Color = 2;
    Add("Both", 0, 0, 50, 50, 100, "None,A1,H1", "MinY,Odd1").Oper = 1;
    gFile.Comment = "Into the wind";
    gFile.Crew.Grow().Name = "An Other";
    CheckGolden("report-page.txt", Lines(ReportStored));
}

TEST_CASE_FIXTURE(ReportState, "a peak beyond the scale is cut off at the edge, and its flanks are not joined there")
{
    gFile.View3[1].MaxYPar = 300;
    gFile.View3.Resize(1);
    cData03report Plot;
    LoadSamplePattern(gFile.Desc[1]);
    Plot.InitViewID(1);
    Plot.SetScales({0, 400, 0, 200}, 1);
    SurfaceLog Surface(400, 200);
    Surface.SetPen(0, 1);
    Plot.DrawNorm(Surface);
    const Texts Pieces = Surface.Take();
    REQUIRE(Pieces.size() == 2); // from the start up to the edge, and from the edge round to the start
    CHECK(Pieces[0].find(" 0 #") != std::string::npos);
    CHECK(Pieces[1].substr(0, 20).find(" 0 ") != std::string::npos);
    for (const std::string& Piece : Pieces)
        CHECK(Piece.find(" -") == std::string::npos);
}

TEST_CASE_FIXTURE(ReportState, "what a report cannot show is reported on the page, and the rest is shown")
{
    Add("Bad", 0, 0, 50, 0, 50, "A1,H9,H1", "").Oper = OperPower;
    Add("None", 0, 0, 50, 0, 50, "", "MaxY");
    gFile.View3[2].Arguments = "None,H1,H7";
    Texts Page = Lines(ReportStored);
    CHECK(Count(Page, "Row 2 (Course): the session has no channel H7") == 1);
    CHECK(Count(Page, "Row 3 (Bad): the operation Power takes 4 arguments behind the first, the row has 2") == 1);
    CHECK(Count(Page, "polyline") == 2);
    std::swap(gFile.Data[1], gFile.Data[2]);
    CHECK(Count(Lines(ReportStored), "curve 1 is H1, channel 1 is A1") == 1);
    gFile.Data.Clear();
    Page = Lines(ReportStored);
    CHECK(Count(Page, "There is no typical stroke") == 1);
    CHECK(Count(Page, "polyline") == 0);
    gFile.View3.Clear();
    CHECK(Count(Lines(ReportStored), "no rows in its report view") == 1);
    CHECK(Dialogs.Told.empty());
}

TEST_CASE_FIXTURE(ReportState, "samples are dots on the edges of their rectangle and between, wherever they begin")
{
    gDeltaT = 0.02;
    gRaw.Create(2, 400);
    for (int i = 0; i <= 400; ++i)
        gRaw(2, i) = i == 150 ? 2000 : 100;
    cData03report Plot;
    Plot.InitViewID(2, ReportPrimary, 100, 300);
    REQUIRE(Plot.Xs().size() == 200);
    CHECK(Plot.Xs()[0] == 100.5);
    Plot.SetScales({0, 400, 0, 200}, 1);
    SurfaceLog Surface(400, 200);
    Plot.DrawDot(Surface);
    const Texts Dots = Surface.Take();
    REQUIRE(Dots.size() == 198); // the two that the peak takes part in are above the scale
    CHECK(Dots.front().starts_with("point 1 140"));
    CHECK(Dots.back().starts_with("point 399 140"));
}

TEST_CASE_FIXTURE(ReportState,
                  "like rows of a table stand below each other, with their quantity above and values of zero unsigned")
{
    const auto Row = [](std::string ID, const char* Name, const char* Key, double Value) {
        return ReportLine{std::move(ID), {}, {Name, "N"}, {{"", Key, Value}}};
    };
    std::vector<ReportLine> Rows;
    for (const char* Name : {"Force", "Lift"})
        for (const char* ID : {"1", "2", "3", "4", "5", "6", "7"})
            Rows.push_back(Row(ID, Name, *Name == 'F' ? "MaxY" : "DelY", *ID == '1' ? -1e-9 : 20));
    SurfaceLog Surface(1000, 1000);
    cReportTable Table(Rows);
    Table.Draw(Surface, 0, Table.Count(), {0, 900, 0, 500});
    const Texts Page = Surface.Take();
    for (const char* Part : {"\"Force, N\"", "\"Lift, N\"", "\"Max\"", "\"Range\""})
        CHECK_MESSAGE(Count(Page, Part) == 1, Part);
    CHECK(Count(Page, "\"20.0\"") == 12);
    CHECK(Count(Page, "\"0.00\"") == 2);
    CHECK(Table.Height(0, 14, 900) == Table.Height(0, 7, 200));
    CHECK(Table.EndFor(0, 100, Table.Height(0, 5, 100)) == 5);
}

TEST_CASE_FIXTURE(ReportState, "a table that is too long goes on, every row once")
{
    for (int i = 3; i <= 200; ++i)
        Add(("R" + FormatNum(i, "000")).c_str(), 0, 0, 50, 0, 50, "A1,H1", "MinY,MaxY,MinX,MaxX,DelX,DelY");
    cReport Report;
    Report.InitData(ReportStored, 1, 0, 0);
    cReportPage Pages(Report);
    REQUIRE(Pages.Pages() > 1);
    SurfaceLog Surface(cReportPage::PageSize.X, cReportPage::PageSize.Y);
    std::ptrdiff_t Rows = 0;
    for (int Page = 0; Page < Pages.Pages(); ++Page) {
        Pages.Draw(Surface, Page);
        Rows += Count(Surface.Take(), "\"0.50\""); // MinX of each row that was added
    }
    CHECK(Rows == 198);
}
