// Every channel as a trace of raw counts that sweeps across the window.
#pragma once

#include "platform/iSurface.h"

#include <array>
#include <cstdint>

class cTrackChans
{
public:
    explicit cTrackChans(iSurface& InitSurface);

    /// Takes the channels of the session that is open now.
    void Load();

    /// Takes margins and scales from the size of the surface and starts the sweep anew.
    void SetUpPoly();

    /// Draws frame and scale on an empty surface.
    void DrawGrid();

    /// Takes the counts of gData as the next column of all traces, in place of the one taken a sweep ago.
    void TakeSample();

    /// Draws the columns taken since the last time, and the cursor after them.
    void DrawData();

    /// Whether counts are still coming; traces that have ended are grey until the sweep passes over them.
    void SetLive(bool Live);

private:
    static constexpr int Columns = 255;
    static constexpr int Channels = 85;

    int32_t ColumnX(int Column) const { return mTrace[static_cast<std::size_t>(Column)][0].X; }
    SurfacePoint& TraceAt(int Column, int Chan)
    {
        return mTrace[static_cast<std::size_t>(Column)][static_cast<std::size_t>(Chan)];
    }
    void DrawColumn(int Column);
    void DrawTrace(int Chan, int From, int To);
    void DrawCursor();

    iSurface& Surface;
    int16_t mChanCnt = 0;
    int PenWidth = 1;
    int32_t mWidth = 0;
    int32_t mHeight = 0;
    int32_t mLeft = 0;
    int32_t mTop = 0;
    double mXStep = 0;  // drawing units a column
    double mYScale = 0; // drawing units a count
    std::array<std::array<SurfacePoint, Channels>, Columns> mTrace{};
    int32_t mPos = 0;     // the column that is taken next
    int Undrawn = 0;      // columns before it that are not on the surface yet
    bool IsSwept = false; // the traces have gone all the way across once
};
