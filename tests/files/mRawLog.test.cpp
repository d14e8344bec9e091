// The beginning of a recording: names, questions, the session's count.
#include "files/mRawLog.h"

#include "files/mTextIO.h"
#include "support/Case.h"

namespace {
struct Session : FreshState
{
    Session()
    {
        gFile = {};
        gFile.Model = 61;
        gFile.SampleCnt = 7;
        gInBoatMode = 0;
        SetCurFile(Folder.Path("race.txt"));
        REQUIRE(WriteDataFile(gCurFile, gFile, SectionFilter::Any));
    }
    ~Session() { StopLog(); }

    int StoredCount(const std::string& Name) const
    {
        DataFile Read;
        REQUIRE(ReadDataFile(Folder.Path(Name), Read, SectionFilter::Any));
        return Read.SampleCnt;
    }
};
} // namespace

TEST_CASE_FIXTURE(Session, "a recording takes its name from the comment and the count, and counts its sample")
{
    StartLog();
    CHECK(Dialogs.Told == Texts{"Input Comment: Ready to start sample # 7 [Sample 07]"});
    CHECK(gRawFN == Folder.Path("race_007.qvn"));
    CHECK(gSampleName == "Sample 07");
    CHECK(gLogging);
    CHECK(StoredCount("race.txt") == 8);
    CHECK(StoredCount("race.bak") == 7);
    Dialogs.Answers = {"2x/heat 1", std::nullopt};
    StartLog();
    CHECK(gRawFN == Folder.Path("2x-heat 1_008.qvn"));
    StartLog();
    CHECK(gRawFN == Folder.Path("_009.qvn"));
    StopLog();
    CHECK_FALSE(gLogging);
    CHECK(ReadWhole(Folder.Path("2x-heat 1_008.qvn")) == "");
}

TEST_CASE_FIXTURE(Session, "a file that exists is recorded over only after a question, except in the boat")
{
    REQUIRE(SaveWhole(Folder.Path("race_007.qvn"), "old"));
    Dialogs.AnswerYes = false;
    StartLog();
    CHECK(Dialogs.Told.back() == "Warning!: Are you sure to replace file " + Folder.Path("race_007.qvn?"));
    CHECK_FALSE(gLogging);
    CHECK(StoredCount("race.txt") == 7);
    gInBoatMode = 1;
    StartLog();
    CHECK(gLogging);
    CHECK(Dialogs.Told.size() == 3);
    CHECK(ReadWhole(gRawFN) == "old");
}

TEST_CASE_FIXTURE(Session, "a log that cannot be opened is reported, and nothing claims to record")
{
    Dialogs.Answers = {std::string(300, 'x')};
    StartLog();
    CHECK(Dialogs.Told.back() == "Error: Can't open Log file: " + gRawFN);
    CHECK_FALSE(gLogging);
    gFile.SampleCnt = 32767;
    CHECK_FALSE(Guard("Log Channels", [] {
        StartLog();
        return true;
    }));
    CHECK(gFile.SampleCnt == 32767);
}
