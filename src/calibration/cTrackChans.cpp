// The sweeping traces.
#include "calibration/cTrackChans.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "calibration/mChanGrid.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"

#include <algorithm>

namespace {
constexpr int32_t CursorColour = 0x7F7F7F;
constexpr int FewChans = 24; // traces that are drawn wide
} // namespace

cTrackChans::cTrackChans(iSurface& InitSurface) : Surface(InitSurface)
{
    Load();
}

void cTrackChans::Load()
{
    mChanCnt = std::clamp<int16_t>(gFile.ChanCnt, 0, LastDataChan);
    PenWidth = mChanCnt <= FewChans ? 2 : 1;
}

void cTrackChans::SetUpPoly()
{
    const SurfacePoint Size = Surface.Size();
    mWidth = Size.X;
    mHeight = Size.Y;
    mLeft = Place(mWidth * 0.02);
    mTop = Place(mHeight * 0.02);
    mXStep = static_cast<double>(mWidth - 2 * mLeft) / Columns;
    mYScale = (mHeight - 2 * mTop) / FullScale;
    for (int Column = 0; Column < Columns; ++Column)
        mTrace[static_cast<std::size_t>(Column)].fill({Place(Column * mXStep) + mLeft, mTop});
    mPos = Undrawn = 0;
    IsSwept = false;
}

void cTrackChans::DrawGrid()
{
    Surface.Clear(0xFFFFFF);
    Surface.SetFill(NoFill);
    const int Size = std::clamp(mTop, 9, 12);
    Surface.SetFont(Size);
    for (int k = 0; k < ScaleLines; ++k) {
        const double Y = Place(ScaleValue(k) * mYScale) + mTop - 1;
        Surface.SetPen(ScaleColour);
        Surface.Line(mLeft, Y, mWidth - mLeft, Y);
        Surface.SetPen(GridColour);
        Surface.Text(mLeft + 4, Y + 2, FormatNum(Place(ScaleValue(k)), "0"));
    }
    Surface.SetPen(GridColour);
    Surface.Box(mLeft - 1, mTop - 1, mWidth - mLeft + 1, mHeight - mTop + 1);
    Surface.KeepGround();
}

void cTrackChans::TakeSample()
{
    for (int i = 1; i <= mChanCnt; ++i) {
        // A count beyond the scale runs along outside the frame.
        const int32_t Y = Place(mYScale * gData[static_cast<std::size_t>(i)]) + mTop;
        TraceAt(mPos, i).Y = std::clamp(Y, mTop / 2, mHeight - mTop / 2);
    }
    mPos = (mPos + 1) % Columns;
    if (mPos == 0) IsSwept = true;
    // Drawing a column needs the two before it: of a whole sweep the two oldest columns are not drawn.
    Undrawn = std::min(Undrawn + 1, Columns - 2);
}

void cTrackChans::DrawData()
{
    for (; Undrawn > 0; --Undrawn)
        DrawColumn((mPos - Undrawn + Columns) % Columns);
    DrawCursor();
}

// One strip of the background is restored for all channels, which removes the segments of the last sweep and the
// cursor. The pen's round ends reach beyond a column, so the previous segment is drawn again with the new one.
void cTrackChans::DrawColumn(int Column)
{
    const int32_t From = Column < 2 ? 0 : ColumnX(Column - 2) + 1;
    Surface.RestoreGround(From, 0, ColumnX(Column) + 1, mHeight);
    for (int i = 1; i <= mChanCnt; ++i) {
        // After the last colour of the table the pen keeps the colour it has.
        const int Colour = ((i - 1) & 255) + 1;
        if (Colour < static_cast<int>(gRGB.size())) Surface.SetPen(At(gRGB, Colour), PenWidth);
        DrawTrace(i, std::max(Column - 2, 0), Column);
    }
}

void cTrackChans::DrawCursor()
{
    Surface.SetPen(CursorColour);
    Surface.Line(ColumnX(mPos), mTop, ColumnX(mPos), mHeight - mTop);
}

void cTrackChans::DrawTrace(int Chan, int From, int To)
{
    for (int Column = From + 1; Column <= To; ++Column) {
        const SurfacePoint& Before = TraceAt(Column - 1, Chan);
        const SurfacePoint& Now = TraceAt(Column, Chan);
        Surface.Line(Before.X, Before.Y, Now.X, Now.Y);
    }
}

void cTrackChans::SetLive(bool Live)
{
    if (Live) return;
    Surface.RestoreGround(0, 0, mWidth, mHeight);
    Surface.SetPen(DeadColour, PenWidth);
    for (int i = 1; i <= mChanCnt; ++i) {
        DrawTrace(i, 0, mPos - 1);
        if (IsSwept) DrawTrace(i, mPos, Columns - 1);
    }
    DrawCursor();
}
