// Small whole numbers, of which many are equal, through everything that compares: limits are met exactly again and
// again.
#include "whole/Walk.h"

#include "calibration/mCalFit.h"
#include "calibration/mCalPoints.h"
#include "calibration/mRefBuild.h"
#include "core/mIni.h"
#include "live/catch/cCatch.h"
#include "live/catch/cTurns.h"
#include "live/coach/cCoach.h"
#include "live/ergo/cErg.h"
#include "live/panel/cStrokeModel.h"
#include "live/panel/cStrokeStats.h"
#include "live/rower/cRower.h"
#include "processing/Recording.h"
#include "processing/mFilter.h"
#include "processing/mProcess.h"
#include "processing/mSample.h"
#include "processing/mStrokeLog.h"

#include <random>

namespace {
struct Ties : Walk
{
    std::mt19937 Random{5};

    // A whole number from Low to High.
    double Any(int Low, int High)
    {
        return Low + static_cast<double>(Random() % static_cast<unsigned>(High - Low + 1));
    }

    std::vector<double> Many(int Count, int Low, int High)
    {
        std::vector<double> Values;
        for (int i = 0; i < Count; ++i)
            Values.push_back(Any(Low, High));
        return Values;
    }

    // Strokes that rise and fall by 0 to 2.
    std::vector<double> Swings(int Count)
    {
        std::vector<double> Values{0};
        while (Values.size() < static_cast<std::size_t>(Count))
            Values.push_back(std::clamp(Values.back() + (Values.size() % 24 < 12 ? 1 : -1) * Any(0, 2), -6.0, 6.0));
        return Values;
    }

    void Note(std::string Line, const std::vector<double>& Values)
    {
        for (const double Value : Values)
            Line += " " + Rounded(Value, 8);
        Lines.push_back(Line);
    }
};

std::vector<double> Of(const std::optional<StrokeMeasures>& S)
{
    if (!S) return {};
    return {S->U1, S->U2, S->D3, S->Angle, S->LowestY, S->Peak, S->Rise};
}

std::vector<double> Of(const ErgStroke& S)
{
    return {S.StrokeCnt * 1.0, S.CycleTime, S.Rate, S.RateAver, S.DriveTime, S.RecovTime, S.Length,
            S.MaxForce,        S.MaxForceT, S.Work, S.Power,    S.AverForce, S.Impulse,   S.IsWhole ? 1.0 : 0.0,
            S.MeanForce()};
}
} // namespace

TEST_CASE_FIXTURE(
    Ties, "boundaries, patterns, logs and filters of recordings with equal samples are those of the golden list")
{
    for (int Run = 0; Run < 24; ++Run) {
        StartFresh();
        gHost = {&Dialogs, &Status, &Settings};
        const int Count = Run < 4 ? Run + 1 : 150;
        MakeRecording({Run % 2 == 0 ? Swings(Count) : Many(Count, -2, 2), Many(Count, -1, 3)}, 0.5);
        SetCurFile("t.txt");
        gKeyMode = static_cast<int16_t>(Run % 5);
        gFile.KeyThres = Run % 3 == 0 ? 1 : 0;
        StdFilter = Run % 4 * 0.5;
        for (int i = 1; i <= 2; ++i) {
            gFile.Calibr[i].Min = -2;
            gFile.Calibr[i].Max = 2;
        }
        std::vector<double> Found;
        KeyWindow Win = WindowAt(Run % 7);
        int32_t Cur = Run % 7;
        for (double Time = 0; DetectCycle(Win, Cur, Count - Run % 4, Time);)
            Found.insert(Found.end(), {static_cast<double>(Cur), Time});
        Note("boundaries " + FormatNum(Run, "0"), Found);
        int32_t Stop = Run % 2 == 0 ? 0 : Count - 10;
        for (const int Pass : {1, 2}) {
            Win = WindowAt(5);
            const bool Is = Guard("run", [&] { return ProcessCycles(Win, 5, Stop, Pass); });
            Note(Is ? "run" : "no run",
                 {gStrokeCnt * 1.0, gBadStrokes * 1.0, gMeanCycleT, gCycleSD, gRate, gRateSD, gTestTime});
        }
        Guard("log", [&] { return ExportStrokes(Win, 3, Stop); });
        Guard("strokes", [&] {
            ProcessStrokes(Win, 4, static_cast<int16_t>(Run));
            return true;
        });
        Note("samples", {gFile.Desc.UBound() * 1.0, gStrokeCnt * 1.0});
        for (const DescRow& Row : gFile.Desc)
            Note(Row.SampleID, {Row.TestTime, Row.Rate, Row.Start, Row.Finish, Row.StrokeCount * 1.0});
        const bool IsZeroed = ZeroTime(), IsFiltered = SpikeFilter();
        CellSums Sums;
        for (int i = 0; i <= gRaw.UBound(); ++i)
            for (int Chan = 0; Chan <= 2; ++Chan)
                Sums.Add(FormatGeneral(gRaw(Chan, i), 9), i * 3 + Chan);
        Lines.push_back((IsZeroed ? "zeroed " : "short ") + Sums.Text() + (IsFiltered ? " filtered" : ""));
        NoteTold();
        NoteFiles();
    }
    CheckGolden("whole-ties.txt", Lines);
}

