// New sessions: their names, the forms of session and athlete, and what a failure leaves alone.
#include "records/mSession.h"

#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mNotice.h"
#include "files/mTextIO.h"
#include "processing/mRefTable.h"
#include "records/mAthlete.h"
#include "records/mSessName.h"
#include "records/mTemplates.h"
#include "support/Case.h"
#include "support/FullDisk.h"
#include "support/TestClock.h"

#include <algorithm>

namespace {
const std::string Demo = SOURCE_FOLDER "/demo/";
const std::string Shipped = SOURCE_FOLDER "/templates";

// 17 May 2024, with the demonstration single as the open session and a sample in it.
struct SessionState : FreshState
{
    TestClock Clock;
    int Replaced = 0;
    cListener Listener{[this](eNotice What) { Replaced += What == eNotice::SessionReplaced ? 1 : 0; }};

    SessionState()
    {
        gHost.Clock = &Clock;
        gAppDir = Folder.Path("");
        gBaseFolder = Folder.Path("data");
        std::filesystem::copy_file(Demo + "single.txt", Folder.Path("single.txt"));
        SetCurFile(Folder.Path("single.txt"));
        REQUIRE(ReadDataFile(gCurFile, gFile, SectionFilter::Any));
        DescRow& Sample = gFile.Desc.Grow();
        Sample.SampleID = "1";
        Sample.DataCount = 1;
        gFile.Data.Grow() = {"single", "1", "A1", 1, 3, {1, 2}};
        gFile.SampleCnt = 5;
    }
    DataFile Saved(const std::string& Path)
    {
        DataFile File;
        CHECK(ReadDataFile(Path, File, SectionFilter::Any));
        return File;
    }
    std::string Text(const std::string& Name) { return ReadWhole(Folder.Path(Name)).value_or("(none)"); }
};

SessionForm Typed(eSessionMode Mode)
{
    SessionForm Form = LoadSession(Mode);
    Form.SessNum = "7";
    Form.Sex = "W";
    Form.Category = "L";
    Form.BoatType = "2x";
    return Form;
}

std::vector<std::string> Names(const std::vector<FormFault>& Faults)
{
    std::vector<std::string> Controls;
    for (const FormFault& Each : Faults)
        Controls.push_back(Each.Control);
    return Controls;
}

const SessionTemplate& Named(const TemplateList& List, const std::string& Name)
{
    const auto Found =
        std::find_if(List.Templates.begin(), List.Templates.end(), [&](const auto& Each) { return Each.Name == Name; });
    REQUIRE(Found != List.Templates.end());
    return *Found;
}

// What a list of arguments names and the session lacks.
std::string Missing(const DataFile& File, const std::string& Arguments)
{
    std::string Lacks;
    for (std::size_t From = 0; From < Arguments.size();) {
        const std::size_t Comma = std::min(Arguments.find(',', From), Arguments.size());
        const std::string Name = Arguments.substr(From, Comma - From);
        if (Name != "None" && FindChan(File.Calibr, Name) < 1) Lacks += Name + " ";
        From = Comma + 1;
    }
    return Lacks;
}
} // namespace

TEST_CASE_FIXTURE(SessionState, "identifier and path follow what is typed, and what cannot be stored is named")
{
    struct Row
    {
        const char* Date;
        const char* Number;
        const char* Title;
        Texts Faults;
    };
    const Row Table[] = {
        {"17/05/2024", "1", "2024_05_17_1_WL2x", {}},
        {"3.5.24", " 2 ", "2024_05_03_2_WL2x", {}},
        {"29/02/2024", "", "2024_02_29__WL2x", {}},
        {"17/05/2024", "Größe Дон", "2024_05_17_Größe Дон_WL2x", {}},
        {"29/02/2023", "1", "_1_WL2x", {"txtDate"}},
        {"", "1", "_1_WL2x", {"txtDate"}},
        {"17/05/1924", "1", "1924_05_17_1_WL2x", {"txtDate"}},
        {"17/05/2030", "1", "2030_05_17_1_WL2x", {"txtDate"}},
        {"17/05/2024", "1/2", "2024_05_17_1/2_WL2x", {"txtSessNum"}},
        {"17/05/2024", "a:b", "2024_05_17_a:b_WL2x", {"txtSessNum"}},
        {"tomorrow", "a\\b", "_a\\b_WL2x", {"txtDate", "txtSessNum"}},
    };
    for (const Row& Each : Table) {
        CAPTURE(Each.Title);
        SessionForm Form = Typed(SessionNew);
        Form.Date = Each.Date;
        Form.SessNum = Each.Number;
        CHECK(FormTitle(Form, gFile) == Each.Title);
        CHECK(FormPath(Form, SessionNew) == Folder.Path("data/") + Each.Title + "/" + Each.Title + ".txt");
        CHECK(Names(CheckSession(Form, SessionNew)) == Each.Faults);
    }
    SessionForm Form = Typed(SessionNew);
    CHECK(SessionPlan(Form, SessionNew).ends_with("as it was saved last."));
    gFile.AgeGroup = Form.AgeGroup = "";
    CHECK(SessionPlan(Form, SessionNew).ends_with("by what is not chosen: age group."));
    Form.SessNum = std::string(300, '9');
    Form.Pars[0] = "warm";
    Form.Pars[5] = "14,5";
    Form.Folder = Folder.Path("single.txt/in a file");
    CHECK(Names(CheckSession(Form, SessionNew)) == Texts{"txtSessNum", "txtPars_0", "DirLtxt"});
    CHECK(!ApplySession(Form, SessionNew, nullptr, nullptr));
    CHECK(Dialogs.Told == Texts{"Warning!: The session cannot be stored: the file name would be too long."});
    CHECK(Replaced == 0);
}

