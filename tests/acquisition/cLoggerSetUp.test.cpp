// The set-up's exchanges: what each command sends, when waits end, what is kept, and what becomes of a lost link.
#include "acquisition/cLoggerSetUp.h"

#include "acquisition/mComFast.h"
#include "acquisition/mSampling.h"
#include "acquisition/mSlaveSetUp.h"
#include "files/mTextIO.h"
#include "support/Case.h"
#include "support/ScriptedLink.h"

#include <algorithm>
#include <functional>

namespace {
// An open set-up over a link of either kind, with a logger that the case plays.
struct Bench : LinkState
{
    std::map<std::string, std::string> Answers = {{"#SETUP", "#SETUP: OK\r"}, {"#MODE?", "#MODE: 2,40,0\r"}};
    std::optional<cLoggerSetUp> SetUp;
    Texts Sent;

    void Open(int16_t Connection = ConnectionSerial)
    {
        gConnection = Connection;
        gFile.Model = 61;
        Port.Plugged = {"/dev/ttyUSB0"};
        SetUp.emplace();
        SetUp->ReadMaster();
        if (Connection == ConnectionTCP) Socket.Answer();
        Run();
    }

    // Lets time pass until the exchanges are over, and answers what is sent meanwhile.
    void Run(int Longest = 60000)
    {
        for (int Time = 0; Time < Longest && SetUp->Talk().IsBusy(); Time += 10) {
            Clock.Wait(10);
            Hear();
        }
        Hear();
    }

    void Hear()
    {
        std::string& Line = gConnection == ConnectionTCP ? Socket.Sent : Port.Sent;
        for (std::size_t End = Line.find('\r'); End != std::string::npos; End = Line.find('\r')) {
            Sent.push_back(Line.substr(0, End));
            Line.erase(0, End + 1);
            const auto Found = Answers.find(Sent.back());
            if (Found == Answers.end()) continue;
            gConnection == ConnectionTCP ? Socket.Feed(Found->second) : Port.Feed(Found->second);
        }
    }

    Texts SentBy(const std::function<void()>& Action)
    {
        Run();
        Sent.clear();
        Action();
        Run();
        return Sent;
    }
};
} // namespace

TEST_CASE_FIXTURE(Bench, "the set-up begins with one #SETUP, reads all settings, and ends with #RUN")
{
    for (const int16_t Connection : {ConnectionSerial, ConnectionTCP}) {
        Sent.clear();
        Open(Connection);
        CHECK(std::count(Sent.begin(), Sent.end(), "#SETUP") == 1);
        CHECK(Sent.front() == "#SETUP");
        CHECK(Sent.size() == 1 + QueriesToAsk().size());
        CHECK(SetUp->Has(SettingFreq) == 0);
        CHECK(SetUp->HasText(SettingFreq) == "25 Hz");
        CHECK(SetUp->HasText(SettingBaud) == "");
        // However long nothing is sent: the logger is silent on purpose.
        Clock.Wait(20000);
        CHECK(SecondSocket.State() == eSocketState::Closed);
        CHECK(SentBy([&] { SetUp->Read(SetUp->Wireless()); }) == Texts{"#WLDEVCFG?"});
        CHECK(SentBy([&] { SetUp->SetClock(); }) == Texts{"#UTC=2024/05/17-09:30:00", "#UTC?"});
        CHECK(SentBy([&] { SetUp->ZeroAcc(); }) ==
              Texts{"#ACCLCFG=0,4000,0,4000,0,4000", "#GYROCFG=8100,1,8100,1,8100,1", "#GYROCFG?"});
        const Texts Reset = SentBy([&] { SetUp->Reset(); });
        CHECK((Reset[0] == "#RST" && Reset[1] == "#SETUP" && Reset[2] == "#MODE?"));
        Sent.clear();
        SetUp->Run();
        Hear();
        CHECK(Sent == Texts{"#BLCON", "#RUN"});
        SetUp.reset();
        CHECK(gLinkWatch.State() == cLinkWatch::eState::Open);
        Clock.Wait(200);
        CHECK(gLinkWatch.State() == cLinkWatch::eState::Closed);
    }
}