TEST_CASE_FIXTURE(Ties, "turns, strokes and points with equal values are those of the golden list")
{
    for (int Run = 0; Run < 243; ++Run) {
        cTurns Turns;
        double Value = 0;
        Turns.Begin(0, 0);
        for (int i = 0, Rest = Run; i < 5; ++i, Rest /= 3)
            Turns.Take(i + 1, Value += Rest % 3 - 1);
        const bool IsTurn = Turns.IsForwardTurn() || Turns.IsBackwardTurn() || Turns.IsFinishTurn();
        if (IsTurn)
            Note(FormatNum(Run, "0") + (Turns.IsForwardTurn() ? "f" : "") + (Turns.IsBackwardTurn() ? "b" : "") +
                     (Turns.IsFinishTurn() ? "e" : ""),
                 {Turns.TurnTime(), Turns.ValueAt(3.5), Turns.TimeAt(1), Turns.Velocity()});
    }
    cForwardTurn Turn;
    cErgStrokes Strokes;
    Turn.Begin(0, 0);
    const std::vector<double> Keys = Swings(400);
    for (std::size_t i = 0; i < Keys.size(); ++i) {
        const double Time = static_cast<double>(i - i / 50);
        if (const auto Found = Turn.Take(Time, Keys[i])) Note("turn", {*Found});
        if (Strokes.Take(Time, Keys[i], Any(-3, 9))) Note("stroke", Of(Strokes.Last()));
    }
    for (const int Count : {1, 9, 10, 11, 14, 20, 30, 40, 254, 255, 256, 257, 258, 259, 260, 300}) {
        for (int Run = 0; Run < (Count < 50 ? 16 : 6); ++Run) {
            cStrokeModel Model;
            cStrokeStats Stats;
            // At the end of the room a turn of its own.
            std::vector<double> A = Swings(Count), Y = Many(Count, Run % 2 == 0 ? -3 : 0, 4 + Run);
            for (std::size_t i = 10; Count > 200 && i < A.size() - 8; ++i)
                A[i] = -6;
            for (std::size_t i = 0; i < A.size(); ++i) {
                Model.Take(A[i], Run == 5 ? std::max(0.0, std::min(10.0, 3 * A[i])) : Y[i]);
                Stats.CheckFunc(A[i], Y[i], std::floor(A[i] / 2), static_cast<double>(i));
                if (i == 3) Stats.ResetFuncs();
            }
            Note("force of " + FormatNum(Count, "0"), Of(Model.MeasureForce()));
            Note("acceleration", Of(Model.MeasureAcceleration(20 + 10 * Run, 0.04 * Run)));
            std::vector<double> Values;
            for (const char* Key :
                 {"MinX", "MaxX", "DelX", "MinY", "MaxY", "DelY", "MinA", "MaxA", "DelA", "As", "Catch"})
                Values.push_back(Stats.Value(Key, 7).value_or(-99));
            Note("numbers", Values);
        }
    }
    for (int Run = 0; Run < 20; ++Run) {
        CalPoints Points;
        for (int i = 0; i < Run + 1; ++i)
            Points.push_back({Any(0, 12), Run % 2 == 0 ? Any(0, 9) : 10 - std::abs(i - Run / 2.0)});
        const CalRange Range = FindMinMax(Points);
        const TableLimits Limits = FindLimits(Points);
        const CalLine Line = SumsOf(Points).Line();
        Note("points",
             {Range.MinP, Range.MaxP, Range.MinL, Range.MaxL, Limits.Min, Limits.Max, Line.Q0, Line.Q1, Line.R2});
        for (const double CutOff : {0.0, 0.125, 0.25}) {
            const CalAnalysis One = AnalyseOneLine(Points, 1, 9, CutOff), Two = AnalyseTwoLines(Points, CutOff);
            for (const CalBranch* Each : {&One.Up, &Two.Up, &Two.Down})
                Note("fit", {static_cast<double>(Each->Points.size()), Each->Q[0], Each->Q[1], Each->Q[2],
                             Each->QInv[0], Each->QInv[1], Each->QInv[2], Each->R});
        }
        RefTable Table;
        const int Empty = BuildRefTable(Points, 0, 9, Table);
        CellSums Sums;
        for (std::size_t i = 0; i <= RefTable::MaxRow; ++i)
            for (const double X : {Table.N[i], Table.X[i], Table.Y[i]})
                Sums.Add(FormatGeneral(X, 8), static_cast<double>(i));
        Lines.push_back("table " + FormatNum(Empty, "0") + " " + Sums.Text());
    }
    CheckGolden("whole-equals.txt", Lines);
}

