// What the live panels draw and say of a recording, stroke by stroke, by different switches, settings and sizes.
#include "whole/Walk.h"

#include "core/mIni.h"
#include "files/mBinIO.h"
#include "live/catch/cCatch.h"
#include "live/panel/cTargetCurve.h"
#include "live/rower/cRower.h"
#include "records/mTargets.h"

namespace {
struct PanelCase
{
    const char* Session;
    int Burst; // frames that are drawn together
    SurfacePoint Size;
    const char* Settings; // KEY=VALUE, separated by blanks
    const char* Switches; // of curves, values, dots, scores, grid: a letter for each that is on
};

// A row for each operation and each function, over what a scull has.
void AddRows()
{
    for (int16_t Oper = 0; Oper <= 16; ++Oper) {
        ViewRow& Row = gFile.View1.Grow();
        Row.ID = "Oper " + FormatNum(Oper, "0");
        Row.Mode = static_cast<int16_t>(Oper % 2);
        Row.Oper = Oper;
        Row.Color = Oper % 9;
        Row.MinXPar = Row.MinYPar = -60;
        Row.MaxXPar = Row.MaxYPar = 90;
        Row.X1 = static_cast<float>(5 * Oper);
        Row.X2 = static_cast<float>(5 * Oper + 20);
        Row.Y2 = 60;
        Row.Offset = static_cast<int16_t>(Oper - 5);
        Row.Arguments = Oper % 3 == 0 ? "A1,A1,S1,V1,T1" : Oper % 3 == 1 ? "A1,V1" : "T1,S1,V1,H1,Acc,Roll";
        Row.Functions = "MinX,MaxX,DelX,MinY,MaxY,DelY,MaxA,Catch";
    }
    for (const char* Keys : {"Mod,As", "Mod,U1,U2,D3,At,St,Ef,Odd"}) {
        ViewRow Row = gFile.View1[4]; // of the style
        Row.Functions = Keys;
        Row.DiamFontXY = "30,20,40,50,60";
        gFile.View1.Grow() = Row;
    }
}

// Plays a recording through a panel as a replay does.
template <class Kind, class Writer>
void Play(const std::string& Path, Kind& Panel, int Burst, const Writer& Write)
{
    REQUIRE(OpenScanFile(Path));
    int Frame = 0;
    while (const auto Taken = gScanFile.Take()) {
        if (!DecodeLive(FrameSource::Replay, *Taken, gScanStream)) continue;
        Panel.TakeSample();
        if (++Frame % Burst == 0) Panel.DrawData();
        Write(Frame);
    }
    CloseScanFile();
}

void Prepare(Walk& Walking, const PanelCase& Each)
{
    Walking.Open(Each.Session);
    Texts Pairs = PartsOf(Each.Settings, ' ');
    for (const std::string& Pair : Pairs) {
        const std::string Key = Pair.substr(0, Pair.find('='));
        if (!Key.empty()) Walking.Settings.SaveSetting(FindSetting(Key)->Section, Key, Pair.substr(Key.size() + 1));
    }
    LoadSettings();
    const std::string On = Each.Switches;
    gIsCurves = On.find('c') != std::string::npos;
    gIsValue = On.find('v') != std::string::npos;
    gIsInd = On.find('i') != std::string::npos;
    gIsScore = On.find('s') != std::string::npos;
    gIsGrid = On.find('g') != std::string::npos;
    gAppDir = "./";
    InitTargets();
    Walking.Lines.push_back("> " + std::string(Each.Session) + " " + Each.Settings + " " + Each.Switches);
    if (std::string(Each.Session) == "single.txt") AddRows();
}
} // namespace

