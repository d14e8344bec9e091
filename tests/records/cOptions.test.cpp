// The options without their window: what they show, what they find wrong, what they find and what they store.
#include "records/cOptions.h"

#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mNotice.h"
#include "files/mMain.h"
#include "files/mTextIO.h"
#include "support/Case.h"

#include <set>

namespace {
struct OptionState : FreshState
{
    OptionState()
    {
        gAppDir = Folder.Path("");
        gFile.Model = ModelMaster;
        gFile.SlaveChans = 8;
        for (int16_t Chan = 1; Chan <= 20; ++Chan) {
            CalibrRow& Row = gFile.Calibr.Grow();
            Row.Chan = Chan;
            Row.ParamID = Chan == 17 ? "A1" : "P";
            Row.Min = -80;
            Row.Max = 80;
            Row.Q1 = 0.01;
        }
        gFile.ChanCnt = 20;
        gFile.KeyChanID = "A1";
        gFile.SampleCnt = 3;
        SetCurFile(Folder.Path("s.txt"));
        REQUIRE(WriteDataFile(gCurFile, gFile, SectionFilter::Any));
    }
    static std::string Fault(const cOptions& Options, const char* Control)
    {
        return Options.Fault(Options.Find(Control));
    }
    static void Put(cOptions& Options, const char* Control, const char* Text)
    {
        REQUIRE(Options.Find(Control) >= 0);
        Options.Put(Options.Find(Control), Text);
    }
};
} // namespace

TEST_CASE_FIXTURE(OptionState, "what cannot be used is named as it is typed, and stored all the same")
{
    const struct
    {
        const char* Control;
        const char* Text;
        const char* Fault; // how it begins; empty: none
    } Rows[] = {
        {"txtSlavesNum", "8", ""},
        {"txtSlavesNum", "9", "88 channels"},
        {"txtSlavesNum", "-1", "Less than nothing"},
        {"txtSlavesNum", "2.5", "Taken as 2: a whole"},
        {"txtSlavesNum", "40000", "Cannot be stored: only -32768 to 32767"},
        {"txtPage1_4", "A1", ""},
        {"txtPage1_4", "a1", "No channel of the session"},
        {"txtPage1_5", "80", ""},
        {"txtPage1_5", "80.5", "Outside the channel's range, -80 to 80"},
        {"txtPage1_5", "x", "Not a number"},
        {"txtPage1_6", "-1", "The next recording"},
        {"txtCOMport", "/dev/null", ""},
        {"txtCOMport", "/dev/none", "There is no such device"},
        {"txtCOMport", "0", "Ports are numbered"},
        {"txtTCPaddress", "a b", "An address has no"},
        {"txtTCPport", "40000", "Cannot be stored"},
        {"txtLinkPort", "40000", ""},
        {"txtLinkPort", "70000", "Ports are numbered"},
        {"txtGeneral_2", "0", "No stroke lies"},
        {"txtGeneral_4", "/none/such.txt", "There is no such file"},
        {"txtProcRuns", "3", "Neither 1 nor 2"},
        {"obSplitPar", "2", "Only time"},
        {"txtVChan", "19", ""},
        {"txtVChan", "20", "Not below"},
        {"txtPieceNum", "10", "Lengths can be given"},
        {"txtCalibr_0", "85", "The logger's channels"},
        {"txtSeatChan", "21", "The session has 20"},
        {"txtRSFmode_0", "20", ""},
        {"txtRSFmode_0", "", "Empty"},
        {"txtRSFmode_0", "120", "The place is between"},
        {"txtRSFmode_1", "30", "No handle travels"},
        {"txtCFLow", "0", "Low is to be below"},
        {"txtFFHigh", "-80", "Low is to be below"},
        {"txtCFslope", "0.6s", "Taken as 0.6"},
        {"txtPictureRate", "0", "Taken as the nearest"},
    };
    for (const auto& Row : Rows) {
        CAPTURE(Row.Control);
        CAPTURE(Row.Text);
        cOptions Options;
        Put(Options, Row.Control, Row.Text);
        const std::string Found = Fault(Options, Row.Control);
        CHECK(Found.starts_with(Row.Fault));
        CHECK(Found.empty() == (Row.Fault[0] == '\0'));
    }
    cOptions Options;
    Put(Options, "txtProcRuns", "3");
    Put(Options, "txtCFLow", "7x");
    Put(Options, "txtPage1_4", "none");
    REQUIRE(Options.SaveMain());
    CHECK((gProcRuns == 3 && gCFLow == 7 && gKeyChan == -1));
    CHECK(Settings.GetSetting("General", "gProcRuns") == "3");
    CHECK(Fault(Options, "txtProcRuns") == "Neither 1 nor 2: no sample is stored.");
    gFile.STD.Grow();
    CHECK(Fault(Options, "chkExpSTD").starts_with("The session has deviations"));
}

