// The session data file: what is read, what is written, and that neither loses anything.
#include "files/mTextIO.h"
#include "files/mMain.h"
#include "files/mUnread.h"
#include "processing/mRefTable.h"
#include "support/Case.h"

#include <algorithm>

namespace {
std::string Golden(const std::string& Name)
{
    return ReadWhole(SOURCE_FOLDER "/tests/golden/" + Name).value();
}

// A tab for each bar.
std::string Tabbed(std::string Text)
{
    std::replace(Text.begin(), Text.end(), '|', '\t');
    return Text;
}

struct Session : FreshState
{
    std::string Path = Folder.Path("SESSION.txt");

    Session() { gFile = {}; }

    bool Read(const std::string& Text, SectionFilter Filter = SectionFilter::Any)
    {
        std::filesystem::remove(Path); // a new file is ten times quicker than one replaced
        REQUIRE(SaveWhole(Path, Text, Durability::Fast));
        return ReadDataFile(Path, gFile, Filter);
    }

    // What the typed session's reading reports: two of its lines fit no sample.
    std::string LeftOut() const
    {
        return "Warning!: " + Path +
               ": 2 lines of values left out: fewer than their sample has points, or no such sample in the section "
               "Desc.";
    }

    // What is written after Text was read.
    std::string Rewritten(const std::string& Text)
    {
        REQUIRE(Read(Text));
        return DataFileText(gFile, SectionFilter::Any);
    }
};

// The part of a written file between two keywords.
std::string Part(const std::string& Text, const std::string& From, const std::string& To)
{
    const auto First = Text.find(From + "\r\n");
    return Text.substr(First, Text.find("\r\n" + To + "\r\n") + 2 - First);
}
} // namespace

TEST_CASE_FIXTURE(Session, "a file typed by hand is written in the one form, and that form reads back byte for byte")
{
    CHECK(Rewritten(Golden("session-typed.txt")) == Golden("session-written.txt"));
    CHECK(gFile.Calibr[2].SessID == "SESSION");
    CHECK(gFile.STD.UBound() == 1);
    gFile = {};
    CHECK(Rewritten(Golden("session-written.txt")) == Golden("session-written.txt"));
    REQUIRE(WriteDataFile(Path, gFile, SectionFilter::Any));
    CHECK(ReadWhole(Path) == Golden("session-written.txt"));
    CHECK(Dialogs.Told == Texts{LeftOut()});
}

TEST_CASE_FIXTURE(Session, "deviations are written only with their setting, samples not with the filter Non")
{
    REQUIRE(Read(Golden("session-typed.txt")));
    gExpSTD = 1;
    std::string All = Golden("session-written.txt");
    const auto Models = All.find("Models\r\n");
    const std::string STD = Tabbed("STD\r\nS01|A1|1|3|1.00000|1.00000|1.00000|\r\nEnd\r\n");
    All.insert(Models, STD);
    CHECK(DataFileText(gFile, SectionFilter::Any) == All);
    const auto Desc = All.find("Desc\r\n");
    CHECK(DataFileText(gFile, SectionFilter::Non) == All.erase(Desc, Models + STD.size() - Desc));

    gFile.Desc.Clear();
    REQUIRE(Read(Golden("session-typed.txt"), SectionFilter::Non));
    CHECK((gFile.Desc.UBound() == 0 && gFile.Data.UBound() == 0 && gFile.Calibr.UBound() == 2));
    CHECK(Part(Rewritten("Sess\n\nEnd\nDesc\nEnd\nCalc\nS01|A1|1|3|1|2|\nEnd\n"), "Desc", "Models") ==
          "Desc\r\nEnd\r\nData\r\nEnd\r\nSTD\r\nEnd\r\n");
    CHECK(Part(Rewritten(Tabbed("Desc\nS|0|1\nEnd\nCalc\nS|A|1|3|1|2|\nEnd\n")), "Data", "STD") ==
          Tabbed("Data\r\nS|A|1|3|1.00000|2.00000|\r\nEnd\r\n"));
}

