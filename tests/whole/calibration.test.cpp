// The calibration windows on a demonstration session: what the workbench, the re-zero window and the channel indicators
// show, draw and write, command by command.
#include "whole/Walk.h"

#include "calibration/CalBench.h"
#include "calibration/cCalGraph.h"
#include "calibration/cCheckChans.h"
#include "calibration/cReZero.h"
#include "calibration/cTrackChans.h"
#include "calibration/mChanGrid.h"

namespace {
struct Workshop : Walk
{
    TestClock Clock;
    SurfaceLog Surface{640, 400};

    explicit Workshop(const std::string& Session)
    {
        Open(Session);
        gHost.Clock = &Clock;
        gLinkWatch.Opened("link", 0);
    }
    ~Workshop() { gLinkWatch.Closed(); }
};

void Note(Workshop& Test, const cCalibr& Work, const std::string& What, bool Done)
{
    Test.Lines.push_back("> " + What + (Done ? "" : " (no)") + " | " + Work.Caption());
    std::string Line;
    for (int i = 0; i < CalBoxCnt; ++i)
        Line += Work.Box(static_cast<eCalBox>(i)) + " ";
    for (const std::string& Each : {Work.SensID(), Work.ArrMin(), Work.ArrMax(), Work.SavedText()})
        Line += "| " + Each + " ";
    for (int i = FlagAutomatic; i <= FlagTorque; ++i)
        Line += Work.Flag(static_cast<eCalFlag>(i)) ? "x" : ".";
    Test.Lines.push_back(Line);
    Test.Lines.push_back(Work.State() + " | " + Work.Reading() + " | " + Work.AnalysHint());
    for (const std::string& Each : LinesOf(Work.Analys()))
        Test.Lines.push_back("  " + Each);
    Line = FormatNum(static_cast<double>(Work.Points().size()), "0") + " points";
    for (const double X : {Work.Axes().MinP, Work.Axes().MaxP, Work.Axes().MinL, Work.Axes().MaxL})
        Line += " " + FormatGeneral(X, 8);
    Test.Lines.push_back(Line + (Work.CanUndo() ? " undo" : ""));
}
} // namespace

TEST_CASE("the calibration workbench shows, draws and writes what the golden list has")
{
    Workshop Test("single.txt");
    cCalibr Work;
    cCalGraph Graph(Test.Surface, Work);
    const auto Point = [&](double Count, double Phys) {
        gData[19] = Count;
        gData[24] = 8000 + Phys;
        if (!Work.Flag(FlagAutomatic)) Work.SetBox(BoxPhys, FormatShortest(Phys));
        return Work.TakeSample() || Work.PutDataPoint();
    };
    const auto Take = [&](const CalPoints& Points) {
        bool Done = true;
        for (const CalPoint& Each : Points)
            Done = Point(std::round(Each.L), Each.P) && Done;
        return Done;
    };
    const auto Apply = [&](eApprox Mode, const char* CutOff) {
        Work.SetApprox(Mode);
        Work.SetBox(BoxCutOff, CutOff);
        return Work.AnalyseArr();
    };
    CalPoints Loop = Sweep(0, 900, 30, 5);
    for (double P = 870; P >= 0; P -= 30)
        Loop.push_back({CurveCount(P) + 0.2 * P, P});
    for (CalPoint& Each : Loop)
        Each.L = 1600 + Each.L * 0.03;
    const std::pair<const char*, std::function<bool()>> Steps[] = {
        {"begin", [] { return true; }},
        {"no channel", [&] { return Work.StartData(); }},
        {"channel 19", [&] { return Work.SetBox(BoxChan, "19"), Work.StartData(); }},
        {"loop", [&] { return Take(Loop); }},
        {"line", [&] { return Apply(ApproxLinear, "0"); }},
        {"store", [&] { return Work.Store(); }},
        {"one", [&] { return Apply(ApproxOneLine, "4"); }},
        {"save", [&] { return Work.Save(); }},
        {"two", [&] { return Apply(ApproxTwoLines, "5.5"); }},
        {"point behind", [&] { return Point(4000, 333); }},
        {"save two", [&] { return Work.SaveData(); }},
        {"x is physical", [&] { return Work.SetFlag(FlagXisLog, false), Apply(ApproxTwoLines, "0"); }},
        {"axes of the row", [&] { return Work.SetFlag(FlagAutoAxes, false), Work.SetCalGr(), true; }},
        {"limits", [&] { return Work.FindLimits(); }},
        {"table", [&] { return Work.SetApprox(ApproxRefTable), Work.CreateRefTable3(); }},
        {"undo", [&] { return Work.UndoPoints(), true; }},
        {"auto", [&] { return Work.SetAutoCal(); }},
        {"delete", [&] { return Work.DelAllPoints(), true; }},
        {"threshold", [&] { return Work.SetBox(BoxThreshold, "7.25"), Work.SetBox(BoxQ1, "0.1"), Work.SaveData(); }},
        {"link closed", [&] { return gLinkWatch.Closed(), Work.PutDataPoint(); }},
        {"link open", [&] { return gLinkWatch.Opened("link", 0), Work.StartData(); }},
        {"load", [&] { return Work.LoadRawCalData("single_19_FRC-210.xcl"); }},
        {"automatic", [&] { return Work.SetFlag(FlagAutomatic, true), Work.SetFlag(FlagTorque, true), true; }},
        {"torque", [&] { return Work.SetBox(BoxPhys, "0.35"), Work.StartData(); }},
        {"space", [&] { return Work.Space(); }},
        {"each",
         [&] {
             return Take({{1700, 5}, {2100, 60}, {2500, 130}, {2500, 130}});
         }},
        {"other", [&] { return Work.TakeChan(18), Work.LoadRawCalData("none.xcl"); }},
        {"close", [&] { return Work.CheckModified(); }}};
    for (const auto& [What, Step] : Steps) {
        gLinkWatch.FrameCame(Test.Clock.Milliseconds());
        const bool Done = Step();
        Note(Test, Work, What, Done);
        Graph.Draw();
        Test.NoteDrawing("graph", Test.Surface, 8);
        Graph.AddPoints();
        std::string Near;
        for (double X = 20; X < 640; X += 3)
            if (const std::string Text = Graph.TextAt(X, 200 + 0.3 * (X - 320)); !Text.empty()) Near = Text;
        Test.NoteDrawing("added, near " + Near, Test.Surface, 8);
        Test.NoteTold();
        Test.NoteFiles();
    }
    Work.KeepSettings();
    CheckGolden("whole-workbench.txt", Test.Lines);
}

