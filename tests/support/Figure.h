// A session with the figure of a leg: hip, knee, ankle and toe, with angles at knee and ankle.
#pragma once

#include "files/mMain.h"
#include "files/mPoints.h"
#include "files/mTextIO.h"
#include "support/Case.h"

struct FigureSession : FreshState
{
    FigureSession()
    {
        gDots.Grow() = {"HIP", "Hip", 0};
        gDots.Grow() = {"KNEE", "Knee", 1};
        gDots.Grow() = {"ANK", "Ankle, outer", 1};
        gDots.Grow() = {"TOE", "Toe", 0};
        gSegs.Grow() = {"TH", "Thigh", "HIP", "KNEE"};
        gSegs.Grow() = {"SH", "Shank", "KNEE", "ANK"};
        gSegs.Grow() = {"FT", "Foot", "ANK", "TOE"};
        gFile.Model = 2;
        DescRow& Sample = gFile.Desc.Grow();
        Sample.SampleID = "S1";
        Sample.DataCount = 50;
        SetCurFile(Folder.Path("s.txt"));
        REQUIRE(WriteSession());
    }

    /// The session as a program finds it that starts now.
    static void Restart() { REQUIRE(OpenSession(gCurFile)); }

    std::string PointsFile() const { return ReadWhole(Folder.Path("s_points.csv")).value_or("(none)"); }
};
