// Tables as CSV and from other sessions.
#include "OpenedDemo.h"

TEST_CASE("every table of both demonstrations goes out as CSV and comes back to the same bytes")
{
    for (const char* Name : {"single", "eight"}) {
        OpenedDemo Demo(Name);
        gDots.Grow() = {"P1", "Knee, \"left\"", 1};
        gSegs.Grow() = {"S1", "Shank", "P1", "P2", 1, 2, 0.5F, 1, 1e6F, -3};
        DescRow& Sample = gFile.Desc.Grow();
        Sample.SampleID = "S01";
        Sample.Rate = 31.4159;
        Sample.Comment = "a comment that is longer than the thirty characters of its field, кириллица";
        gFile.Crew[1].Foot = 0.2637001F;
        const std::string Before = DataFileText(gFile, SectionFilter::Any);
        for (const char* Each : {"Calibr", "Crew", "Boat", "Desc", "View1", "View3", "View4", "Dots", "Segs"}) {
            CAPTURE(Each);
            cDataGrid Table = Loaded(Each);
            REQUIRE(Table.Grid.RowCount() > 0);
            REQUIRE(Table.Export(Demo.Folder.Path("t.csv")));
            const auto Step = Table.Import(Demo.Folder.Path("t.csv"), Never);
            REQUIRE(Step);
            Table.Grid.Do(*Step);
            REQUIRE(Table.Store([] { return true; }));
            CHECK(DataFileText(gFile, SectionFilter::Any) == Before);
            REQUIRE(Table.Export(Demo.Folder.Path("u.csv")));
            CHECK(ReadWhole(Demo.Folder.Path("u.csv")) == ReadWhole(Demo.Folder.Path("t.csv")));
        }
        CHECK(Demo.Dialogs.Told.empty());
    }
}

TEST_CASE("a table that is no such table, or whose rows would become others, is refused with line and column")
{
    const OpenedDemo Demo;
    const cDataGrid Table = Loaded("Dots"), Channels = Loaded("Calibr");
    const std::string Head = "Point ID,Point Name,IsAngle\r\n";
    const std::pair<std::string, std::string> Cases[] = {
        {"", "It has no line with the names of the columns"},
        {"Point ID,IsAngle\n", "The column \"Point Name\" is missing in its first line"},
        {"Point ID;Point Name;IsAngle\n",
         "Its columns are separated by semicolons: save it as CSV in UTF-8 with commas between the columns"},
        {"Point ID\tPoint Name\tIsAngle\n",
         "Its columns are separated by tabs: save it as CSV in UTF-8 with commas between the columns"},
        {Head + "A,\xE9t\xE9,0\n", "It is not text in UTF-8: save it as CSV in UTF-8 with commas between the columns"},
        {"Point ID,Point ID,Point Name,IsAngle\n", "The column \"Point ID\" is there twice"},
        {Head + "A,\"two\nlines\",0\n", "Line 2, Point Name: takes neither tabs nor line breaks"},
        {Head + "A,\"x\",0\nB,b\n", "Line 3 has 2 cells, the first line 3"},
        {Head + "A,a,0\nEnd,b,0\n", "Line 3, Point ID: cannot begin with \"End\": it would end the table in the file"},
        {Head + "A,a,no\n", "Line 2, IsAngle: \"no\" is no number"},
        {Head + "A,\"a,0\n", "Line 2: a quote is not closed"},
        {Head + "A,\"a\"b,0\n", "Line 2: something stands behind a closing quote"},
        {Head + "A,a\"b,0\n", "Line 2: a quote stands within a cell without quotes"},
    };
    for (const auto& [Text, Reason] : Cases) {
        CAPTURE(Text);
        CHECK(RowsFromCsv(Table.Grid, Text).Reason == Reason);
    }
    std::string Sorted = GridToCsv(Channels.Grid);
    Sorted.replace(Sorted.find("\r\n1,"), 4, "\r\n2,");
    CHECK(RowsFromCsv(Channels.Grid, Sorted).Reason ==
          "Line 2, Chan: 1 is expected, not \"2\": in another order the rows would be other channels");
    const ReadTable Read = RowsFromCsv(
        Table.Grid, "\xEF\xBB\xBFIsAngle,Notes,Point ID,Point Name\n1,mine,A,\"say \"\"a\"\", then b\"\n\n");
    CHECK(Read.Reason.empty());
    CHECK(Read.Note == "Left out, since the table has no such columns: \"Notes\"");
    REQUIRE(Read.Rows.size() == 1);
    CHECK(Read.Rows[0].Cells == std::vector<std::string>{"A", "say \"a\", then b", "1"});
}

TEST_CASE(
    "another session gives its rows, its sensors their calibration, and nothing of the open one changes by reading")
{
    OpenedDemo Demo;
    const std::string Eight = SOURCE_FOLDER "/demo/eight.txt";
    const std::string SessID = gSessID;
    cDataGrid Boat = Loaded("Boat");
    const auto Step = Boat.Import(Eight, Never);
    REQUIRE(Step);
    CHECK((Step->In.size() == 8 && gFile.Boat.UBound() != 8 && gSessID == SessID));
    CHECK(!Loaded("Dots").Import(Eight, Never));
    CHECK(Demo.Dialogs.Told ==
          Texts{"Information: Nothing was copied: the table \"Points for video digitising\" cannot "
                "be taken from another session."});
    const std::string Bare = Demo.Put(
        "bare.txt", "Main\n67\t\nEnd\nCalibr\nA9\t1\t3\t1\t1\t10\t2\t0\t0\t0\t1\t0\t0\t0\t0\t0\t0\t0\t0\t0\t0\t"
                    "0\t0\tS1\t\t\nAx\t1\t3\t1\t1\t11\t3\t0\t0\t0\t1\t0\t0\t0\t0\t0\t0\t0\t"
                    "0\t0\t0\t0\t0\tS1\t\t\nEnd\nEOF\n");
    CHECK(!Boat.Import(Bare, Never));
    CHECK(Boat.Import(Bare, [](const std::string&) { return true; }));
    cDataGrid Channels = Loaded("Calibr");
    const int A = 0, B = 1, C = 2;
    for (const auto& [Row, ParamID, Sensor] :
         {std::tuple(A, "A1", "S1"), std::tuple(B, "H1", "S1"), std::tuple(C, "A2", "")}) {
        SetCell(Channels, Row, "ParamID", ParamID);
        SetCell(Channels, Row, "Sensor ID", Sensor);
    }
    const std::string OfB = Cell(Channels, B, "Q0"), OfC = Cell(Channels, C, "Q0");
    int Taken = 0;
    Channels.Grid.Do(*Channels.ReadIDs(Bare, Taken));
    CHECK(Taken == 1);
    CHECK((Cell(Channels, A, "Q0") == "11" && Cell(Channels, A, "Q1") == "3"));
    CHECK((Cell(Channels, B, "Q0") == OfB && Cell(Channels, C, "Q0") == OfC));
}
