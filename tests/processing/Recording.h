// Recordings made up for tests of the processing.
#pragma once

#include "support/Case.h"

/// Puts channels of equal length into the store, sampled every Step seconds from 0: the first is the key channel "A1",
/// the second "H1", further ones have no name.
inline void MakeRecording(const std::vector<std::vector<double>>& Channels, double Step = 1)
{
    const int Last = static_cast<int>(Channels.size());
    gRaw.Create(Last, static_cast<int>(Channels[0].size()) - 1);
    gFile.Calibr.Resize(Last);
    gFile.ChanCnt = static_cast<int16_t>(Last);
    for (int i = 0; i <= gRaw.UBound(); ++i) {
        gRaw(0, i) = i * Step;
        for (int Chan = 1; Chan <= Last; ++Chan)
            gRaw(Chan, i) = Channels[static_cast<std::size_t>(Chan) - 1][static_cast<std::size_t>(i)];
    }
    for (int Chan = 1; Chan <= Last; ++Chan)
        gFile.Calibr[Chan].Chan = static_cast<int16_t>(Chan);
    gFile.KeyChanID = gFile.Calibr[1].ParamID = "A1";
    if (Last > 1) gFile.Calibr[2].ParamID = "H1";
    ResolveChannels();
}

/// A channel that repeats One, Count times.
inline std::vector<double> Repeat(const std::vector<double>& One, int Count)
{
    std::vector<double> All;
    for (int i = 0; i < Count; ++i)
        All.insert(All.end(), One.begin(), One.end());
    return All;
}

/// A key channel that falls through 0 at 6.5 and again after each of the given numbers of samples. A boundary is
/// completed 2.5 samples later; Tail more samples follow the last one.
inline std::vector<double> Cycles(const std::vector<std::size_t>& Lengths, std::size_t Tail = 60)
{
    std::vector<double> Key(5, 1);
    for (const std::size_t Length : Lengths) {
        Key.insert(Key.end(), {3, 1, -1, -3});
        Key.insert(Key.end(), Length - 5, -5);
        Key.push_back(1);
    }
    Key.insert(Key.end(), {3, 1, -1, -3, -5});
    Key.insert(Key.end(), Tail, -5);
    return Key;
}