TEST_CASE_FIXTURE(Session,
                  "old files keep their oar in Sess, and the oldest have no Main and name the session by channel")
{
    const std::string Oldest = Tabbed("Sess\nOLD|1/2/98|Place|Coach|M|1x|H|A|.88|2.9|.45|\nEnd\n"
                                      "Calibr\nanything|F1|1|3|\nEnd\nEOF\n");
    gFile.Crew.Resize(2);
    std::string Text = Rewritten(Oldest);
    CHECK(Text.starts_with(Tabbed("Sess\r\nOLD| 01/02/98|Place|Coach|M|1x|H|A|0.88|2.90|0.45|\r\nEnd\r\nCrew\r\n")));
    CHECK(Part(Text, "Calibr", "View1").starts_with(Tabbed("Calibr\r\nOLD|F1|1|3|0|")));
    CHECK((gFile.Crew.UBound() == 2 && gFile.Boat[2].OarLength == 2.9F));
    Path = Folder.Path("OTHER.txt");
    CHECK(Rewritten(Text) == Text);

    gFile.Boat[2].OarLength = 3;
    Text = Rewritten(Tabbed("Main\n1|0|0|\nEnd\n") + Oldest);
    CHECK(gFile.Boat[2].OarLength == 3);
    CHECK(Text.starts_with(Tabbed("Main\r\n01|01|00|")));
    CHECK(Text.find(Tabbed("|H|A|0.88|2.90|0.45|\r\n")) != std::string::npos);
    CHECK(gFile.Calibr[1].ParamID == "anything");
    CHECK(Rewritten(Text) == Text);
}

TEST_CASE_FIXTURE(Session, "a file read on top of another keeps what it does not name")
{
    REQUIRE(Read(Golden("session-typed.txt")));
    REQUIRE(Read(Tabbed("Main\n65|\nEnd\nSess\nNEW|no date|\nEnd\nView1\nEnd\n")));
    std::string Left = Golden("session-written.txt");
    const auto Replace = [&](const std::string& Old, const std::string& New) {
        REQUIRE(Left.find(Old) != std::string::npos);
        Left.replace(Left.find(Old), Old.size(), New);
    };
    Replace(Tabbed("61|02|03|"), Tabbed("65|02|00|"));
    Replace("REGATTA", "NEW");
    Replace(Part(Left, "View1", "View3"), "View1\r\nEnd\r\n");
    Replace(Part(Left, "Desc", "VidDots"), "Desc\r\nEnd\r\nData\r\nEnd\r\nModels\r\nEnd\r\n");
    CHECK(DataFileText(gFile, SectionFilter::Any) == Left);
}

TEST_CASE_FIXTURE(Session, "opening lists in one line what was kept from the session before, and nothing that was made")
{
    const auto Kept = [&](const std::string& Text) {
        REQUIRE(SaveWhole(Path, Tabbed(Text), Durability::Fast));
        std::string List = "none";
        REQUIRE(ReadDataFile(Path, gFile, SectionFilter::Any, &List));
        return List;
    };
    CHECK(Kept(Golden("session-typed.txt")).empty());
    CHECK(Kept("Main\n65|\nEnd\nSess\nNEW|no date|\nEnd\nView1\nEnd\n") ==
          "Crew (3 rows), Calibr (2 rows), View4 (1 row), Boat (1 row), STD (1 row), Models (1 row), VidDots (2 rows), "
          "VidSegs (1 row), VideoID (1 row)");
    CHECK(Kept("Calibr\nA1|1|\nEnd\nView3\nEnd\nView4\nEnd\nSTD\nEnd\nModels\nEnd\nVidDots\nEnd\nVidSegs\nEnd\n") ==
          "Main, Sess, Crew (3 rows), Boat (1 row), VideoID (1 row)");
    // A session of the oldest kind makes crew and boat anew.
    CHECK(Kept("Sess\nOLD|1/2/99|\nEnd\nVideoID\nEnd\n") == "Main, Calibr (1 row)");
}

TEST_CASE_FIXTURE(Session, "a file that rows are taken from leaves the open session's tables and key mode alone")
{
    gKeyModeSet = 2;
    REQUIRE(Read(Tabbed("Main\n61|||||4|\nEnd\n"))); // no mode of a file
    CHECK(gKeyMode == 2);
    REQUIRE(Read(
        Tabbed("Main\n61|||||1|\nEnd\nVidDots\nP1|Knee|1|\nEnd\nVidCoords\nS|P1|2|1|X|1|2|\nS|P1|2|1|Y|3|4\nEnd\n")));
    REQUIRE(gVidCoords.UBound() == 1);
    CHECK((gVidCoords[1].Values.at(1).X == 2 && gVidCoords[1].Values.at(1).Y == 4));
    REQUIRE(SaveWhole(Path, Tabbed("Main\n61|||||2|\nEnd\nCrew\n1|1|Anna|\nEnd\nVidDots\nEnd\n")));
    DataFile Other;
    REQUIRE(ReadDataFile(Path, Other, SectionFilter::Any));
    CHECK(Other.Crew[1].Name == "Anna");
    CHECK(gKeyMode == 1);
    CHECK(gDots.UBound() == 1);
}