TEST_CASE("the re-zero window shows and stores what the golden list has")
{
    Workshop Test("eight.txt");
    gFile.Calibr[20].ProcMode = ApproxOneLine;
    cReZero Zeros(false);
    const auto Note = [&](const std::string& What, bool Done) {
        Test.Lines.push_back("> " + What + (Done ? "" : " (no)") + (Zeros.IsDirty() ? " changed" : "") + " | " +
                             Zeros.State(false) + " | " + Zeros.State(true) + " | " + Zeros.Unmoved());
        for (const ReZeroRow& Row : Zeros.Rows())
            Test.Lines.push_back("  " + Row.Name + " " + Row.ChanText + " " + Row.LogText + " " + Row.PhysText + " " +
                                 Row.OldQ0Text + " " + Row.NewQ0Text + " " + Row.LZeroText + " " + Row.Q1Text);
        Test.NoteTold();
        Test.NoteFiles();
    };
    Note("begin", Zeros.ReZero());
    for (int Group = GroupHorizontal; Group < ReZeroGroupCnt; ++Group) {
        Note("group " + FormatNum(Group, "0"), Zeros.ChooseGroup(Group));
        Note("add", Zeros.AddChannel("T1") && Zeros.AddChannel("Acc"));
        Zeros.StartData();
        Note("start", true);
        for (int Chan = 0; Chan <= LastDataChan; ++Chan)
            gData[static_cast<std::size_t>(Chan)] = 8000.4 + 7 * Chan + Group;
        gLinkWatch.FrameCame(Test.Clock.Milliseconds());
        Zeros.TakeSample();
        Note("data", true);
        Note("zero", Zeros.ReZero());
        Zeros.SetQ1(1, "0.125 x");
        Zeros.SetQ1(99, "1");
        Note("gain", true);
        Note("save", Zeros.SaveData());
        Zeros.SetChan(0, Group % 2 == 0 ? "20" : "999");
        Zeros.StartData();
        Note("moved", true);
        Test.Clock.Wait(5000);
    }
    CheckGolden("whole-rezero.txt", Test.Lines);
}

TEST_CASE("the channel indicators draw what the golden list has")
{
    Workshop Test("eight.txt");
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
        Traces.SetLive(false);
        Bars.DrawGrid();
        Test.NoteDrawing("dead", Test.Surface, 20);
    }
    Test.Lines.push_back(ChanList());
    CheckGolden("whole-indicators.txt", Test.Lines);
}