TEST_CASE_FIXTURE(OptionState, "storing without a change changes nothing, to the last digit, however often")
{
    gFile.KeyThres = 0.0125F;
    gFile.KeyMode = KeyMaximum;
    gKeyMode = KeyMaximum;
    StdFilter = 1.23456789;
    VQ1 = 0.123456789012;
    gRSFval0 = 0.123456;
    gIsTargVals = -1;
    gCalibrSens[3] = {true, "N", 5, 1.234567890123, 2, 9};
    for (const char* Key : {"StdFilter", "VQ1", "gRSFval0", "gIsTargVals"})
        SaveSetting(Key);
    REQUIRE(WriteDataFile(gCurFile, gFile, SectionFilter::Any));
    const auto Session = ReadWhole(gCurFile);
    const auto Saves = [this] {
        REQUIRE(cOptions().SaveMain());
        return std::pair(ReadWhole(gCurFile), ReadWhole(IniPath()));
    };
    const auto First = Saves();
    CHECK(First.first == Session);
    CHECK(Saves() == First);
    CHECK((gFile.KeyThres == 0.0125F && StdFilter == 1.23456789 && VQ1 == 0.123456789012 && gRSFval0 == 0.123456));
    CHECK((gIsTargVals == -1 && gAutoCalCh == 5 && gAutoCalQ0 == 1.234567890123));
    CHECK(!std::filesystem::exists(Folder.Path("s.bak")));
}

TEST_CASE_FIXTURE(OptionState, "what another program has stored is shown, and taken when it is stored, not before")
{
    gIsTargVals = 1; // in use, and not stored
    Settings.SaveSetting("General", "gProcRuns", "2");
    Settings.SaveSetting("General", "gTCPport", "many");
    cOptions Options;
    CHECK(Options.Text(Options.Find("txtProcRuns")) == "2");
    CHECK(Options.Text(Options.Find("txtTCPport")) == "6000");
    CHECK_FALSE(Options.IsOn("chIsTargVals"));
    CHECK((gProcRuns == 1 && gIsTargVals == 1));
    REQUIRE(Options.SaveMain());
    CHECK((gProcRuns == 2 && gIsTargVals == 0));
}

TEST_CASE_FIXTURE(OptionState, "what is stored is in memory, in the store, in the ini file and in the session")
{
    int Heard = 0;
    const cListener Listener([&](eNotice What) { Heard += What == eNotice::OptionsSaved ? 1 : 0; });
    cOptions Options;
    Put(Options, "txtRSFmode_0", "20");
    Put(Options, "opMode", "2");
    Put(Options, "opKeyMode", "3");
    Put(Options, "txtCalibr_0", "4");
    Put(Options, "txtCalibr_2", "7");
    Put(Options, "txtCalCh_1", "12");
    Put(Options, "txtQ1_1", "0.5");
    Put(Options, "obIsActive_0", "1");
    Put(Options, "obIsActive_1", "1"); // one of them at a time
    CHECK_FALSE(Options.IsOn("obIsActive_0"));
    REQUIRE(Options.SaveMain());
    CHECK(Heard == 1);
    CHECK(Settings.GetSetting("Models", "gRSFval0") == "0.2");
    CHECK(gFile.Model == ModelSlave8);
    CHECK((gAutoCalCh == 12 && gAutoCalQ1 == 0.5)); // the active row has overridden the boxes
    CHECK(Options.Text(Options.Find("txtCalibr_0")) == "12");
    CHECK(gKeyQ1 == 0.01);
    REQUIRE(LoadCurrentFile()); // the session's key mode comes back with it
    CHECK((gFile.Model == ModelSlave8 && gKeyMode == KeyMaximum && gKeyModeSet == KeyMaximum));
    // What does not fit its field is reported, and nothing of it all is stored.
    Put(Options, "opMode", "1");
    Put(Options, "txtChToCal_2", "99999");
    CHECK_FALSE(Options.SaveMain());
    CHECK(Dialogs.Told.back().find("\"Channels to calibrate\" of \"Calibration Sensors\"") != std::string::npos);
    CHECK(gFile.Model == ModelSlave8);
}

TEST_CASE_FIXTURE(OptionState, "a setting is found by words of its label, its help, its key and its group")
{
    const cOptions Options;
    const auto Finds = [&](const char* Words, const char* Control) {
        const auto Found = Options.Search(Words);
        return std::find(Found.begin(), Found.end(), Options.Find(Control)) != Found.end();
    };
    CHECK(Finds("threshold val", "txtPage1_5"));
    CHECK(Finds("GREEN zone high", "txtCFHigh"));
    CHECK(Finds("gVChan", "txtVChan"));
    CHECK(Finds("Peak", "opKeyMode"));
    CHECK(Finds("Русский", "opLang"));
    CHECK(Finds("links background", "lbColorInp_0") == false);
    CHECK(Options.Search(" ").empty());
    CHECK(Options.Search("xyzzy").empty());
    std::set<std::string> Names;
    for (int i = 0; i < Options.Count(); ++i) {
        CHECK(Names.insert(Options.Item(i).Control).second);
        CHECK((Options.Item(i).Key.empty() || FindSetting(Options.Item(i).Key)));
    }
}
