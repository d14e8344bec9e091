// Changes of the sample store and of the stroke table.
#include "views/data/mViewEdit.h"

#include "core/mGlobData.h"
#include "files/mQVN.h"
#include "platform/mHost.h"
#include "processing/mFilter.h"

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

namespace {
constexpr int AccChan = 5;
constexpr int VelChan = 15;

/// What a deletion takes from a channel: the samples between the limits, and the last one of the store.
struct Removed
{
    std::vector<double> Values;
    double Last = 0;
};
} // namespace

bool ViewUndo::Run()
{
    if (!Restore) return false;
    std::exchange(Restore, {})();
    return true;
}

bool DeleteSamples(int32_t Start, int32_t Stop, FrameMap& Map, ViewUndo& Undo)
{
    const int32_t N = gRaw.UBound();
    Start = std::clamp(Start, 0, std::max(N, 0));
    Stop = std::clamp(Stop, 0, std::max(N, 0));
    if (Start >= Stop) return false;
    auto Cut = std::make_shared<std::vector<Removed>>();
    for (int Chan = 0; Chan <= gRaw.ChannelUBound(); ++Chan) {
        const auto Values = gRaw.Channel(Chan);
        Cut->push_back({{Values.begin() + Start, Values.begin() + Stop}, Values[static_cast<std::size_t>(N)]});
        std::copy(Values.begin() + Stop, Values.begin() + N, Values.begin() + Start);
    }
    gRaw.Resize(Start + N - Stop - 1);
    FrameMap Former = Map;
    if (!Map.Frames.empty()) {
        Map.Frames.pop_back();
        Map.Frames.erase(Map.Frames.begin() + Start, Map.Frames.begin() + std::min(Stop, N));
    }
    Undo.Set([Cut, Start, Stop, N, Former = std::move(Former), &Map] {
        gRaw.Resize(N);
        for (int Chan = 0; Chan <= gRaw.ChannelUBound(); ++Chan) {
            const auto Values = gRaw.Channel(Chan);
            const Removed& Back = (*Cut)[static_cast<std::size_t>(Chan)];
            std::copy_backward(Values.begin() + Start, Values.begin() + Start + N - Stop, Values.begin() + N);
            std::copy(Back.Values.begin(), Back.Values.end(), Values.begin() + Start);
            Values[static_cast<std::size_t>(N)] = Back.Last;
        }
        Map = Former;
    });
    return true;
}

bool FilterSamples(ViewUndo& Undo)
{
    auto Former = std::make_shared<std::vector<std::vector<double>>>();
    for (int Chan = 0; Chan <= gRaw.ChannelUBound(); ++Chan)
        Former->emplace_back(gRaw.Channel(Chan).begin(), gRaw.Channel(Chan).end());
    ZeroTime();
    if (!SpikeFilter()) return false;
    Undo.Set([Former] {
        for (int Chan = 0; Chan <= gRaw.ChannelUBound(); ++Chan)
            gRaw.Put(Chan, 0, (*Former)[static_cast<std::size_t>(Chan)]);
    });
    return true;
}

bool TrimRows(int FirstRow, int LastRow, ViewUndo& Undo)
{
    const int32_t From = gScanRows[FirstRow].Pos, To = gScanRows[LastRow].Pos;
    RowArray<ScanRow> Kept;
    for (const ScanRow& Row : gScanRows)
        if (Row.Pos > From && Row.Pos < To) Kept.Grow() = Row;
    if (Kept.UBound() < 1) return false;
    Kept[0] = gScanRows[FirstRow];
    auto Former = std::make_shared<RowArray<ScanRow>>(std::exchange(gScanRows, std::move(Kept)));
    Undo.Set([Former] { gScanRows = *Former; });
    return true;
}

bool AccToVel(int32_t Start, int32_t Stop, ViewUndo& Undo)
{
    Start = std::max(Start, 0);
    Stop = std::min(Stop, gRaw.UBound());
    if (Start > Stop) return false;
    if (gRaw.ChannelUBound() < VelChan) {
        MsgBox("The session has no channel 15 that could take the velocity.", TitleInformation);
        return false;
    }
    const auto Acc = gRaw.Channel(AccChan), Vel = gRaw.Channel(VelChan), Time = gRaw.Channel(0);
    auto Former = std::make_shared<std::vector<double>>(Vel.begin(), Vel.end());
    double Sum = 0;
    const auto First = static_cast<std::size_t>(Start);
    for (std::size_t i = First; i <= static_cast<std::size_t>(Stop); ++i) {
        if (i > First) Sum += (Acc[i - 1] + Acc[i]) / 2 * (Time[i] - Time[i - 1]);
        Vel[i] = Sum;
    }
    Undo.Set([Former] {
        if (gRaw.UBound() + 1 == static_cast<int>(Former->size()))
            std::copy(Former->begin(), Former->end(), gRaw.Channel(VelChan).begin());
    });
    return true;
}
