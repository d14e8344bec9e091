// Tables of sessions from the command line: out, back, from other sessions, and what is refused.
#include "support/Case.h"

#include <cstdlib>
#include <sys/wait.h>

namespace {
struct Tables : TempFolder
{
    Tables()
    {
        for (const char* Name : {"single.txt", "eight.txt"})
            std::filesystem::copy_file(std::string(SOURCE_FOLDER "/demo/") + Name, Path(Name));
    }
    // The exit code; what was written on stderr stands in err.log.
    int Run(const std::string& Words) const
    {
        const std::string Program = "cd '" + Path("") + "' && '" PROGRAM_FOLDER "/skarvelin-batch' ";
        return WEXITSTATUS(std::system((Program + Words + " >out.log 2>err.log").c_str()));
    }
    std::string Bytes(const std::string& Name) const { return ReadWhole(Path(Name)).value_or("(none)"); }
};
} // namespace

TEST_CASE_FIXTURE(Tables, "each table of a session goes out and back to equal bytes")
{
    for (const std::string Session : {"single.txt", "eight.txt"})
        for (const std::string Kind : {"Calibr", "Crew", "Boat", "Desc", "View1", "View3", "View4", "Dots", "Segs"}) {
            CAPTURE(Session + " " + Kind);
            const std::string Before = Bytes(Session);
            CHECK(Run("table " + Session + " " + Kind + " t.csv") == 0);
            CHECK(Run("table " + Session + " " + Kind + " --from t.csv --out new.txt") == 0);
            CHECK((Bytes("new.txt") == Before && Bytes(Session) == Before));
            CHECK(Run("table " + Session + " " + Kind + " --from t.csv") == 0);
            CHECK((Bytes(Session) == Before && Bytes(Session.substr(0, Session.find('.')) + ".bak") == Before));
            CHECK(Bytes("err.log").empty());
        }
    CHECK(Bytes("t.csv").starts_with("Segment ID,Segment Name,ID of Start point,ID of End point,Start point Number,"));
}

TEST_CASE_FIXTURE(Tables,
                  "rows come from a table or another session, and what cannot be taken is reported with its place")
{
    REQUIRE(Run("table eight.txt Crew crew.csv") == 0);
    std::string Csv = Bytes("crew.csv");
    CHECK(Csv.find("\r\n1,2,Kim Ferry,R01,1.86,82,Max Shore,Lake RC,M,H,1999-02-11,2011-09-01,264,450,") !=
          std::string::npos);
    CHECK(Run("table single.txt Crew --from eight.txt --out crew.txt") == 0);
    CHECK(Bytes("crew.txt").find("Kim Ferry\tR01\t1.86\t82.00\t") != std::string::npos);
    Csv.replace(Csv.find("1.94"), 4, "1,94");
    REQUIRE(SaveWhole(Path("crew.csv"), Csv));
    std::filesystem::create_directory(Path("folder.csv"));
    REQUIRE(SaveWhole(Path("bare.txt"), "Crew\r\nEnd\r\nEOF\r\n"));
    const std::string Before = Bytes("single.txt");
    const std::tuple<std::string, int, std::string> Cases[] = {
        {"table single.txt Crew --from crew.csv", 1, "Line 5 has 26 cells, the first line 25"},
        {"table single.txt Crew --from none.csv", 1, "none.csv (No such file or directory)"},
        {"table single.txt Crew --from folder.csv", 1, "folder.csv (Is a directory)"},
        {"table single.txt Boat --from bare.txt", 1, "There is no table Boat in file: bare.txt"},
        {"table single.txt Segs --from eight.txt", 1, "Nothing was copied"},
        {"table single.txt Antro a.csv", 2, "there is no table Antro; there are Calibr, Crew, Boat, Desc, View1,"},
        {"table single.txt Crew", 2, "either OUT.csv or --from FILE is needed"},
        {"table single.txt Crew a.csv --from crew.csv", 2, "either OUT.csv or --from FILE is needed"},
        {"table single.txt Crew a.csv --out b.txt", 2, "--out belongs to --from"},
        {"readids single.txt bare.txt", 1, "There is no table Calibr in file: bare.txt"},
    };
    for (const auto& [Words, Exit, Reported] : Cases) {
        CAPTURE(Words);
        CHECK(Run(Words) == Exit);
        CHECK(Bytes("err.log").find(Reported) != std::string::npos);
        CHECK(Bytes("single.txt") == Before);
        CHECK((!std::filesystem::exists(Path("a.csv")) && !std::filesystem::exists(Path("single.bak"))));
    }
}

TEST_CASE_FIXTURE(Tables, "sensors take their calibration along into another session")
{
    std::string Moved = Bytes("eight.txt");
    const auto Sensor = Moved.find("\tFRC-204\t");
    const auto Line = Moved.rfind('\n', Sensor) + 1;
    Moved.replace(Moved.find("-145.630\t0.091912000", Line), 20, "-150.500\t0.095000000");
    REQUIRE(SaveWhole(Path("moved.txt"), Moved));
    const std::string Before = Bytes("eight.txt");
    CHECK(Run("readids eight.txt moved.txt --out new.txt") == 0);
    CHECK((Bytes("new.txt") == Moved && Bytes("eight.txt") == Before));
    CHECK(Bytes("out.log").find(" channels have Q0 and Q1 of the sensors") != std::string::npos);
}
