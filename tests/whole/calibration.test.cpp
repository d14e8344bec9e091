// The calibration windows on a demonstration session: what the workbench, the re-zero window and the channel indicators
// show, draw and write, command by command.
#include "whole/Walk.h"

#include "calibration/CalBench.h"
#include "calibration/cCalGraph.h"
#include "calibration/cCheckChans.h"
#include "calibration/cReZero.h"
#include "calibration/cTrackChans.h"
#include "calibration/mChanGrid.h"
#include "files/mDump.h"

#include <optional>

namespace {
struct Workshop : Walk
{
    TestClock Clock;
    SurfaceLog Surface{640, 400};

    Workshop() { FewLines = 8; }
    ~Workshop() { gLinkWatch.Closed(); }

    // "refused": questions are answered No. "gone": the folder of the session and the program's own.
    void Meet(const std::string& Situation, const std::string& Session)
    {
        Open(Session);
        Lines.push_back("> > " + Situation);
        gHost.Clock = &Clock;
        gLinkWatch.Closed();
        gLinkWatch.Opened("link", Clock.Milliseconds());
        Dialogs.AnswerYes = Situation != "refused";
        gAppDir = Situation == "gone" ? "gone/" : "./";
        if (Situation == "gone") SetCurFile("gone/" + Session);
    }
};

void Note(Workshop& Test, const cCalibr& Work, const std::string& What, bool Done)
{
    Test.Lines.push_back("> " + What + (Done ? "" : " (no)"));
    std::string Line = Work.Caption() + " ";
    for (int i = 0; i < CalBoxCnt; ++i)
        Line += Work.Box(static_cast<eCalBox>(i)) + " ";
    for (const std::string& Each : {Work.SensID(), Work.ArrMin(), Work.ArrMax(), Work.SavedText()})
        Line += "| " + Each + " ";
    for (int i = FlagAutomatic; i <= FlagTorque; ++i)
        Line += Work.Flag(static_cast<eCalFlag>(i)) ? "x" : ".";
    Test.NoteNew("boxes", Line);
    Test.NoteNew("state", Work.State() + " | " + Work.Reading() + " | " + Work.AnalysHint());
    Test.NoteNew("analysis", Work.Analys());
    Line = FormatNum(static_cast<double>(Work.Points().size()), "0") + " points";
    for (const double X : {Work.Axes().MinP, Work.Axes().MaxP, Work.Axes().MinL, Work.Axes().MaxL})
        Line += " " + FormatGeneral(X, 8);
    Test.NoteNew("points", Line + (Work.CanUndo() ? " undo" : ""));
}
} // namespace

