// What the data view shows, draws and writes, command by command, on recordings of the demonstration.
#include "whole/Walk.h"

#include "views/data/cData02view.h"

namespace {
struct Desk : Walk
{
    SurfaceLog PlotLog{730, 512};
    SurfaceLog StripLog{610, 130};
    cData02view View{PlotLog, StripLog};

    using Command = cData02view::Command;
    std::size_t Wide = 7; // columns of drawings that are summed up

    Desk() { FewLines = 8; }

    // What stands in the window, as far as it has changed.
    void Note()
    {
        std::string Line = View.Caption() + " | " + View.PointerText + " | " + View.Inputs[0] + " " + View.Inputs[1] +
                           (View.IsEdited ? " edited" : "") + (View.IsStrip() ? " strip" : "");
        NoteNew("words", std::exchange(Line, {}));
        for (const ViewNumber& Each : View.Numbers.Selected)
            Line += Each.Text + (Each.IsCurrent ? " " : "(old) ");
        for (const std::string& Each : View.Numbers.AtCursor)
            Line += "/ " + Each;
        const cDataRange& Range = View.Plot.Range;
        for (const int X :
             {int{gXScale}, Range.FirstSample, Range.Cursor, Range.SelStart(), Range.SelStop(), Range.ScrollValue(),
              cDataRange::ScrollPage(), gRaw.UBound(), View.Nav.FirstRow, View.Nav.LastRow, View.Nav.Cursor})
            Line += " " + FormatNum(X, "0");
        Line += " " + View.Numbers.LoggedAtCursor + (Range.IsOpen() ? " open" : "");
        NoteNew("numbers", Line);
        if (View.HasStrokeTable()) NoteNew("strip", View.StripText());
        NoteDrawing("plot", PlotLog, 4, Wide);
        NoteDrawing("strip", StripLog, 4, Wide);
        NoteTold();
        NoteFiles();
    }

    void Do(const char* Name, Command Action, const Texts& Answers = {})
    {
        Dialogs.Files = {Answers.begin(), Answers.end()};
        Dialogs.Answers = {Answers.begin(), Answers.end()};
        View.Run(Name, Action);
        Note();
    }

    // Sets start and stop by clicks.
    void Select(double From, double To)
    {
        for (const auto& [Sample, Action] :
             {std::pair{From, &cData02view::SetStartSel}, {To, &cData02view::SetStopSel}}) {
            View.Press(View.Plot.Range.LogToX(Sample) + 0.1);
            View.Release(View.Plot.Range.LogToX(Sample) + 0.1);
            View.Run("select", Action);
        }
        Note();
    }
};

// What a run of the commands meets.
struct Situation
{
    const char* Name;
    const char* Recording;
    bool AnswerYes = true;
    bool IsGone = false; // the folder of the session, and the recording, once it is loaded
    int CancelAt = 101;  // percent
};

void Meet(Desk& Test, const Situation& Each, const char* Session, int16_t Mode)
{
    Test.Open(Session);
    Test.Lines.push_back(std::string("> > ") + Each.Name);
    Test.Wide = 7;
    for (int i = 1; i <= gFile.Calibr.UBound(); ++i)
        gFile.Calibr[i].Visible = static_cast<int16_t>(i % 5 == 2);
    if (Each.Recording == std::string("short.qvn")) gFile.KeyChanID = "Zz";
    ResolveChannels();
    const bool Is = Test.View.InitData(Each.Recording, Mode);
    Test.View.Draw();
    Test.View.DrawStrip();
    Test.Lines.push_back(Is ? "opened" : "not opened");
    Test.Note();
    if (Each.Name != std::string("usual")) Test.Wide = 0;
    if (Each.Name == std::string("broken")) {
        gFile.Calibr[15].ParamID = "Zz"; // no speed
        for (int i = 300; i <= gRaw.UBound(); ++i)
            gRaw(0, i) += i < 600 ? 5 : -12; // nothing for a while, later the clock is set back
    }
    Test.Dialogs.AnswerYes = Each.AnswerYes;
    Test.Status.CancelAt = Each.CancelAt;
    if (!Each.IsGone) return;
    SetCurFile("gone/" + std::string(Session));
    std::filesystem::rename("a.qvn", "away.qvn");
}
} // namespace