TEST_CASE_FIXTURE(SessionState, "the session's own fields are changed, unchanged numbers keep what does not show")
{
    gFile.TestDist = 500.5F;
    gFile.Sex = "F";
    SessionForm Form = LoadSession(SessionChange);
    CHECK(Form.Date == "17/05/2024");
    CHECK(Form.Pars[2] == "500");
    Form.Place = "  North Lake ";
    Form.Pars[5] = "15,25";
    Form.Sex = ""; // the letter of no button
    REQUIRE(ApplySession(Form, SessionChange, nullptr, nullptr));
    CHECK(gFile.SessID == "2024_05_17_1_FH1x");
    const DataFile File = Saved(Folder.Path("single.txt"));
    CHECK(FormatDate(File.SessDate) == "17/05/24");
    CHECK(File.Place == "North Lake");
    CHECK(File.TestDist == 500.5F);
    CHECK(File.BoatMass == 15.25F);
    CHECK(File.Sex == "F");
    CHECK(File.Desc.UBound() == 1);
    CHECK(File.Data.UBound() == 1);
    CHECK(Text("single.bak").find("Long Lake") != std::string::npos);
    CHECK(Replaced == 0);
}

TEST_CASE_FIXTURE(SessionState, "the set-up is saved as a new session without samples, with its reference tables")
{
    gFile.Calibr[3].ProcMode = ApproxRefTable;
    gFile.Calibr[3].SensorID = "T-1";
    RefTable Line;
    Line.Cnt = 1;
    Line.X = {0, 16384};
    Line.Y = {0, 100};
    REQUIRE(WriteRefTable(Folder.Path("T-1.ref"), Line));
    LoadRefTables();
    gFile.STD = gFile.Data;
    const SessionForm Form = Typed(SessionSaveAs);
    REQUIRE(ApplySession(Form, SessionSaveAs, nullptr, nullptr));
    const std::string Path = Folder.Path("data/2024_05_17_7_WL2x/2024_05_17_7_WL2x.txt");
    CHECK(gCurFile == Path);
    CHECK(gBaseFolder == Folder.Path("data"));
    CHECK(gFile.SampleCnt == 0);
    CHECK(gFile.Desc.UBound() + gFile.Data.UBound() + gFile.STD.UBound() == 0);
    CHECK(gFile.Calibr[17].SessID == "2024_05_17_7_WL2x");
    CHECK(RefLookup(1, 8192) == doctest::Approx(50));
    CHECK(Replaced == 1);
    CHECK(DataFileText(Saved(Path), SectionFilter::Any) == DataFileText(gFile, SectionFilter::Any));
    CHECK(Saved(Folder.Path("single.txt")).SessID == "single");

    Dialogs.AnswerYes = false;
    CHECK(!ApplySession(Form, SessionSaveAs, nullptr, nullptr));
    CHECK(Dialogs.Told == Texts{"Warning!: The current session already exists! Do you want to rewrite data?"});
    Dialogs.AnswerYes = true;
    CHECK(!ApplySession(Form, SessionSaveAs, nullptr, [] { return false; }));
    CHECK(Replaced == 1);
}

TEST_CASE_FIXTURE(SessionState, "a session that cannot be written leaves the open one, its file and no empty folder")
{
    const TemplateList List = FindTemplates({Shipped});
    gVideoID.Grow();
    const std::string Before = DataFileText(gFile, SectionFilter::Any);
    for (const eSessionMode Mode : {SessionNew, SessionSaveAs, SessionChange}) {
        CAPTURE(Mode);
        const FullDisk Disk(100);
        CHECK(!ApplySession(Typed(Mode), Mode, &Named(List, "Double scull"), nullptr));
        CHECK(DataFileText(gFile, SectionFilter::Any) == Before);
        CHECK(gCurFile == Folder.Path("single.txt"));
    }
    CHECK(Dialogs.Told.size() == 3);
    CHECK(!std::filesystem::exists(Folder.Path("data")));
    CHECK(Text("single.txt") == ReadWhole(Demo + "single.txt"));
    CHECK(Replaced == 0);
}