TEST_CASE_FIXTURE(Ties, "panels take and draw equal values as in the golden list")
{
    for (int Run = 0; Run < 10; ++Run) {
        Open("single.txt");
        for (int Chan = 17; Chan <= 24; ++Chan) {
            CalibrRow& Row = gFile.Calibr[Chan];
            Row.Mode = Row.ProcMode = 0;
            Row.Q0 = Row.Q2 = 0;
            Row.Q1 = 1;
        }
        for (ViewRow& Row : gFile.View1) {
            Row.MinXPar = Row.MinYPar = -6; // values on the edges
            Row.MaxXPar = Row.MaxYPar = 6;
            Row.Functions = "MinX,MaxX,DelX,MinY,MaxY,DelY,Catch";
        }
        gFile.KeyThres = static_cast<float>(Run % 3 - 1);
        gFile.TimeStep = 0.1;
        ResolveChannels();
        gKeyMode = static_cast<int16_t>(Run % 5);
        for (const auto& [Key, Value] :
             {std::pair{"gSeatChan", "23"}, {"gTrunkChan", "24"}, {"gRSFmode", Run < 5 ? "0" : "1"}})
            Settings.SaveSetting("Models", Key, Value);
        SurfaceLog First(500, 300), Second(500, 300), Third(400, 200);
        cRower Rower(First);
        cCatch Catch(Second);
        cErg Erg(Third);
        cCoach Coach;
        gDoReZero = static_cast<int16_t>(Run % 2);
        mScullMode = static_cast<int16_t>(Run / 2 % 2);
        mDisplayMode = static_cast<int16_t>(Run / 4 % 2);
        Rower.Load();
        Rower.InitMode();
        Catch.Load();
        cCatch::InitMode();
        Erg.Load();
        Coach.Load(true);
        const std::vector<double> A = Swings(330), S = Swings(330), T = Swings(330), H = Many(330, -7, 7);
        for (std::size_t i = 0; i < A.size(); ++i) {
            gSampleTime = gData[0] = static_cast<double>(i / 2) * 0.2; // two frames a stamp
            ++gFrameCnt;
            gData[17] = gData[18] = gData[21] = A[i];
            gData[19] = gData[20] = H[i];
            gData[23] = S[i];
            gData[24] = T[i];
            Rower.TakeSample();
            Catch.TakeSample();
            Erg.TakeSample();
            Coach.TakeSample();
            if (i % 3 == 0) Rower.DrawData();
            if (i % 4 == 0) Erg.DrawData();
            if (Erg.Newest().Stroke) Note("erg", Of(Erg.Stroke()));
            if (Erg.Newest().CF) Note("erg turns", {Erg.CF(), Erg.CatchFactor().value_or(-999)});
            if (Coach.IsStart()) Note("clock", {Coach.Clock().RateNow(), Coach.Clock().RateAver()});
            for (const CoachPlace& Place : Coach.Changes())
                Note("coach " + cCoach::Text(Coach.Cell(Place)) + (Coach.IsClockStale() ? " stale" : ""),
                     {Place.Row * 1.0, Place.Column * 1.0, Coach.Cell(Place).Value});
            const cCatch::News& New = Catch.Newest();
            if (Rower.NewStroke()) Lines.push_back("stroke " + Rower.TimeText() + " " + Rower.RateText());
            if (!New.Stroke && !New.CF && !New.FF && !New.RSF && !New.NewStroke) continue;
            std::vector<double> Values{static_cast<double>(i),    Catch.LastStrokeT(),       Catch.Stroke().Length,
                                       Catch.Stroke().SeatTravel, Catch.Stroke().MaxHandleV, Catch.Stroke().MaxSeatV};
            for (const auto* Factor : {&Catch.CatchFactor(), &Catch.FinishFactor(), &Catch.StyleFactor()})
                if (*Factor) Values.insert(Values.end(), {(*Factor)->Last, (*Factor)->Mark});
            Note(New.NewStroke ? "catch new" : "catch", Values);
        }
        NoteDrawing("drawn", First);
        NoteDrawing("erg drawn", Third);
    }
    CheckGolden("whole-edges.txt", Lines);
}