TEST_CASE("the data view works on a recording as in the golden list")
{
    Desk Test;
    cData02view& View = Test.View;
    Test.Run("sim single.txt --file=a.qvn --strokes=16 --seed=11 --rate=27 --spread=5 --spikes=3");
    Test.Run("sim single.txt --file=short.qvn --seconds=1");
    REQUIRE(SaveWhole("empty.qvn", ""));
    View.OnPlot = [&](int Kind, int32_t First, int32_t Last) {
        Test.Lines.push_back("plot " + FormatNum(Kind, "0") + " " + FormatNum(First, "0") + " " + FormatNum(Last, "0"));
    };
    const std::pair<const char*, std::function<void()>> Steps[] = {
        {"zoom", [&] { Test.Do("out", &cData02view::ZoomOut); }},
        {"all", [&] { Test.Do("all", &cData02view::SelAllStrokes); }},
        {"rate", [&] { Test.Do("rate", &cData02view::ShowRate); }},
        {"dist", [&] { Test.Do("dist", &cData02view::ShowDist); }},
        {"select", [&] { Test.Select(60, 420); }},
        {"strokes", [&] { Test.Do("strokes", &cData02view::ProcStrokes); }},
        {"process", [&] { Test.Do("process", &cData02view::ProcSelection); }},
        {"type", [&] { View.Type(0, "512.5"), View.Type(1, "99,5"), View.TypeFilter("x"); }},
        {"process all", [&] { Test.Do("all", &cData02view::ProcAll); }},
        {"typical", [&] { Test.Do("typical", &cData02view::PlotTypical); }},
        {"two runs", [&] { gProcRuns = 2, Test.Do("typical", &cData02view::PlotTypical); }},
        {"no run", [&] { gProcRuns = 5, Test.Do("process", &cData02view::ProcSelection); }},
        {"samples", [&] { Test.Do("samples", &cData02view::PlotSamples); }},
        {"splits", [&] { Test.Do("splits", &cData02view::ProcessSplits); }},
        {"start", [&] { gProcRuns = 1, Test.Do("start", &cData02view::ProcessStart, {"3"}); }},
        {"filter", [&] { Test.Do("filter", &cData02view::Filter); }},
        {"undo", [&] { Test.Do("undo", &cData02view::Undo); }},
        {"back", [&] { Test.Select(500, 200); }},
        {"velocity", [&] { Test.Do("velocity", &cData02view::AccVel); }},
        {"export", [&] { Test.Do("export", &cData02view::Export, {"a.txt"}); }},
        {"save", [&] { Test.Do("save", &cData02view::SaveData, {"b.qvn"}); }},
        {"save over", [&] { Test.Do("save", &cData02view::SaveData, {"a.qvn"}); }},
        {"save nowhere", [&] { Test.Do("save", &cData02view::SaveData, {"none/b.qvn"}); }},
        {"save none", [&] { Test.Do("save", &cData02view::SaveData); }},
        {"delete", [&] { Test.Do("delete", &cData02view::Delete); }},
        {"delete none", [&] { Test.Do("delete", &cData02view::Delete); }},
        {"export all", [&] { Test.Do("export", &cData02view::Export, {"a.txt"}); }},
        {"process no stretch", [&] { Test.Do("samples", &cData02view::PlotSamples); }},
        {"dist", [&] { Test.Do("dist", &cData02view::ShowDist); }},
        {"undo", [&] { Test.Do("undo", &cData02view::Undo); }},
        {"undo none", [&] { Test.Do("undo", &cData02view::Undo); }},
        {"velocity none", [&] { Test.Do("velocity", &cData02view::AccVel); }},
        {"close", [&] { Test.Lines.push_back(View.MayClose() ? "may close" : "stays"); }},
        {"filter width", [&] { View.TypeFilter("0.7"), Test.Do("in", &cData02view::ZoomIn); }},
        {"one place", [&] { Test.Select(30, 30); }},
        {"open", [&] { Test.Do("strokes", &cData02view::ProcStrokes); }},
        {"end", [&] { View.GoToEnd(), View.Step(-1), Test.Note(); }},
        {"page", [&] { View.Page(-1), View.MoveCursor(12), Test.Note(); }},
        {"scroll", [&] { View.Scroll(5000), View.Move(300, 200, false), Test.Note(); }},
        {"first", [&] { View.GoToStart(), View.MoveCursor(-2000), Test.Note(); }},
        {"last", [&] { View.MoveCursor(2000), Test.Note(); }},
        {"edges",
         [&] {
             View.GoToStart();
             for (const int Points : {400, 1, -399, -2}) { // to the end of what is shown, and behind it
                 View.MoveCursor(Points);
                 Test.Note();
             }
             View.GoToEnd();
             for (const int Sample : {gRaw.UBound() - 1, gRaw.UBound(), gRaw.UBound() + 1}) {
                 View.Move(View.Plot.Range.LogToX(Sample) + 0.1, 60, false);
                 Test.Note();
             }
         }},
        {"wheel", [&] { View.GoToStart(), View.Turn(400, 0, 130), View.Turn(400, 250, 10), Test.Note(); }},
        {"mouse", [&] { View.Press(100), View.Move(333, 50, true), View.Release(400), Test.Note(); }},
        {"margin", [&] { View.Press(3), View.Release(4), View.Move(3, 50, false), Test.Note(); }},
        {"small", [&] {
             Test.PlotLog.Extent = {300, 90};
             for (int i = 1; i <= gFile.Calibr.UBound(); ++i)
                 gFile.Calibr[i].Visible = static_cast<int16_t>(i > 15);
             View.Draw();
             View.Move(150, 30, false);
             Test.Note();
             Test.PlotLog.Extent = {730, 512};
         }}};
    for (const Situation& Each : {Situation{"usual", "a.qvn"},
                                  {"refused", "a.qvn", false},
                                  {"gone", "a.qvn", true, true},
                                  {"short", "short.qvn"},
                                  {"empty", "empty.qvn"},
                                  {"broken", "a.qvn"},
                                  {"broken", "a.qvn"}}) {
        Meet(Test, Each, "single.txt", DataRaw);
        Test.Settings.SaveSetting("AutoSplit", "gSplitPar", Each.IsGone ? "0" : "1");
        Test.Settings.SaveSetting("AutoSplit", "gSplitsCnt", "2");
        Test.Settings.SaveSetting("AutoSplit", "gSplitsArr01", "12");
        Test.Settings.SaveSetting("AutoSplit", "gSplitsArr02", "9.52");
        for (const auto& [What, Step] : Steps) {
            Test.Lines.push_back(std::string("> ") + What);
            Step();
        }
        if (Each.IsGone) std::filesystem::rename("away.qvn", "a.qvn");
    }
    CheckGolden("whole-data.txt", Test.Lines);
}