TEST_CASE_FIXTURE(SessionState, "a new session is blank, or has the template's set-up at the rate that is set")
{
    gDataFreq = 50;
    gVideoID.Grow();
    const TemplateList List = FindTemplates({Shipped});
    SessionForm Form = Typed(SessionNew);
    REQUIRE(ApplySession(Form, SessionNew, nullptr, nullptr));
    CHECK(gFile.Calibr.UBound() + gFile.Crew.UBound() + gFile.ChanCnt + gVideoID.UBound() == 0);
    CHECK(gFile.View1.UBound() == 10);
    CHECK(gFile.Place.empty());

    const SessionTemplate& Double = Named(List, "Double scull");
    Form.SessNum = "8";
    ProposeTemplate(Form, nullptr, &Named(List, "Eight"));
    CHECK((Form.BoatType == "8+" && Form.Pars[5] == "151"));
    ProposeTemplate(Form, &Named(List, "Eight"), &Double);
    REQUIRE(ApplySession(Form, SessionNew, &Double, nullptr));
    CHECK(gFileTitle == "2024_05_17_8_WL2x");
    CHECK(gFile.Calibr.UBound() == 32);
    CHECK(gFile.Crew.UBound() == 2);
    CHECK(gFile.BoatMass == 27);
    CHECK(gFile.TimeStep == 0.02);
    CHECK(gKeyChan == 17);
    CHECK(gH1Chan == 19);
    CHECK(DataFileText(Saved(gCurFile), SectionFilter::Any) == DataFileText(gFile, SectionFilter::Any));
}

TEST_CASE_FIXTURE(FreshState, "each template that comes with the program is a whole session of its kind")
{
    struct Row
    {
        const char* Name;
        const char* BoatType;
        int Channels;
        int Rowers;
        int Oars;
    };
    const Row Table[] = {{"Ergometer", "1x", 24, 1, 1},    {"Single scull", "1x", 24, 1, 2},
                         {"Double scull", "2x", 32, 2, 4}, {"Pair", "2-", 32, 2, 2},
                         {"Four", "4-", 48, 4, 4},         {"Quadruple scull", "4x", 48, 4, 8},
                         {"Eight", "8+", 80, 8, 8}};
    const TemplateList List = FindTemplates({Shipped, Folder.Path("none there")});
    CHECK(List.Unreadable.empty());
    REQUIRE(List.Templates.size() == std::size(Table));
    for (std::size_t i = 0; i < std::size(Table); ++i) {
        const SessionTemplate& Each = List.Templates[i];
        const DataFile& File = Each.Setup;
        CAPTURE(Each.Name);
        CHECK(Each.Name == Table[i].Name);
        CHECK(File.BoatType == Table[i].BoatType);
        CHECK(File.Calibr.UBound() == Table[i].Channels);
        CHECK((File.ChanCnt == Table[i].Channels && 16 + File.SlaveCnt * File.SlaveChans == Table[i].Channels));
        CHECK(File.Crew.UBound() == Table[i].Rowers);
        CHECK(File.Boat.UBound() == Table[i].Oars);
        CHECK(FindChan(File.Calibr, File.KeyChanID) == 17);
        for (const CalibrRow& Chan : File.Calibr)
            CHECK((FindChan(File.Calibr, Chan.ParamID) == Chan.Chan && Chan.ParamID.size() <= 8));
        for (const RowArray<ViewRow>* View : {&File.View1, &File.View3, &File.View4}) {
            CHECK(View->UBound() >= 5);
            for (const ViewRow& Curve : *View) {
                CHECK_MESSAGE(Missing(File, Curve.Arguments).empty(), Curve.ID);
                CHECK((Curve.ID.size() <= 8 && Curve.Seat <= Table[i].Rowers));
            }
        }
        // As the program itself would write it.
        CHECK(ReadWhole(Each.Path) == DataFileText(File, SectionFilter::Non));
    }
}

