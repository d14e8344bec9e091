// The sample paths of the live panels ask for no memory.
#include "core/mIni.h"
#include "live/catch/cCatch.h"
#include "live/coach/cCoach.h"
#include "live/rower/cRower.h"
#include "platform/mHost.h"
#include "platform/plain/sSurface.h"
#include "support/Case.h"

#include <cstdlib>
#include <new>

namespace {
long Allocations = 0;
}

void* operator new(std::size_t Bytes)
{
    ++Allocations;
    if (void* Place = std::malloc(Bytes)) return Place;
    throw std::bad_alloc();
}

void operator delete(void* Place) noexcept
{
    std::free(Place);
}

void operator delete(void* Place, std::size_t) noexcept
{
    std::free(Place);
}

TEST_CASE_FIXTURE(FreshState, "a sample through twenty rows asks for no memory within a stroke")
{
    gFile = {};
    gFrameCnt = 0;
    gFile.ChanCnt = 20;
    gFile.TimeStep = 0.01;
    for (int i = 1; i <= 20; ++i) {
        CalibrRow& Channel = gFile.Calibr.Grow();
        Channel.Chan = static_cast<int16_t>(i);
        Channel.ParamID = "C" + FormatNum(i, "0");
        Channel.Mode = static_cast<int16_t>(i % 2);
        Channel.Q1 = 1;
        ViewRow& View = gFile.View1.Grow();
        View.Mode = static_cast<int16_t>(i % 2);
        View.Oper = static_cast<int16_t>(i % 9);
        View.MaxXPar = View.MaxYPar = 3000;
        View.Y1 = View.Y2 = 100;
        View.Arguments = "C1," + Channel.ParamID + ",C2,C3,C4";
        View.Functions = i % 4 == 0 ? "Mod,U1,U2,D3,At" : "MinX,MaxY,Catch";
    }
    gKeyChan = 1;
    gFile.KeyThres = 500;
    gKeyMode = 1;
    gIsCurves = gIsValue = gIsScore = gIsInd = gIsGrid = true;
    sSurface Screen(1280, 800);
    cRower Panel(Screen);
    Panel.Load();
    Panel.Resize();
    int Starts = 0;
    long InStrokes = 0;
    for (int i = 0; i < 500; ++i) {
        gSampleTime = gData[0] = i * 0.01;
        for (std::size_t Chan = 1; Chan <= 20; ++Chan)
            gData[Chan] = (i * 10 + static_cast<int>(Chan)) % 1000;
        const long Before = Allocations;
        Panel.TakeSample();
        if (i % 3 == 0) Panel.DrawData();
        if (Panel.NewStroke())
            ++Starts;
        else
            InStrokes += Allocations - Before;
    }
    CHECK(Starts == 5);
    CHECK(Allocations > 0);
    CHECK(InStrokes == 0);
}

TEST_CASE_FIXTURE(FreshState,
                  "a sample of sixteen sculls, turns and finishes too, asks the coach's panel for no memory, "
                  "nor one with turns the catch panel")
{
    gFile = {};
    gFrameCnt = 0;
    gFile.BoatType = "4x";
    for (int Chan = 1; Chan <= 34; ++Chan) {
        CalibrRow& Row = gFile.Calibr.Grow();
        Row.ParamID = Chan % 2 == 1 ? "A" : "H";
        Row.Seat = static_cast<int16_t>((Chan + 3) / 4);
        Row.Side = static_cast<int16_t>(Chan % 4 < 2 ? SideRightScull : SideLeftScull);
        Row.Q1 = 1;
    }
    for (int Seat = 1; Seat <= 8; ++Seat)
        gFile.Crew.Grow().Name = "Somebody";
    gFile.ChanCnt = 34;
    gKeyChan = 1;
    gKeyQ1 = 1;
    gKeyMode = KeyMinimum;
    gFile.TimeStep = 0.01;
    gDoReZero = 1;
    gHost.Settings->SaveSetting("Models", "gSeatChan", "3");
    gHost.Settings->SaveSetting("Models", "gTrunkChan", "5");
    sSurface Screen(1280, 800);
    cCatch Catch(Screen);
    cCoach Coach;
    Catch.Load();
    Catch.Resize();
    Coach.Load(true);
    int Finishes = 0;
    int Factors = 0;
    long Asked = 0;
    for (int i = 0; i < 2000; ++i) {
        gSampleTime = gData[0] = 1 + i * 0.01;
        for (std::size_t Chan = 1; Chan <= 34; ++Chan)
            gData[Chan] = -40 * std::cos(3 + 0.03 * i - 0.05 * static_cast<double>(Chan));
        const long Before = Allocations;
        Coach.TakeSample();
        Catch.TakeSample();
        Asked += Allocations - Before;
        Finishes += Coach.Changes().empty() ? 0 : 1;
        Factors += Catch.Newest().CF ? 1 : 0;
        Catch.DrawData();
    }
    CHECK(Coach.RowCount() == 8);
    CHECK(Finishes > 8);
    CHECK(Factors > 3);
    CHECK(Asked == 0);
}