TEST_CASE_FIXTURE(Session, "a file cut at any byte is read, and what was read of it is written and read back alike")
{
    const std::string Whole = Golden("session-written.txt");
    std::vector<std::size_t> Unlike;
    for (std::size_t Size = 6; Size < Whole.size(); ++Size) {
        gFile = {};
        REQUIRE(Read(Whole.substr(0, Size)));
        gFile.ChanCnt = static_cast<int16_t>(gFile.Calibr.UBound()); // a cut ahead of Calibr leaves what Main says
        const std::string Text = DataFileText(gFile, SectionFilter::Any);
        gFile = {};
        if (Rewritten(Text) != Text) Unlike.push_back(Size);
    }
    CHECK(Unlike == std::vector<std::size_t>{});
}

TEST_CASE_FIXTURE(Session, "a file that breaks off, and values that are left out, are reported with place and amount")
{
    const std::string Sample = "Desc\nS1|1|1|\nEnd\nData\nS1|A|1|0|1|2|\n";
    const std::pair<std::string, std::string> Cases[] = {
        {"Main\n61|\nEnd\nEOF\n", ""},
        {Sample + "End\nEOF\nanything\n", ""},
        {"Main\n61|\nEnd\nCrew\n1|1|Anna|\n2|0|Be", "ends in line 6, in the section Crew behind 2 rows, without"},
        {"Main\n61|\nEnd\nCrew\n", "ends in line 4, in the section Crew behind 0 rows, without"},
        {"Main\n61|\nEnd\nCrew\n1|1|Anna|\nEnd\n", "ends in line 6, without the line EOF. What"},
        {Sample + "S1|B|1|0|1|\nS2|A|1|0|1|2|\nEnd\nEOF\n", ": 2 lines of values left out"},
        {Sample + "S1|B|1|0|1|",
         "behind 2 rows, without the line EOF. What stood behind that is missing; the copy with "
         "the ending .bak may still have it, until the session is saved. 1 line of values"},
    };
    for (const auto& [Text, Words] : Cases) {
        CAPTURE(Text);
        Dialogs.Told.clear();
        REQUIRE(Read(Tabbed(Text)));
        CHECK(Dialogs.Told.size() == (Words.empty() ? 0 : 1));
        if (!Words.empty()) CHECK(Dialogs.Told.at(0).find(Words) != std::string::npos);
        DataFile Other;
        std::set<std::string> Found;
        REQUIRE(ReadOtherFile(Path, Other, Found));
        CHECK(Dialogs.Told.size() == (Words.empty() ? 0 : 2));
    }
    const std::string Before = DataFileText(gFile, SectionFilter::Any);
    gStrictReading = true;
    CHECK_FALSE(Read(Tabbed("Main\n65|\nEnd\n")));
    gStrictReading = false;
    CHECK(DataFileText(gFile, SectionFilter::Any) == Before);
}

TEST_CASE_FIXTURE(Session, "texts with tabs, ends of line and CR within them cannot shift the fields behind")
{
    REQUIRE(Read("Main\r\r\n6\r1\t\r\r\nEnd\r\r\nSess\nEnd\n"));
    CHECK(gFile.Model == 61);
    gFile.Crew.Grow().Name = "A\tB\r\nC";
    gFile.Crew[1].RowerID = "AB";
    CHECK(
        Part(DataFileText(gFile, SectionFilter::Any), "Crew", "Calibr").starts_with(Tabbed("Crew\r\n0|0|A B  C|AB|")));
}

TEST_CASE_FIXTURE(Session, "a file goes back in the encoding it came in, in UTF-8 when a character has no place there")
{
    REQUIRE(Read("Sess\nZ\xFCrich\t\nEnd\n"));
    CHECK(gFile.SessID == "Zürich");
    REQUIRE(WriteDataFile(Path, gFile, SectionFilter::Any));
    CHECK(ReadWhole(Path)->starts_with("Sess\r\nZ\xFCrich\t"));
    gFile.SessID = "Łódź";
    REQUIRE(WriteDataFile(Path, gFile, SectionFilter::Any));
    CHECK(ReadWhole(Path)->starts_with("Sess\r\nŁódź\t"));
}