TEST_CASE("the calibration workbench shows, draws and writes what the golden list has")
{
    Workshop Test;
    std::optional<cCalibr> Work;
    const auto Point = [&](double Count, double Phys) {
        gData[19] = Count;
        gData[24] = 8000 + Phys;
        if (!Work->Flag(FlagAutomatic)) Work->SetBox(BoxPhys, FormatShortest(Phys));
        return Work->TakeSample() || Work->PutDataPoint();
    };
    const auto Take = [&](const CalPoints& Points) {
        bool Done = true;
        for (const CalPoint& Each : Points)
            Done = Point(std::round(Each.L), Each.P) && Done;
        return Done;
    };
    const auto Apply = [&](eApprox Mode, const char* CutOff) {
        Work->SetApprox(Mode);
        Work->SetBox(BoxCutOff, CutOff);
        return Work->AnalyseArr();
    };
    CalPoints Loop = Sweep(0, 900, 30, 5);
    for (double P = 870; P >= 0; P -= 30)
        Loop.push_back({CurveCount(P) + 0.2 * P, P});
    for (CalPoint& Each : Loop)
        Each.L = 1600 + Each.L * 0.03;
    const std::pair<const char*, std::function<bool()>> Steps[] = {
        {"begin", [] { return true; }},
        {"no channel", [&] { return Work->StartData(); }},
        {"auto of none", [&] { return Work->SetAutoCal(); }},
        {"save none", [&] { return Work->Save(); }},
        {"channel 19", [&] { return Work->SetBox(BoxChan, "19"), Work->StartData(); }},
        {"limits of none", [&] { return Work->FindLimits(); }},
        {"auto without a line", [&] { return Work->SetAutoCal(); }},
        {"loop", [&] { return Take(Loop); }},
        {"line", [&] { return Apply(ApproxLinear, "0"); }},
        {"store", [&] { return Work->Store(); }},
        {"one", [&] { return Apply(ApproxOneLine, "4"); }},
        {"save", [&] { return Work->Save(); }},
        {"two", [&] { return Apply(ApproxTwoLines, "5.5"); }},
        {"point behind", [&] { return Point(4000, 333); }},
        {"save two", [&] { return Work->SaveData(); }},
        {"x is physical", [&] { return Work->SetFlag(FlagXisLog, false), Apply(ApproxTwoLines, "0"); }},
        {"axes of the row", [&] { return Work->SetFlag(FlagAutoAxes, false), Work->SetCalGr(), true; }},
        {"limits", [&] { return Work->FindLimits(); }},
        {"table", [&] { return Work->SetApprox(ApproxRefTable), Work->CreateRefTable3(); }},
        {"undo", [&] { return Work->UndoPoints(), true; }},
        {"auto", [&] { return Work->SetAutoCal(); }},
        {"delete", [&] { return Work->DelAllPoints(), true; }},
        {"threshold", [&] { return Work->SetBox(BoxThreshold, "7.25"), Work->SetBox(BoxQ1, "0.1"), Work->SaveData(); }},
        {"link closed", [&] { return gLinkWatch.Closed(), Work->PutDataPoint(); }},
        {"link open", [&] { return gLinkWatch.Opened("link", 0), Work->StartData(); }},
        {"load", [&] { return Work->LoadRawCalData("single_19_FRC-210.xcl"); }},
        {"automatic", [&] { return Work->SetFlag(FlagAutomatic, true), Work->SetFlag(FlagTorque, true), true; }},
        {"torque", [&] { return Work->SetBox(BoxPhys, "0.35"), Work->StartData(); }},
        {"space", [&] { return Work->Space(); }},
        {"each",
         [&] {
             return Take({{1700, 5}, {2100, 60}, {2500, 130}, {2500, 130}});
         }},
        {"other", [&] { return Work->TakeChan(18), Work->LoadRawCalData("none.xcl"); }},
        {"close", [&] { return Work->CheckModified(); }},
        {"channel 19", [&] { return Work->SetFlag(FlagAutomatic, false), Work->TakeChan(19) && Work->StartData(); }},
        {"few",
         [&] {
             Work->DelAllPoints();
             return Take({{1700, 5}, {2100, 60}}) && Apply(ApproxTwoLines, "0");
         }},
        {"few on one", [&] { return Apply(ApproxOneLine, "0"); }},
        {"no table yet", [&] { return Work->SetApprox(ApproxRefTable), Work->SaveData(); }},
        {"limits of few", [&] { return Work->FindLimits(); }},
        {"limits of two",
         [&] {
             return Take({{1700, 60}, {2100, 60.5}}) && Work->FindLimits();
         }},
        {"level", [&] { return Work->SetBox(BoxQ1, "0"), Work->SaveData(); }},
        {"no name", [&] { return Work->SetSensID("a/b"), Work->Save(); }},
        {"no sensor", [&] { return Work->SetSensID(""), Work->CreateRefTable3(); }},
        {"no range", [&] { return Work->SetArrMin("900"), Work->SetSensID("s"), Work->CreateRefTable3(); }},
        {"no span", [&] { return Work->SetArrMin("9"), Work->SetArrMax("9"), Work->CreateRefTable3(); }},
        {"absolute", [&] { return Work->SetApprox(ApproxAbsolute), Work->SetBox(BoxQ1, "0.2"), Work->SaveData(); }},
        {"line again", [&] { return Work->SetApprox(ApproxLinear), Work->SaveData(); }},
        {"save points", [&] { return Test.Dialogs.Files = {"p.xcl"}, Work->SaveRawCalData(""); }},
        {"load points", [&] { return Test.Dialogs.Files = {"p.xcl"}, Work->LoadRawCalData(""); }},
        {"load none", [&] { return Work->LoadRawCalData(""); }},
        {"narrow axes",
         [&] {
             gFile.Calibr[19].Min = 20;
             gFile.Calibr[19].Max = 50;
             Work->SetCalGr();
             return Take({{1800, 30}, {1500, 40}, {1900, 45}, {9000, 30}, {16384, 50}});
         }},
        {"no fit", [&] { return Work->SetApprox(ApproxRefTable), Work->AnalyseArr(); }},
        {"large",
         [&] {
             Test.Surface.Extent = {1300, 700};
             return true;
         }},
        {"small",
         [&] {
             return Test.Surface.Extent = {70, 33}, true;
         }},
        {"stop", [&] {
             Test.Surface.Extent = {640, 400};
             return gLinkWatch.Closed(), Work->StopData(), true;
         }}};
    for (const std::string Situation : {"usual", "refused", "gone"}) {
        Test.Meet(Situation, "single.txt");
        Work.emplace();
        cCalGraph Graph(Test.Surface, *Work);
        const std::size_t Few = Situation == "usual" ? 8 : 0, Wide = Situation == "usual" ? 7 : 0;
        for (const auto& [What, Step] : Steps) {
            gLinkWatch.FrameCame(Test.Clock.Milliseconds());
            const bool Done = Step();
            Note(Test, *Work, What, Done);
            Graph.Draw();
            Test.NoteDrawing("graph", Test.Surface, Few, Wide);
            Graph.AddPoints();
            std::string Near;
            for (double X = 20; X < 640; X += 3)
                if (const std::string Text = Graph.TextAt(X, 200 + 0.3 * (X - 320)); !Text.empty()) Near = Text;
            Test.NoteDrawing("added, near " + Near, Test.Surface, Few, Wide);
            Test.NoteTold();
            Test.NoteFiles();
        }
        Work->KeepSettings();
        for (const char* Key : {"gAutoCalibr", "fTorque", "fXisLog", "fAutoAxes", "fApproxMode", "fCutOff"})
            Test.Lines.push_back(Key + std::string("=") +
                                 Test.Settings.GetSetting("Calibration", Key).value_or("none"));
    }
    CheckGolden("whole-workbench.txt", Test.Lines);
}