TEST_CASE("the data view works on strokes of a scanned recording as in the golden list")
{
    Desk Test;
    cData02view& View = Test.View;
    Test.Run("sim eight.txt --file=a.qvn --strokes=22 --seed=12 --rate=36 --freq=25");
    const auto Rows = [&](double From, double To) {
        for (const auto& [X, Action] : {std::pair{From, &cData02view::SetStartSel}, {To, &cData02view::SetStopSel}}) {
            View.PressStrip(X);
            View.Run("select", Action);
        }
        Test.Note();
    };
    const std::pair<const char*, std::function<void()>> Steps[] = {
        {"drag", [&] { View.PressStrip(120), View.MoveStrip(400, true), Test.Note(); }},
        {"save", [&] { Test.Do("save", &cData02view::SaveData, {"p.qvn"}); }},
        {"save over", [&] { Test.Do("save", &cData02view::SaveData, {"a.qvn"}); }},
        {"save nowhere", [&] { Test.Do("save", &cData02view::SaveData, {"none/p.qvn"}); }},
        {"table", [&] { Test.Do("table", &cData02view::SaveStrokeTable); }},
        {"neighbours", [&] { Rows(300, 325); }},
        {"trim", [&] { Test.Do("trim", &cData02view::Trim); }},
        {"one", [&] { Rows(300, 300); }},
        {"get", [&] { Test.Do("get", &cData02view::GetData); }},
        {"trim", [&] { Test.Do("trim", &cData02view::Trim); }},
        {"save", [&] { Test.Do("save", &cData02view::SaveData, {"p.qvn"}); }},
        {"many", [&] { Rows(480, 90); }},
        {"trim", [&] { Test.Do("trim", &cData02view::Trim); }},
        {"from", [&] { View.PressStrip(300), Test.Do("from", &cData02view::SetStartSel); }},
        {"steps", [&] { View.Step(3), View.MoveCursor(1), Test.Do("to", &cData02view::SetStopSel); }},
        {"far", [&] { View.Step(-99), View.Step(99), View.Step(-1), Test.Note(); }},
        {"get", [&] { Test.Do("get", &cData02view::GetData); }},
        {"all", [&] { Test.Do("all", &cData02view::SelAllStrokes); }},
        {"process", [&] { Test.Do("process", &cData02view::ProcSelection); }},
        {"filter", [&] { Test.Do("filter", &cData02view::Filter); }},
        {"undo", [&] { Test.Do("undo", &cData02view::Undo); }},
        {"undo trim", [&] { Test.Do("undo", &cData02view::Undo); }},
        {"filter", [&] { Test.Do("filter", &cData02view::Filter); }},
        {"get", [&] { Test.Do("get", &cData02view::GetData); }},
        {"get none",
         [&] {
             View.Nav.SelectAll();
             std::error_code Gone;
             std::filesystem::rename("a.qvn", "b.qvn", Gone);
             Test.Do("get", &cData02view::GetData);
             std::filesystem::rename("b.qvn", "a.qvn", Gone);
         }},
        {"close", [&] { View.Close(), Test.Lines.push_back(View.MayClose() ? "may close" : "stays"); }}};
    for (const Situation& Each : {Situation{"usual", "a.qvn"},
                                  {"refused", "a.qvn", false},
                                  {"gone", "a.qvn", true, true},
                                  {"cancelled", "a.qvn", true, false, 40}}) {
        Meet(Test, Each, "eight.txt", DataScanned);
        for (const auto& [What, Step] : Steps) {
            Test.Lines.push_back(std::string("> ") + What);
            Step();
        }
        if (Each.IsGone) std::filesystem::rename("away.qvn", "a.qvn");
    }
    for (const int16_t Mode : {DataTypical, DataPrimary, DataLogger})
        Meet(Test, {"other", "p.qvn"}, "eight.txt", Mode);
    CheckGolden("whole-scan.txt", Test.Lines);
}