TEST_CASE("the rower's panel draws a recording as in the golden list")
{
    Walk Walking;
    Walking.Run("sim single.txt --file=single.txt.qvn --strokes=6 --seed=4 --rate=33 --spread=6");
    Walking.Run("sim eight.txt --file=eight.txt.qvn --strokes=4 --seed=9 --rate=17 --freq=50");
    for (const PanelCase& Each : {PanelCase{"single.txt", 1, {1000, 600}, "gIsTargVals=1 gIsTargCurves=1", "cvisg"},
                                  {"single.txt", 3, {640, 900}, "gDrawWidth=1", "vs"},
                                  {"single.txt", 70, {1400, 500}, "", "cig"},
                                  {"eight.txt", 1, {800, 600}, "gIsTargVals=1", "cvisg"},
                                  {"eight.txt", 7, {333, 222}, "gIsTargVals=0 gIsTargCurves=1", "cvis"}}) {
        Prepare(Walking, Each);
        SurfaceLog Surface(Each.Size.X, Each.Size.Y);
        cRower Panel(Surface);
        Panel.Load();
        Panel.InitMode();
        Panel.Resize();
        for (const int16_t Value : {gSeatChan, gCFLow, gCFHigh, gRSFLow, gRSFHigh, gRSFmode})
            Walking.Lines.push_back(FormatNum(Value, "0"));
        Walking.NoteDrawing("begin", Surface);
        Play(std::string(Each.Session) + ".qvn", Panel, Each.Burst, [&](int Frame) {
            if (Frame == 90) Panel.Resize();
            if (!Panel.NewStroke() && Frame != 90) return;
            Walking.NoteDrawing("frame " + FormatNum(Frame, "0") + " " + Panel.TimeText() + " " + Panel.RateText() +
                                    " " + Panel.StrokesText(),
                                Surface, 6);
        });
        Walking.NoteDrawing("end", Surface);
        Panel.Resize();
        Walking.NoteDrawing("anew", Surface, 60);
        Walking.NoteTold();
    }
    Prepare(Walking, {"single.txt", 1, {800, 600}, "", "cvisg"});
    for (const SourceMode Source : {SourceTable, SourceDots}) {
        SurfaceLog Surface(800, 600);
        cRower Panel(Surface);
        Panel.Load(Source);
        Walking.Lines.push_back(Panel.InitMode("single.txt.qvn") ? "read" : "not read");
        for (gPlayTime = 0; gPlayTime < 6; gPlayTime += 0.05) {
            FindTimeIdx(gPlayTime);
            Panel.TakeSample();
            Panel.DrawData();
            if (Panel.NewStroke()) Walking.NoteDrawing(Panel.TimeText() + " " + Panel.RateText(), Surface, 6);
        }
        for (const int Row : {-1, 0, gRaw.UBound(), gRaw.UBound() + 1}) {
            gPlayIdx = Row;
            Panel.TakeSample();
            Panel.DrawData();
            Walking.NoteDrawing(Panel.TimeText(), Surface, 6);
        }
        Walking.Lines.push_back(Panel.InitMode("none.qvn") ? "read" : "not read");
        Panel.Unload();
        Walking.Lines.push_back(FormatShortest(gDeltaT) + " " + FormatShortest(gTimeStep));
        Walking.NoteDrawing("end", Surface);
    }
    gFile.View1.Clear();
    SurfaceLog Bare(800, 600);
    cRower Panel(Bare);
    Panel.Load();
    Panel.Resize();
    Walking.NoteDrawing("no rows", Bare);
    Walking.NoteTold();
    CheckGolden("whole-rower.txt", Walking.Lines);
}

TEST_CASE("the catch panel shows and draws a recording as in the golden list")
{
    Walk Walking;
    Walking.Run("sim single.txt --file=single.txt.qvn --strokes=7 --seed=6 --rate=29 --freq=50 --spread=8");
    for (const PanelCase& Each :
         {PanelCase{"single.txt", 1, {900, 500}, "gSeatChan=23 gTrunkChan=24", "cvisg"},
          {"single.txt",
           5,
           {500, 500},
           "gSeatChan=23 gTrunkChan=24 gRSFmode=1 gRSFval1=0.15 gCFLow=-60 gFFHigh=-70",
           "cv"},
          {"single.txt",
           5,
           {500, 500},
           "gSeatChan=23 gTrunkChan=0 gRSFval0=0.4 gRSFLow=40 gRSFHigh=60 gCFslope=1.5 gCFmarg=5 gRSFmarg=1",
           "cv"}}) {
        Prepare(Walking, Each);
        SurfaceLog Surface(Each.Size.X, Each.Size.Y);
        cCatch Panel(Surface);
        Panel.Load();
        cCatch::InitMode();
        Panel.Resize();
        Play("single.txt.qvn", Panel, Each.Burst, [&](int Frame) {
            const cCatch::News& New = Panel.Newest();
            if (!New.Stroke && !New.CF && !New.FF && !New.RSF && !New.NewStroke) return;
            const CatchStroke& S = Panel.Stroke();
            std::string Line = "frame " + FormatNum(Frame, "0");
            for (const bool Is : {New.Stroke, New.CF, New.FF, New.RSF, New.NewStroke})
                Line += Is ? " x" : " .";
            for (const double Value : {S.StrokeN * 1.0, S.Rate, S.RateAver, S.Length, S.SeatTravel, S.MaxHandleV,
                                       S.MaxSeatV, Panel.LastStrokeT(), Panel.Elapsed() * 1.0})
                Line += " " + FormatGeneral(Value, 8);
            for (const auto* Factor : {&Panel.CatchFactor(), &Panel.FinishFactor(), &Panel.StyleFactor()})
                if (*Factor)
                    Line += " | " + FormatGeneral((*Factor)->Last, 8) + " " + FormatGeneral((*Factor)->Mark, 8) + " " +
                            FormatGeneral((*Factor)->Average.value_or(-1), 8) + " " +
                            std::string(VerdictName((*Factor)->LastVerdict)) + " " +
                            std::string(VerdictName((*Factor)->AverageVerdict));
            Walking.Lines.push_back(Line);
            if (New.NewStroke) Walking.NoteDrawing("drawn", Surface, 3);
        });
        Panel.NewRun();
        cCatch::Unload();
        Walking.Lines.push_back(FormatShortest(gDeltaT));
        Walking.NoteDrawing("end", Surface);
    }
    CheckGolden("whole-catch.txt", Walking.Lines);
}
