// The session that live panels are measured on: twenty channels with a row of View1 each, whose samples follow a
// stroke.
#pragma once

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mSettings.h"
#include "platform/mHost.h"
#include "platform/plain/sSettings.h"

#include <chrono>
#include <cmath>
#include <cstdint>
#include <string>

inline constexpr int PanelRows = 20;
inline constexpr int StrokeSamples = 200; // 100 Hz, 30 strokes per minute

/// Appends a channel whose counts are hundredths.
inline CalibrRow& AddPanelChannel(const std::string& Name)
{
    CalibrRow& Channel = gFile.Calibr.Grow();
    Channel.Chan = gFile.ChanCnt = static_cast<int16_t>(gFile.Calibr.UBound());
    Channel.ParamID = Name;
    Channel.Lever = 0.85;
    Channel.Q0 = -80;
    Channel.Q1 = 0.01;
    return Channel;
}

/// Makes the session: rows with every operation in turn, stroke numbers and, in each fourth, a stroke model.
inline void MakePanelSession()
{
    static sSettings Store;
    gHost.Settings = &Store;
    LoadSettings();
    gFile = {};
    gFile.TimeStep = 0.01;
    for (int i = 1; i <= PanelRows; ++i) {
        AddPanelChannel("C" + FormatNum(i, "0")).Mode = static_cast<int16_t>(i == 1);
        const bool HasModel = i % 4 == 0;
        ViewRow& View = gFile.View1.Grow();
        View.ID = gFile.Calibr[i].ParamID;
        View.Mode = static_cast<int16_t>(i % 2);
        View.Oper = static_cast<int16_t>(i % 9);
        View.Color = i;
        View.MinXPar = -2;
        View.MaxXPar = 2;
        View.MinYPar = -300;
        View.MaxYPar = 300;
        View.Y1 = View.Y2 = 100;
        View.Arguments = "C1," + View.ID + ",C2,C3,C4";
        View.Functions = HasModel ? "Mod,U1,U2,D3,At" : "MinX,MaxX,MaxY,Catch";
        View.Criteria = "0.1,0.6,0.2,90";
        View.CritSTD = "0.02,0.05,0.02,5";
        View.DiamFontXY = "20,30,100,20";
    }
    gKeyChan = 1;
    gKeyQ0 = gFile.Calibr[1].Q0;
    gKeyQ1 = gFile.Calibr[1].Q1;
    gKeyMode = KeyIncreasing;
    gIsCurves = gIsValue = gIsScore = gIsInd = gIsGrid = true;
}

/// Puts sample Number into gData.
inline void NextPanelSample(int64_t Number)
{
    const double Phase = static_cast<double>(Number % StrokeSamples) / StrokeSamples * 6.283185307179586;
    gSampleTime = gData[0] = static_cast<double>(Number) * 0.01;
    gDeltaT = 0.01;
    for (std::size_t Chan = 1; Chan <= static_cast<std::size_t>(gFile.ChanCnt); ++Chan)
        gData[Chan] = std::round(8000 + 6000 * std::cos(Phase + static_cast<double>(Chan) * 0.1));
}

/// Microseconds that the work takes.
template <class Work>
double MicrosecondsOf(const Work& Do)
{
    using Clock = std::chrono::steady_clock;
    const auto Begin = Clock::now();
    Do();
    return std::chrono::duration<double, std::micro>(Clock::now() - Begin).count();
}
