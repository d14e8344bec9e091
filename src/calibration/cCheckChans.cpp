// The channel indicator's staircase.
#include "calibration/cCheckChans.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "calibration/mChanGrid.h"
#include "core/mGlobData.h"

#include <algorithm>

namespace {
constexpr int32_t CurveColour = 0xC80000; // blue, 200
constexpr int CurveWidth = 2;
constexpr int MarkHeight = 10;
constexpr int MostChans = 127; // that the points hold
} // namespace

cCheckChans::cCheckChans(iSurface& InitSurface) : Surface(InitSurface)
{
    Load();
}

void cCheckChans::Load()
{
    mChanCnt = std::clamp<int16_t>(gFile.ChanCnt, 0, MostChans);
    Shown = Form::None;
}

void cCheckChans::SetUpPoly()
{
    const SurfacePoint Size = Surface.Size();
    mWidth = Size.X;
    mHeight = Size.Y;
    mLeft = Place(mWidth * 0.06);
    mTop = Place(mHeight * 0.02);
    mXScale = (mWidth - 2 * mLeft) / FullScale;
    mPoly.fill({mLeft, mTop});
    mPolyCnt = 1;
    if (mChanCnt == 0) return;
    const double Pitch = static_cast<double>(mHeight - 2 * mTop) / mChanCnt;
    mRowH = Place(Pitch);
    // The vertical part of a step runs down the channel's own row; the horizontal part below it leads to the next
    // channel.
    for (int i = 1; i <= mChanCnt; ++i) {
        const auto Top = static_cast<std::size_t>(2 * i - 1);
        mPoly[Top].Y = mPoly[Top - 1].Y;
        mPoly[Top + 1].Y = Place(Pitch * i) + mTop;
    }
    mPolyCnt = static_cast<int16_t>(2 * mChanCnt + 1);
}

void cCheckChans::DrawGrid()
{
    Surface.Clear(0xFFFFFF);
    Surface.SetFill(NoFill);
    DrawScale();
    Surface.SetPen(GridColour);
    Surface.Box(mLeft - 1, mTop - 1, mWidth - mLeft + 1, mHeight - mTop + 1);
    DrawLabels();
    Surface.KeepGround();
    if (Shown == Form::None) return;
    TakeCounts();
    Paint();
}

void cCheckChans::DrawScale()
{
    const int Size = std::clamp(mTop - 2, 8, 12);
    const int Every = mXScale * ScaleValue(1) < 4 * Size ? 2 : 1;
    Surface.SetFont(Size);
    for (int k = 0; k < ScaleLines; ++k) {
        const double X = Place(ScaleValue(k) * mXScale) + mLeft - 1;
        Surface.SetPen(ScaleColour);
        Surface.Line(X, mTop, X, mHeight - mTop);
        Surface.SetPen(GridColour);
        if (k % Every == 0)
            Surface.Text(X, std::min(mHeight - mTop + 1, mHeight - Size - 3), FormatNum(Place(ScaleValue(k)), "0"),
                         eAlign::Centre);
    }
}

// Names that are higher than their rows are spread over several columns, so that all eighty-four can be read.
void cCheckChans::DrawLabels()
{
    const int Size = std::clamp(mRowH - 3, 10, 14);
    const int Columns = mRowH > Size ? 1 : (Size + 2) / std::max(mRowH, 1) + 1;
    std::size_t Longest = 0;
    for (int i = 1; i <= mChanCnt; ++i)
        Longest = std::max(Longest, ChanLabel(i).size());
    const double ColumnWidth = Size * (1.5 + 0.62 * static_cast<double>(Longest));
    Surface.SetFont(Size);
    for (int i = 1; i <= mChanCnt; ++i) {
        const SurfacePoint& Foot = At(mPoly, 2 * i);
        Surface.SetPen(Pale(ChanColour(i)));
        Surface.Line(mLeft, Foot.Y + 1, mWidth - mLeft, Foot.Y + 1);
        const double X = 3 + (i - 1) % Columns * ColumnWidth;
        const double Middle = Foot.Y - mRowH / 2.0;
        Surface.SetFill(ChanColour(i));
        Surface.SetPen(Legible(ChanColour(i)));
        Surface.Box(X, Middle - Size * 0.25, X + Size * 0.5, Middle + Size * 0.25);
        Surface.Text(X + Size * 0.8, Middle - Size * 0.6, ChanLabel(i));
    }
}

void cCheckChans::TakeCounts()
{
    for (int i = 1; i <= std::min<int>(mChanCnt, LastDataChan); ++i) {
        const auto Chan = static_cast<std::size_t>(i);
        // A count beyond the scale is shown beside the bar, where it can be seen.
        const int32_t X = std::clamp(Place(mXScale * gData[Chan]) + mLeft, mLeft / 2, mWidth - mLeft / 2);
        mPoly[2 * Chan - 1].X = X;
        mPoly[2 * Chan].X = X;
    }
}

// Restores the background along the line only; what is near it stays.
void cCheckChans::Erase()
{
    if (Shown == Form::Staircase)
        for (int i = 1; i < mPolyCnt; ++i) {
            const SurfacePoint& A = mPoly[static_cast<std::size_t>(i - 1)];
            const SurfacePoint& B = mPoly[static_cast<std::size_t>(i)];
            Surface.RestoreGround(std::min(A.X, B.X) - CurveWidth, std::min(A.Y, B.Y) - CurveWidth,
                                  std::max(A.X, B.X) + CurveWidth, std::max(A.Y, B.Y) + CurveWidth);
        }
    if (Shown == Form::Marks)
        for (int i = 2; i < mPolyCnt; i += 2) {
            const SurfacePoint& Foot = mPoly[static_cast<std::size_t>(i)];
            Surface.RestoreGround(Foot.X - CurveWidth, Foot.Y - MarkHeight - CurveWidth, Foot.X + CurveWidth,
                                  Foot.Y + CurveWidth);
        }
}

void cCheckChans::Paint()
{
    Surface.SetPen(IsLive ? CurveColour : DeadColour, CurveWidth);
    if (Shown == Form::Staircase) Surface.Polyline({mPoly.data(), static_cast<std::size_t>(mPolyCnt)});
    if (Shown == Form::Marks)
        for (int i = 2; i < mPolyCnt; i += 2) {
            const SurfacePoint& Foot = mPoly[static_cast<std::size_t>(i)];
            Surface.Line(Foot.X, Foot.Y - MarkHeight, Foot.X, Foot.Y);
        }
}

void cCheckChans::DrawData()
{
    Erase();
    TakeCounts();
    Shown = Form::Staircase;
    Paint();
}

void cCheckChans::DrawChansLine()
{
    Erase();
    TakeCounts();
    Shown = Form::Marks;
    Paint();
}

void cCheckChans::SetLive(bool Live)
{
    IsLive = Live;
    Paint();
}
