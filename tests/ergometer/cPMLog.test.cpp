// The comparison file: its name, its header, its rows.
#include "ergometer/cPMLog.h"

#include "files/mTextIO.h"
#include "support/Case.h"

#include <algorithm>

namespace {
PMSnapshot Connected(int64_t Now, int64_t StrokeAt, uint32_t Drives)
{
    PMSnapshot Monitor;
    Monitor.State = ePMState::Open;
    Monitor.IsPolling = true;
    Monitor.WaitsSince = Now;
    Monitor.StrokeAt = StrokeAt;
    Monitor.Figures = PMFigures{.PaceKm = 251, .Cadence = 28, .Power = 177, .DriveTime = 0.94, .RecovTime = 1.24};
    Monitor.Figures->StrokeLen = 1.4;
    Monitor.Figures->DriveCount = Drives;
    return Monitor;
}

struct Logged : FreshState
{
    cPMLog Log;
    PMStroke Stroke{.StrokeN = 3, .Rate = 27.5, .Drive = 0.95, .Recov = 1.25, .Length = 1.41, .Power = 180};

    Logged()
    {
        gFile.Model = 61;
        gFile.SampleCnt = 7;
        SetCurFile(Folder.Path("erg.txt"));
    }
    std::string Text(const std::string& Name) const { return ReadWhole(Folder.Path(Name)).value_or("(none)"); }

    // Columns "PMI N" and "PMI Drive" of the rows.
    Texts MonitorCells() const
    {
        Texts Cells;
        const std::string All = Text("PMlog007_strokes.csv");
        for (std::size_t From = All.find('\n') + 1; From < All.size(); From = All.find('\n', From) + 1) {
            std::vector<std::string> Row(1);
            for (const char Letter : All.substr(From, All.find('\r', From) - From))
                Letter == '\t' ? static_cast<void>(Row.emplace_back()) : Row.back().push_back(Letter);
            REQUIRE(Row.size() == 22);
            Cells.push_back(Row[1] + "/" + Row[5]);
        }
        return Cells;
    }
};
} // namespace

TEST_CASE_FIXTURE(Logged,
                  "the comparison takes a sample's number, its file has the header alone, and the rows stand beside")
{
    REQUIRE(Log.PMStartLog());
    CHECK(gFile.SampleCnt == 8);
    DataFile Saved;
    REQUIRE(ReadDataFile(gCurFile, Saved, SectionFilter::Any));
    CHECK(Saved.SampleCnt == 8);
    Log.AddStroke(Stroke, {}, 1000);
    Log.Stop({}, 1000);
    const std::string Head = Text("PMlog007.csv");
    CHECK(Head.starts_with("QVN N\tPMI N\tQVN Rate\tPMI Rate\t"));
    CHECK(Head.ends_with("QVN WPS\tPMI WPS\tPMI Pace/500\tQVN MaxForceT\r\n"));
    CHECK(std::count(Head.begin(), Head.end(), '\t') == 21);
    CHECK(Text("PMlog007_strokes.csv") ==
          Head + "3\t\t27.5\t\t0.95\t\t1.25\t\t1.41\t\t180\t\t0\t\t0\t\t0\t\t0\t\t\t0\r\n");
}

TEST_CASE_FIXTURE(Logged, "a row waits for the monitor's figures of the same stroke, but not for ever")
{
    REQUIRE(Log.PMStartLog());
    // Time of the finish, time of each look with the monitor's last change and count; what the row then holds.
    Log.AddStroke(Stroke, Connected(5000, 3800, 2), 5000);
    Log.Look(Connected(5020, 3800, 2), 5020); // still the stroke before
    CHECK(MonitorCells().empty());
    Log.Look(Connected(5040, 5030, 3), 5040);
    CHECK(MonitorCells() == Texts{"3/0.94"});
    Log.AddStroke(Stroke, Connected(7000, 6900, 4), 7000); // the monitor was the quicker one
    Log.Look(Connected(7000, 6900, 4), 7000);
    CHECK(MonitorCells() == Texts{"3/0.94", "4/0.94"});
    Log.AddStroke(Stroke, Connected(9000, 6900, 4), 9000); // it sees no stroke any more
    Log.Look(Connected(9480, 6900, 4), 9480);
    CHECK(MonitorCells().size() == 2);
    Log.Look(Connected(9500, 6900, 4), 9500);
    CHECK(MonitorCells() == Texts{"3/0.94", "4/0.94", "4/0.94"});
    Log.AddStroke(Stroke, {}, 11000); // unplugged
    Log.Look({}, 11000);
    CHECK(MonitorCells().back() == "/");
    Log.AddStroke(Stroke, {}, 13000);
    Log.Stop({}, 13010); // what waits is written
    CHECK(MonitorCells().size() == 5);
    CHECK_FALSE(Log.IsOpen());
}

TEST_CASE_FIXTURE(Logged, "a comparison that cannot be opened counts no sample, and one that is there is asked for")
{
    Dialogs.AnswerYes = false;
    for (const char* Name : {"PMlog007.csv", "PMlog007_strokes.csv"}) {
        REQUIRE(SaveWhole(Folder.Path(Name), "mine"));
        CHECK_FALSE(Log.PMStartLog());
        CHECK(Text(Name) == "mine");
        CHECK(Dialogs.Told.back() == "Warning!: Are you sure to replace file " + Folder.Path(Name) + "?");
        std::filesystem::remove(Folder.Path(Name));
    }
    std::filesystem::create_directory(Folder.Path("PMlog007.csv"));
    Dialogs.AnswerYes = true;
    CHECK_FALSE(Log.PMStartLog());
    CHECK(Dialogs.Told.back() == "Error: Can't open Log file: " + Folder.Path("PMlog007.csv") + " (Is a directory)");
    CHECK(gFile.SampleCnt == 7);
    CHECK_FALSE(Log.IsOpen());
    SetCurFile("");
    CHECK_FALSE(Log.PMStartLog());
    CHECK(Dialogs.Told.back().starts_with("Information: There is no session"));
}