TEST_CASE("the re-zero window shows and stores what the golden list has")
{
    Workshop Test;
    std::optional<cReZero> Zeros;
    const auto Note = [&](const std::string& What, bool Done) {
        Test.Lines.push_back("> " + What + (Done ? "" : " (no)") + (Zeros->IsDirty() ? " changed" : ""));
        Test.NoteNew("state", Zeros->State(false) + " | " + Zeros->State(true) + " | " + Zeros->Unmoved());
        int Number = 0;
        for (const ReZeroRow& Row : Zeros->Rows())
            Test.NoteNew(FormatNum(++Number, "0"), Row.Name + " " + Row.ChanText + " " + Row.LogText + " " +
                                                       Row.PhysText + " " + Row.OldQ0Text + " " + Row.NewQ0Text + " " +
                                                       Row.LZeroText + " " + Row.Q1Text);
        Test.NoteTold();
        Test.NoteFiles();
    };
    for (const std::string Situation : {"usual", "refused", "gone", "calibrator"})
        for (int Group = GroupHorizontal; Group < ReZeroGroupCnt; Group += Situation == "usual" ? 1 : 2) {
            const bool IsCalibrator = Situation == "calibrator";
            Test.Meet(Situation, "eight.txt");
            gFile.Calibr[20].ProcMode = ApproxOneLine;
            gAutoCalCh = static_cast<int16_t>(Group);
            gAutoCalQ1 = 0.5;
            Zeros.emplace(IsCalibrator);
            Note("begin", Zeros->ReZero());
            if (!IsCalibrator) {
                Note("group " + FormatNum(Group, "0"), Zeros->ChooseGroup(Group));
                Note("add", Zeros->AddChannel("T1") && Zeros->AddChannel("Acc"));
            }
            Zeros->StartData();
            Note("start", true);
            for (int Chan = 0; Chan <= LastDataChan; ++Chan)
                gData[static_cast<std::size_t>(Chan)] = 8000.4 + 7 * Chan + Group;
            gLinkWatch.FrameCame(Test.Clock.Milliseconds());
            Zeros->TakeSample();
            Note("data", true);
            Note("zero", Zeros->ReZero());
            Zeros->SetQ1(1, "0.125 x");
            Zeros->SetQ1(99, "1");
            Note("gain", true);
            Note("save", Zeros->SaveData());
            Zeros->SetChan(0, Group % 2 == 0 ? "20" : "999");
            Zeros->StartData();
            Note("moved", true);
            Test.Clock.Wait(5000);
            gLinkWatch.Tick(Test.Clock.Milliseconds());
            Note("silent", Zeros->ReZero());
            Note("file", Zeros->GetFromFile("none.qvn"));
            if (!IsCalibrator) Note("another group", Zeros->ChooseGroup(GroupSeats));
        }
    CheckGolden("whole-rezero.txt", Test.Lines);
}

TEST_CASE("the channel indicators draw what the golden list has")
{
    Workshop Test;
    Test.Meet("usual", "eight.txt");
    for (const auto& [Count, Width, Height, Frames] :
         {std::tuple{2, 500, 300, 270}, {24, 900, 420, 260}, {60, 700, 333, 5}, {90, 300, 160, 8}}) {
        gFile.ChanCnt = static_cast<int16_t>(Count);
        Test.Surface.Extent = {Width, Height};
        cCheckChans Bars(Test.Surface);
        cTrackChans Traces(Test.Surface);
        Bars.SetUpPoly();
        Bars.DrawGrid();
        Test.NoteDrawing("bars of " + FormatNum(Count, "0"), Test.Surface, 20);
        Traces.SetUpPoly();
        Traces.DrawGrid();
        Test.NoteDrawing("traces", Test.Surface, 20);
        for (int Frame = 0; Frame < Frames; ++Frame) {
            for (int Chan = 1; Chan <= LastDataChan; ++Chan)
                gData[static_cast<std::size_t>(Chan)] = (Frame * 311 + Chan * 977) % 17000 - 300;
            Traces.TakeSample();
            if (Frame % 37 != 0 && Frame > 4 && Frame < 252) continue;
            Traces.DrawData();
            if (Frame % 2 == 0)
                Bars.DrawData();
            else
                Bars.DrawChansLine();
            if (Frame % 3 == 0) Bars.SetLive(Frame % 2 == 0);
            Test.NoteDrawing("frame " + FormatNum(Frame, "0"), Test.Surface, 6);
        }
        REQUIRE(StartDump("dump.txt"));
        DumpFrame();
        gFile.ChanCnt = 1; // too late for the dump
        DumpFrame();
        StopDump();
        Test.NoteFiles();
        Traces.SetLive(false);
        Bars.DrawGrid();
        Test.NoteDrawing("dead", Test.Surface, 20);
    }
    Test.Lines.push_back(ChanList());
    CheckGolden("whole-indicators.txt", Test.Lines);
}