TEST_CASE_FIXTURE(Bench, "each setting is sent when it differs from the stored one or the logger's, stored, and read")
{
    const std::tuple<eLoggerSetting, int, const char*, Texts, double> Cases[] = {
        {SettingFreq, 0, "#MODE: 2,40,0\r", {"#MODE?"}, 25},
        {SettingFreq, 1, "#MODE: 2, 20 ,0\r", {"#MODE=2,20,0", "#MODE?"}, 50},
        {SettingFreq, 1, "#MODE: 2,40,0\r", {"#MODE?"}, 50},
        {SettingFreq, 1, "#MODE: 2,20,0\r", {"#MODE=2,20,0", "#MODE?"}, 50}, // the logger had 25
        {SettingFreq, 2, "#MODE: 2,10,0\r", {"#MODE=2,10,0", "#MODE?"}, 100},
        {SettingBaud, 1, "#PORTCFG: 0,3\r", {"#PORTCFG=0,3", "#PORTCFG?"}, 115200},
        {SettingBaud, 2, "#PORTCFG: 1,3\r", {"#PORTCFG=1,3", "#PORTCFG?"}, 256000},
        {SettingBaud, 2, "#PORTCFG: 1,3\r", {"#PORTCFG=1,3", "#PORTCFG?"}, 256000}, // compared with 230400
        {SettingBaud, 0, "#PORTCFG: 4,3\r", {"#PORTCFG=4,3", "#PORTCFG?"}, 57600},
        {SettingGPS, 0, "#GPSCFG: 2,0,1\r", {"#GPSCFG?"}, 1},
        {SettingGPS, 1, "#GPSCFG: 0,0,0\r", {"#GPSCFG=0,0,0", "#GPSCFG?"}, 0},
        {SettingBT, 1, "#WLCFG: 1,FF,0\r", {"#WLCFG=1,FF,0", "#WLCFG?"}, 1},
        {SettingBT, 1, "#WLCFG: 1,FF,0\r", {"#WLCFG=1,FF,0", "#WLCFG?"}, 1}, // always sent
        {SettingBLE, 2, "#BLCFG: 2,FF,15\r", {"#BLCFG=2,FF,15", "#BLCFG?"}, 2},
    };
    gQVN_RTS = 3;
    Answers.erase("#MODE?");
    Open();
    for (const auto& [Which, Choice, Reply, Expected, Stored] : Cases) {
        CAPTURE(SettingOf(Which).Key);
        CAPTURE(Choice);
        Answers["#" + std::string(SettingOf(Which).Key) + "?"] = Reply;
        const auto Work = [&, Setting = Which, Value = Choice] { SetUp->Apply(Setting, Value); };
        CHECK(SentBy(Work) == Expected);
        const Setting& Item = *FindSetting(SettingOf(Which).Store);
        CHECK(Val(Settings.GetSetting(Item.Section, Item.Key).value_or("")) == Stored);
        if (Which == SettingBaud) CHECK(Port.Settings == FormatNum(Stored, "0") + ",n,8,1");
    }
    CHECK(SetUp->IsUnsaved());
    Answers["#SAVE"] = "#SAVE: OK\r";
    CHECK(SentBy([&] { SetUp->Save(); }) == Texts{"#SAVE"});
    CHECK(!SetUp->IsUnsaved());
}

TEST_CASE_FIXTURE(Bench, "devices are found, registered, moved, switched and taken out of the table")
{
    Answers["#WLDEVCFG?"] = "#WLDEVCFG: 0,1,00B9,048D,0013\r#WLDEVCFG: 1,0,00F3,048D,0013\r#WLDEVCFG: 2,1,0,0,0\r";
    Answers["#WLDEVFND=10"] = "#WLDEVFND: 00B9,048D,0013\r#WLDEVFND: 00C4,048D,0013\r#WLDEVFND: 00C4,048D,0013\r";
    Answers["#BLSCAN=1"] = "#BLSCAN: C4BE-EmPower 1\r#BLSCAN: D0A3-HRM\r#BLSCAN: C4BE-EmPower 1\r#BLSCAN: F221-EmPow\r";
    Answers["#BLDEVCFG?"] = "#BLDEVCFG: NONE\r";
    Open();
    cDeviceTable& BT = SetUp->Wireless();
    REQUIRE(BT.Registered() == std::vector<LoggerDevice>{{"00B9,048D,0013", true}, {"00F3,048D,0013", false}});
    CHECK(BT.Differences() == 0);
    const int64_t Before = Clock.Milliseconds();
    CHECK(SentBy([&] { SetUp->Find(BT); }) == Texts{"#WLDEVFND=10"});
    CHECK(Clock.Milliseconds() - Before >= 13000);
    CHECK(BT.Found() == Texts{"00B9,048D,0013", "00C4,048D,0013"});
    CHECK(!BT.Select(0)); // registered already
    CHECK(BT.Select(1));
    CHECK(BT.Move(2, -1));
    CHECK(!BT.Move(0, -1));
    BT.SetOn(2, true);
    CHECK(BT.Differences() == 2);
    CHECK(SentBy([&] { SetUp->Register(BT); }) == Texts{"#WLDEVCFG=0,1,00B9,048D,0013", "#WLDEVCFG=1,1,00C4,048D,0013",
                                                        "#WLDEVCFG=2,1,00F3,048D,0013", "#WLDEVCFG?"});
    BT.Delete(0);
    CHECK(BT.Commands() == Texts{"#WLDEVCFG=0,0,00F3,048D,0013"});
    cDeviceTable& BLE = SetUp->Sensors();
    CHECK((BLE.IsRead() && BLE.Registered().empty()));
    SentBy([&] { SetUp->Find(BLE); });
    CHECK(BLE.Found() == Texts{"C4BE"});
}

