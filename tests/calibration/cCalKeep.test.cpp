// What the calibration workbench keeps: raw files, the session, reference tables, and what a failed save leaves.
#include "CalBench.h"
#include "core/mNotice.h"

#include <chrono>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {
int64_t NowMicroseconds()
{
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::microseconds(1);
}
} // namespace

TEST_CASE_FIXTURE(Bench, "a channel never gets what was fitted for another use or channel, nor half of a failed save")
{
    Start("2");
    for (int i = 0; i < 12; ++i)
        CHECK(Point(1000 + 250 * i, 8.5 * i + 0.01 * i * i));
    Work.SetApprox(ApproxOneLine);
    REQUIRE(Work.AnalyseArr());
    Work.SetApprox(ApproxTwoLines);
    CHECK_FALSE(Work.SaveData()); // would be read by a falling curve of zeros
    CHECK(gFile.Calibr[2].ProcMode == 0);
    Work.SetApprox(ApproxOneLine);
    REQUIRE(Work.SaveData());
    CHECK(Point(5000, 104));
    CHECK(Work.State().find("13 points, not saved, newer than the analysis") != std::string::npos);

    Work.DelAllPoints();
    Start("1");
    Work.UndoPoints();
    CHECK(Work.Chan() == 2);
    CHECK(Work.SensID() == "H1s");
    gData[1] = 77;
    CHECK(Point(5100, 105)); // of the channel whose points came back
    CHECK(Work.Points().back().L == 5100);
    Work.SetApprox(ApproxLinear);
    gCurDir = Folder.Path("gone/");
    gCurFile = gCurDir + "s.txt";
    CHECK_FALSE(Work.Save());
    CHECK(gFile.Calibr[2].ProcMode == 1);
    SetCurFile(Folder.Path("s.txt"));
    Work.SetSensID("a/b");
    CHECK_FALSE(Work.Save());
    Work.SetSensID("H1s");
    REQUIRE(Work.SaveData()); // asks whether the new line is what counts
    CHECK(Dialogs.Told.back().find("read by a curve") != std::string::npos);
    CHECK(gFile.Calibr[2].ProcMode == 0);
}

TEST_CASE_FIXTURE(Bench,
                  "a table that cannot be saved with its session leaves both files and the values read as they were")
{
    Load("sweep.xcl", Sweep(-60, 60, 3000, 3));
    Work.SetArrMin("-50");
    Work.SetArrMax("50");
    REQUIRE(Work.CreateRefTable3());
    const std::string Table = *ReadWhole(Folder.Path("S7.ref"));
    const std::string Session = *ReadWhole(gCurFile);
    const auto Read = [] {
        double Prev = 0;
        return CalcPhysVal(2, CurveCount(20), Prev);
    };
    const double Former = Read();
    CHECK(Former == doctest::Approx(20).epsilon(1e-3));
    CalPoints Shifted = Sweep(-60, 60, 3000, 3);
    for (CalPoint& Each : Shifted)
        Each.L += 500;
    Load("shifted.xcl", Shifted);
    gCurFile = Folder.Path("gone/s.txt"); // its folder is not there, that of the table is
    CHECK_FALSE(Work.CreateRefTable3());
    CHECK(ReadWhole(Folder.Path("S7.ref")) == Table);
    gCurFile = Folder.Path("s.txt");
    std::filesystem::remove(Folder.Path("S7.ref"));
    std::filesystem::create_directory(Folder.Path("S7.ref")); // no table can be written or read
    CHECK_FALSE(Work.CreateRefTable3());
    CHECK(ReadWhole(gCurFile) == Session);
    CHECK(Read() == Former);
    CHECK(gFile.Calibr[2].Max == 50);
    CHECK(Work.Points().size() == 3000);
    std::filesystem::remove(Folder.Path("S7.ref"));
    REQUIRE(Work.CreateRefTable3());
    CHECK(std::fabs(Read() - Former) > 1);
}

TEST_CASE_FIXTURE(Bench, "a kill at any instant of a save leaves the session whole, and with new values its points")
{
    Load("sweep.xcl", Sweep(-60, 60, 2000, 0));
    const std::string Old = *ReadWhole(gCurFile);
    const int64_t Begin = NowMicroseconds();
    REQUIRE(Work.Save());
    const int64_t Whole = NowMicroseconds() - Begin;
    int Changed = 0;
    for (int Kill = 0; Kill <= 30; ++Kill) {
        std::filesystem::remove(Folder.Path("s_02_S7.xcl"));
        REQUIRE(SaveWhole(gCurFile, Old));
        const pid_t Child = fork();
        if (Child == 0) {
            Work.Save();
            _exit(0);
        }
        usleep(static_cast<useconds_t>(Whole * Kill / 25));
        if (Kill < 30) kill(Child, SIGKILL); // the last one is left to end
        waitpid(Child, nullptr, 0);
        DataFile Left;
        REQUIRE(ReadDataFile(gCurFile, Left, SectionFilter::Any));
        REQUIRE(Left.Calibr.UBound() == 3);
        for (const auto& Each : std::filesystem::directory_iterator(Folder.Path("")))
            if (Each.path().extension() == ".xcl") CHECK(LoadRawCal(Each.path().string())->Points.size() >= 1999);
        if (Left.Calibr[2].Q1 == 0) continue;
        ++Changed;
        CHECK(std::filesystem::exists(Folder.Path("s_02_S7.xcl")));
    }
    MESSAGE(Changed << " of 31 saves had changed the session");
    CHECK(Changed > 0);
}
