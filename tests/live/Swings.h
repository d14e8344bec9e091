// An even rower: a stroke in two seconds, sampled fifty times a second.
#pragma once

#include "platform/mHost.h"
#include "support/Case.h"
#include "support/SurfaceLog.h"

using doctest::Approx;

constexpr double Period = 2;  // s of a stroke
constexpr double Step = 0.02; // s between samples

/// Lowest at 0, where a stroke begins.
inline double Swing(double Time)
{
    return -std::cos(6.283185307179586 * Time / Period);
}

/// A session of these channels, whose values are Q0 + Q1 times the count, the seat among them.
inline void MakeCrew(std::initializer_list<const char*> Names, const char* SeatChan, double Q0, double Q1)
{
    gFile = {};
    gFrameCnt = 0;
    gFile.TimeStep = Step;
    for (const char* Name : Names) {
        CalibrRow& Channel = gFile.Calibr.Grow();
        Channel.Chan = gFile.ChanCnt = static_cast<int16_t>(gFile.Calibr.UBound());
        Channel.ParamID = Name;
        Channel.Q0 = Q0;
        Channel.Q1 = Q1;
    }
    gHost.Settings->SaveSetting("Models", "gSeatChan", SeatChan);
}