TEST_CASE_FIXTURE(Session, "what cannot be read is reported and leaves the open file as it was")
{
    REQUIRE(Read(Golden("session-typed.txt")));
    const std::string Missing = Folder.Path("missing.txt");
    CHECK_FALSE(ReadDataFile(Missing, gFile, SectionFilter::Any));
    CHECK_FALSE(ReadDataFile(Folder.Path(""), gFile, SectionFilter::Any));
    CHECK_FALSE(Read(""));
    CHECK_FALSE(Read(std::string("\0\xFF\x80\n\x01\t\tMain", 11)));
    CHECK(DataFileText(gFile, SectionFilter::Any) == Golden("session-written.txt"));
    CHECK(gFile.Encoding == TextEncoding::Ascii);
    CHECK(Dialogs.Told ==
          Texts{LeftOut(), "Warning!: Can't open file: " + Missing, "Warning!: Can't open file: " + Folder.Path(""),
                "Warning!: This is no session data file: " + Path, "Warning!: This is no session data file: " + Path});
}

namespace {
// The memory ends at the first message.
struct NoMemory : ScriptedDialogs
{
    eAnswer MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons) override
    {
        if (Told.empty()) {
            Told.push_back(Text);
            throw std::bad_alloc();
        }
        return ScriptedDialogs::MsgBox(Text, Title, Buttons);
    }
};
} // namespace

TEST_CASE_FIXTURE(Session, "a reading that breaks off with an exception leaves all of the session before as it was")
{
    const auto Oldest = [](const char* Mode, const char* Oar) {
        return Tabbed("Main\n1|||||" + std::string(Mode) + "|\nEnd\nSess\nX|1/2/98|P|C|M|1x|H|A|.88|" + Oar +
                      "|.4|\nEnd\n");
    };
    REQUIRE(Read(Golden("session-typed.txt")));
    REQUIRE(Read(Oldest("1", "2.9")));
    SetCurFile(Path);
    const std::string Before = DataFileText(gFile, SectionFilter::Any);
    DataFile Other;
    Other.Model = 61;
    Other.Calibr.Grow().ProcMode = ApproxRefTable; // whose table is missing
    REQUIRE(SaveWhole(Folder.Path("OTHER.txt"), Tabbed("VidDots\nP7|Hip|1|\nEnd\n") + Oldest("3", "2.5") +
                                                    DataFileText(Other, SectionFilter::Any)));
    NoMemory Failing;
    gHost.Dialogs = &Failing;
    CHECK_FALSE(Guard("Opening", [&] { return OpenSession(Folder.Path("OTHER.txt")); }));
    gHost.Dialogs = &Dialogs;
    CHECK(DataFileText(gFile, SectionFilter::Any) == Before);
    CHECK((gKeyMode == 1 && gSessID == "SESSION" && gCurFile == Path && gOldOarLen == 2.9F && gRefCnt == 0));
    CHECK(OpenSession(Folder.Path("OTHER.txt")));
    CHECK((gSessID == "OTHER" && gCurFile == Folder.Path("OTHER.txt") && gOldOarLen == 2.5F && gRefCnt == 1));
}

TEST_CASE_FIXTURE(Session, "a save that fails is reported with its reason, and the backup is a copy beside the file")
{
    REQUIRE(Read(Golden("session-written.txt")));
    CHECK(BackupFile(Path));
    REQUIRE(SaveWhole(Path, "newer"));
    CHECK(ReadWhole(Folder.Path("SESSION.bak")) == Golden("session-written.txt"));
    CHECK(BackupFile(Folder.Path("missing.txt")));
    CHECK_FALSE(WriteDataFile("/dev/full", gFile, SectionFilter::Any));
    CHECK_FALSE(WriteDataFile(Folder.Path("no/such.txt"), gFile, SectionFilter::Any));
    std::filesystem::remove(Folder.Path("SESSION.bak"));
    std::filesystem::create_directory(Folder.Path("SESSION.bak"));
    CHECK_FALSE(BackupFile(Path));
    CHECK(Dialogs.Told ==
          Texts{"Warning!: Can't write file: /dev/full (No space left on device)",
                "Warning!: Can't write file: " + Folder.Path("no/such.txt") + " (No such file or directory)",
                "Warning!: Can't write the backup of file: " + Path + " (Is a directory)"});
    CHECK(ReadWhole(Path) == "newer");
}