TEST_CASE_FIXTURE(FreshState, "a user's own templates join the others or take their place, other files are named")
{
    gSessID = "open";
    std::filesystem::copy_file(Demo + "eight.txt", Folder.Path("Our eight.txt"));
    std::filesystem::copy_file(Demo + "single.txt", Folder.Path("Pair.txt"));
    REQUIRE(SaveWhole(Folder.Path("letter.txt"), "Dear crew"));
    REQUIRE(SaveWhole(Folder.Path("Our eight.bak"), "old"));
    const TemplateList List = FindTemplates({Shipped, Folder.Path("")});
    CHECK(List.Templates.size() == 8);
    CHECK(Named(List, "Our eight").Setup.Crew.UBound() == 8);
    CHECK(Named(List, "Pair").Setup.Calibr.UBound() == 24);
    CHECK(List.Unreadable == Texts{Folder.Path("letter.txt")});
    CHECK(gSessID == "open");
    CHECK(Dialogs.Told.empty());
}

TEST_CASE_FIXTURE(SessionState, "the open session is kept as a template, without rowers and samples, with its tables")
{
    gFile.Calibr[3].ProcMode = ApproxRefTable;
    gFile.Calibr[3].SensorID = "T-1";
    REQUIRE(
        SaveWhole(Folder.Path("T-1.ref"), "Reference Table\r\n01\tT-1\t\r\n\r\n0\t0\t0\t0\r\n1\t1\t16384\t100\r\n"));
    CHECK(!KeepTemplate(Folder.Path("own"), "a/b"));
    REQUIRE(KeepTemplate(Folder.Path("own"), "Ours"));
    const TemplateList List = FindTemplates({Folder.Path("own")});
    REQUIRE(List.Templates.size() == 1);
    const DataFile& Setup = List.Templates[0].Setup;
    CHECK((Setup.Crew[1].Seat == 1 && Setup.Crew[1].Name.empty() && Setup.Place.empty()));
    REQUIRE(ApplySession(Typed(SessionNew), SessionNew, &List.Templates[0], nullptr));
    CHECK(RefLookup(1, 8192) == doctest::Approx(50));
    CHECK(gFile.Boat.UBound() == 2);
    Dialogs.AnswerYes = false;
    CHECK(!KeepTemplate(Folder.Path("own"), "Ours"));
    CHECK(Dialogs.Told == Texts{"Warning!: The template cannot be kept: a file name cannot hold /.",
                                "Warning!: There is a template Ours already. Replace it?"});
}

TEST_CASE_FIXTURE(SessionState, "an athlete's session is named by date, counter and rower, and counted when it is made")
{
    Settings.SaveSetting("FileNames", "gSessCnt", "41");
    gFile.Crew[1].Height = 1.888F;
    AthleteForm Form = LoadAthlete();
    CHECK(Form.Text[AthleteDate] == "17/05/24");
    CHECK(Form.Text[AthleteCount] == "41");
    CHECK(Form.Text[AthleteHeight] == "188.8");
    CHECK(Form.Text[AthleteWeight] == "88.0");
    CHECK(Form.Text[AthleteBirth] == "03/04/98");
    Form.Text[AthleteRowerID] = "R/2";
    Form.Text[AthleteStart] = "soon";
    Form.Text[AthleteCount] = "1.5";
    CHECK(Names(CheckAthlete(Form)) == Texts{"Text1_1", "Text1_3", "Text1_6"});
    CHECK(!CreateDataFile(Form, nullptr));

    Form = LoadAthlete();
    Form.Text[AthleteRowerID] = "R2";
    Form.Text[AthleteWeight] = "71,5";
    Form.Gender = "F";
    Form.WeightGroup = "";
    Form.Folder = Folder.Path("club");
    const FullDisk* Disk = new FullDisk(100);
    CHECK(!CreateDataFile(Form, nullptr));
    delete Disk;
    CHECK((gFileTitle == "single" && gFile.Crew[1].RowerID == "R01"));
    CHECK(Settings.GetSetting("FileNames", "gSessCnt") == "41");
    REQUIRE(CreateDataFile(Form, nullptr));
    CHECK(gCurFile == Folder.Path("club/2024_05_17_41_R2.txt"));
    const DataFile File = Saved(gCurFile);
    CHECK(File.SessID == "2024_05_17_41_R2");
    CHECK(File.Crew[1].Height == 1.89F); // the file has two decimals
    CHECK(gFile.Crew[1].Height == 1.888F);
    CHECK((File.Crew[1].Weight == 71.5F && File.Crew[1].Sex == "F" && File.Crew[1].WeightGroup == "H"));
    CHECK(gFile.Desc.UBound() == 0);
    CHECK(Settings.GetSetting("FileNames", "gSessCnt") == "42");

    Form.Text[AthleteHeight] = "1.75";
    REQUIRE(CreateDataFile(Form, nullptr)); // the same counter: asks
    CHECK(Dialogs.Told.back() == "Warning!: The current session already exists! Do you want to rewrite data?");
    CHECK(gFile.Crew[1].Height == 1.75F);
}
