// The present raw count of every channel as a position on a common bar: one staircase, a step a channel.
#pragma once

#include "platform/iSurface.h"

#include <array>
#include <cstdint>
#include <string>

class cCheckChans
{
public:
    explicit cCheckChans(iSurface& InitSurface);

    /// Keeps the name of a dump file.
    void SetDumpFN(const std::string& Name) { mDumpFN = Name; }

    /// Begins anew with the channels of the session that is open now.
    void Load();

    /// Takes margins, scales and the rows of the staircase from the size of the surface.
    void SetUpPoly();

    /// Draws frame, names and scale on an empty surface, and the counts shown last, if any, on top.
    void DrawGrid();

    /// Shows the counts of gData: the staircase.
    void DrawData();

    /// Shows the counts of gData in a lighter form: a short mark a channel.
    void DrawChansLine();

    /// Whether the counts shown are still coming; those that are not are grey.
    void SetLive(bool Live);

    const std::string& DumpFN() const { return mDumpFN; }

private:
    void DrawLabels();
    void DrawScale();
    void TakeCounts();
    void Erase();
    void Paint();

    enum class Form
    {
        None,
        Staircase,
        Marks
    };

    iSurface& Surface;
    int16_t mChanCnt = 0;
    int32_t mWidth = 0;
    int32_t mHeight = 0;
    int32_t mLeft = 0;
    int32_t mTop = 0;
    double mXScale = 0; // drawing units a count
    int32_t mRowH = 0;
    std::array<SurfacePoint, 256> mPoly{};
    int16_t mPolyCnt = 0;
    std::string mDumpFN;
    Form Shown = Form::None;
    bool IsLive = false;
};