TEST_CASE_FIXTURE(Bench, "a logger that does not answer is given up, and asked to run all the same")
{
    Answers.clear();
    Open();
    CHECK(Sent == Texts{"#SETUP", "#MODE?", "#PORTCFG?"});
    CHECK(SetUp->HasTrouble());
    CHECK(SetUp->State().find("does not answer") != std::string::npos);
    CHECK(SetUp->State().find("57600 baud") != std::string::npos);
    SetUp.reset();
    Hear();
    CHECK(Sent.back() == "#RUN");
}

TEST_CASE_FIXTURE(Bench,
                  "a wait can be cancelled, late answers are kept, and behind a lost link #SETUP goes first again")
{
    Open();
    Sent.clear();
    SetUp->Find(SetUp->Wireless());
    SetUp->Read(SetUp->Wireless());
    Clock.Wait(500);
    CHECK(SetUp->Talk().Percent() > 0);
    SetUp->Talk().Cancel();
    CHECK(!SetUp->Talk().IsBusy());
    CHECK(SetUp->Talk().Log().back().Failure == "cancelled");
    Port.Feed("#WLDEVFND: 00B9,048D,0013\r");
    Clock.Wait(200);
    SetUp->ReadResponse();
    CHECK(SetUp->Response() == "#WLDEVFND: 00B9,048D,0013\n");
    Hear();
    CHECK(Sent == Texts{"#WLDEVFND=10"});

    SetUp->Send("#SN?");
    Clock.Wait(100);
    Port.Pull();
    Clock.Wait(100);
    CHECK(SetUp->Talk().Log().back().Failure.find("lost") != std::string::npos);
    CHECK(SetUp->HasTrouble());
    Port.Plugged = {"/dev/ttyUSB0"};
    Clock.Wait(2000);
    Answers["#SN?"] = "#SN: 42\r";
    Port.Sent.clear();
    CHECK(SentBy([&] { SetUp->Send("#SN?"); }) == Texts{"#SETUP", "#SN?"});
    CHECK(SetUp->Value("SN") == "42");
    const std::size_t Rows = SetUp->Talk().Log().size();
    CHECK(SetUp->Talk().LogText(Rows - 1, Rows) == "09:30:00\t#SN?\t#SN: 42\n");
}

TEST_CASE_FIXTURE(Bench,
                  "the slaves' set-up keeps the session's rows, asks before it cuts any, and undoes what is not saved")
{
    const std::tuple<int, bool, int, bool, const char*> Cases[] = {
        {0, false, 4, false, "<0>,<1E>,<1E>,<1E>,<1E>,<1E>,<1E>,<1E>,<1E>"},
        {1, true, 10, false, "<0>,<A>,<A>,<A>,<A>,<A>,<A>,<A>,<A>"},
        {2, false, 8, true, "<0>,<1A>,<1C>,<1C>,<1C>,<1C>,<1C>,<1C>,<1C>"},
        {3, true, 18, true, "<0>,<0>,<0>,<0>,<0>,<0>,<0>,<0>,<0>"},
    };
    gCurFile = Folder.Path("s.txt");
    gFile.SlaveCnt = 2;
    gFile.SlaveChans = 8;
    gFile.ChanCnt = 32;
    for (int Chan = 1; Chan <= 32; ++Chan)
        gFile.Calibr.Grow().ParamID = "P" + std::to_string(Chan);
    Open();
    for (const auto& [Kind, HasExtras, Chans, IsSigned, Mask] : Cases) {
        CAPTURE(Mask);
        const auto Work = [&, k = Kind, x = HasExtras] { SetUp->SetSlave(static_cast<std::size_t>(k), x); };
        CHECK(SentBy(Work) == Texts{"#CHMSK=" + std::string(Mask), "#CHMSK?"});
        CHECK(gFile.SlaveChans == Chans);
        CHECK(gFile.ChanCnt == 2 * Chans + 16);
        CHECK(gFile.Signed == IsSigned);
        REQUIRE(gFile.Calibr.UBound() == gFile.ChanCnt);
        CHECK(gFile.Calibr[24].ParamID == "P24");
        DataFile Written;
        REQUIRE(ReadDataFile(gCurFile, Written, SectionFilter::Any));
        CHECK(Written.Calibr.UBound() == gFile.ChanCnt);
    }
    CHECK(gFile.Calibr[52].ParamID == "In52");
    CHECK(Dialogs.Told.size() == 2); // to 4 channels, and from 10 to 8
    Dialogs.AnswerYes = false;
    CHECK(SentBy([&] { SetUp->SetSlave(1, false); }).empty());
    CHECK(gFile.ChanCnt == 52);
    gCurFile = Folder.Path("none/s.txt");
    CHECK(SentBy([&] { SetUp->SetSlave(3, false); }).empty());
    CHECK(gFile.SlaveChans == 18);
}
