// A sample through the coach's panel of sixteen sculls and through the catch panel of twenty rows, without the screen,
// against the rower's panel of the same session.
#include "panels.h"
#include "shares.h"

#include "live/catch/cCatch.h"
#include "live/coach/cCoach.h"
#include "live/rower/cRower.h"
#include "platform/plain/sSurface.h"
#include "records/mTargets.h"

#include <benchmark/benchmark.h>
#include <vector>

namespace {
constexpr int Seats = 8;

// Angle and force of two sculls for each seat behind the twenty channels, and a target for each variable.
void MakeCoachSession()
{
    MakePanelSession();
    gFile.BoatType = "4x";
    for (int Seat = 1; Seat <= Seats; ++Seat) {
        gFile.Crew.Grow().Name = "Rower " + FormatNum(Seat, "0");
        BoatRow& Rig = gFile.Boat.Grow();
        Rig.Seat = static_cast<int16_t>(Seat);
        Rig.Side = SideRightScull;
        Rig.OarInboard = 0.88F;
        Rig.OarLength = 2.88F;
        for (const char* Kind : {"A", "H"})
            for (const int16_t Side : {SideRightScull, SideLeftScull}) {
                CalibrRow& Channel = AddPanelChannel(Kind + FormatNum(Seat, "0"));
                Channel.Seat = static_cast<int16_t>(Seat);
                Channel.Side = Side;
            }
    }
    gIsTargVals = 1;
    gTargets.Heads.assign(TargetRow::FieldCnt + OarVarCnt, "Head");
    gTarget.Values.assign(OarVarCnt, 50);
    mScullMode = ScullSeparate;
    for (const char* Key : {"gSeatChan", "gTrunkChan"})
        gHost.Settings->SaveSetting("Models", Key, Key[1] == 'S' ? "3" : "5");
    gKeyMode = KeyMinimum;
}

// Takes and draws samples, and adds the shares of their times.
template <class Work>
void Measure(benchmark::State& State, const Work& Take)
{
    std::vector<double> Times;
    int64_t Number = StrokeSamples / 4; // behind the handle's turn
    for (auto _ : State) {
        NextPanelSample(++Number);
        Times.push_back(MicrosecondsOf(Take));
    }
    TellShares(State.counters, Times, "us");
}

void Coach(benchmark::State& State)
{
    MakeCoachSession();
    cCoach Panel;
    Panel.Load();
    Measure(State, [&] { Panel.TakeSample(); });
}

template <class Curves>
void CurvePanel(benchmark::State& State)
{
    MakeCoachSession();
    sSurface Screen(1280, 800);
    Curves Panel(Screen);
    Panel.Load();
    Panel.Resize();
    Measure(State, [&] {
        Panel.TakeSample();
        Panel.DrawData();
    });
}

BENCHMARK(Coach)->Name("coach");
BENCHMARK(CurvePanel<cRower>)->Name("coach/reference");
BENCHMARK(CurvePanel<cCatch>)->Name("catch");
BENCHMARK(CurvePanel<cRower>)->Name("catch/reference");
} // namespace
