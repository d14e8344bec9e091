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

    void Note(const std::string& What)
    {
        Lines.push_back("> " + What + " | " + View.Caption() + " | " + View.PointerText + " | " + View.Inputs[0] + " " +
                        View.Inputs[1] + (View.IsEdited ? " edited" : "") + (View.IsStrip() ? " strip" : ""));
        std::string Line;
        for (const ViewNumber& Each : View.Numbers.Selected)
            Line += Each.Text + (Each.IsCurrent ? " " : "(old) ");
        for (const std::string& Each : View.Numbers.AtCursor)
            Line += "/ " + Each;
        const cDataRange& Range = View.Plot.Range;
        for (const int X :
             {int{gXScale}, Range.FirstSample, Range.Cursor, Range.SelStart(), Range.SelStop(), Range.ScrollValue(),
              cDataRange::ScrollPage(), gRaw.UBound(), View.Nav.FirstRow, View.Nav.LastRow, View.Nav.Cursor})
            Line += " " + FormatNum(X, "0");
        Lines.push_back(Line + " " + View.Numbers.LoggedAtCursor + (Range.IsOpen() ? " open" : ""));
        if (View.HasStrokeTable()) Lines.push_back(View.StripText());
        NoteDrawing("plot", PlotLog, 4);
        NoteDrawing("strip", StripLog, 4);
        NoteTold();
        NoteFiles();
    }

    void Do(const char* Name, Command Action, const Texts& Answers = {})
    {
        Dialogs.Files = {Answers.begin(), Answers.end()};
        Dialogs.Answers = {Answers.begin(), Answers.end()};
        View.Run(Name, Action);
        Note(Name);
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
        Note("select");
    }
};
} // namespace

TEST_CASE("the data view works on a recording as in the golden list")
{
    Desk Test;
    Test.Run("sim single.txt --file=a.qvn --strokes=16 --seed=11 --rate=27 --spread=5 --spikes=3");
    Test.Open("single.txt");
    cData02view& View = Test.View;
    REQUIRE(View.InitData("a.qvn", DataRaw));
    View.Draw();
    Test.Note("open");
    Test.Do("in", &cData02view::ZoomOut);
    Test.Do("all", &cData02view::SelAllStrokes);
    Test.Do("rate", &cData02view::ShowRate);
    Test.Do("dist", &cData02view::ShowDist);
    Test.Select(60, 420);
    Test.Do("strokes", &cData02view::ProcStrokes);
    Test.Do("process", &cData02view::ProcSelection);
    View.Type(0, "512.5");
    View.Type(1, "99,5");
    Test.Do("all", &cData02view::ProcAll);
    Test.Do("typical", &cData02view::PlotTypical);
    Test.Do("samples", &cData02view::PlotSamples);
    Test.Do("splits", &cData02view::ProcessSplits);
    Test.Do("start", &cData02view::ProcessStart, {"3"});
    Test.Do("filter", &cData02view::Filter);
    Test.Do("undo", &cData02view::Undo);
    Test.Select(500, 200);
    Test.Do("velocity", &cData02view::AccVel);
    Test.Do("export", &cData02view::Export, {"a.txt"});
    Test.Do("save", &cData02view::SaveData, {"b.qvn"});
    Test.Do("delete", &cData02view::Delete);
    Test.Do("dist", &cData02view::ShowDist);
    Test.Do("undo", &cData02view::Undo);
    Test.Do("undo", &cData02view::Undo);
    Test.Lines.push_back(View.MayClose() ? "may close" : "stays");
    View.TypeFilter("0.7");
    Test.Do("in", &cData02view::ZoomIn);
    View.GoToEnd();
    View.Step(-1);
    Test.Note("keys");
    View.Page(-1);
    View.MoveCursor(12);
    Test.Note("page");
    View.Scroll(5000);
    View.Move(300, 200, false);
    Test.Note("scroll");
    View.GoToStart();
    View.Turn(400, 0, 130);
    View.Turn(400, 250, 10);
    View.MoveCursor(-3);
    View.Press(100);
    View.Move(333, 50, true);
    View.Release(400);
    Test.Note("mouse");
    Test.Do("dist", &cData02view::ShowDist);
    Test.PlotLog.Extent = {300, 90};
    for (int i = 1; i <= gFile.Calibr.UBound(); ++i)
        gFile.Calibr[i].Visible = static_cast<int16_t>(i > 15);
    View.Draw();
    View.Move(150, 30, false);
    Test.Note("small");
    CheckGolden("whole-data.txt", Test.Lines);
}

TEST_CASE("the data view works on strokes of a scanned recording as in the golden list")
{
    Desk Test;
    Test.Run("sim eight.txt --file=e.qvn --strokes=22 --seed=12 --rate=36 --freq=25");
    Test.Open("eight.txt");
    cData02view& View = Test.View;
    REQUIRE(View.InitData("e.qvn", DataScanned));
    View.Draw();
    View.DrawStrip();
    Test.Note("open");
    View.PressStrip(120);
    View.MoveStrip(400, true);
    Test.Note("drag");
    Test.Do("save", &cData02view::SaveData, {"p.qvn"});
    Test.Do("table", &cData02view::SaveStrokeTable);
    Test.Do("trim", &cData02view::Trim);
    View.PressStrip(300);
    Test.Do("from", &cData02view::SetStartSel);
    View.Step(3);
    View.MoveCursor(1);
    Test.Do("to", &cData02view::SetStopSel);
    Test.Do("get", &cData02view::GetData);
    Test.Do("all", &cData02view::SelAllStrokes);
    Test.Do("process", &cData02view::ProcSelection);
    Test.Do("undo", &cData02view::Undo);
    Test.Do("get", &cData02view::GetData);
    for (const int16_t Mode : {DataTypical, DataPrimary, DataLogger}) {
        Test.Lines.push_back(View.InitData("p.qvn", Mode) ? "opened" : "not opened");
        View.Draw();
        Test.Note("other");
    }
    CheckGolden("whole-scan.txt", Test.Lines);
}
