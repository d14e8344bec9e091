// A session on which calibrations are tried out, and points with a known curve.
#pragma once

#include "acquisition/mComFast.h"
#include "calibration/cCalibr.h"
#include "calibration/mRawCal.h"
#include "core/mIni.h"
#include "files/mTextIO.h"
#include "processing/mPhysVal.h"
#include "support/Case.h"
#include "support/TestClock.h"

#include <random>

// A session of three channels in a folder of its own, an open link, and a workbench.
struct Bench : FreshState
{
    TestClock Clock;
    cCalibr Work;

    Bench()
    {
        gHost.Clock = &Clock;
        gFile = DataFile{};
        gFile.Model = 61;
        for (const char* Name : {"A1", "H1", "Cal"}) {
            CalibrRow& Row = gFile.Calibr.Grow();
            Row.Chan = static_cast<int16_t>(gFile.Calibr.UBound());
            Row.ParamID = Name;
            Row.SensorID = std::string(Name) + "s";
            Row.Min = 0;
            Row.Max = 100;
            Row.Log0 = 33;
        }
        gFile.ChanCnt = 3;
        gDeltaT = 0.02;
        SetCurFile(Folder.Path("s.txt"));
        REQUIRE(WriteDataFile(gCurFile, gFile, SectionFilter::Any));
        gLinkWatch.Opened("link", 0);
    }
    ~Bench() { gLinkWatch.Closed(); }

    void Start(const char* Chan)
    {
        Work.SetBox(BoxChan, Chan);
        REQUIRE(Work.StartData());
    }

    bool Point(double Count, double Phys, double Calibrator = 0)
    {
        gData[2] = Count;
        gData[3] = Calibrator;
        Work.SetBox(BoxPhys, FormatShortest(Phys));
        return Work.TakeSample() || Work.PutDataPoint();
    }

    void Load(const std::string& Name, const CalPoints& Points)
    {
        RawCal Data;
        Data.Chan = 2;
        Data.SensID = "S7";
        Data.Points = Points;
        REQUIRE(SaveRawCal(Folder.Path(Name), Data));
        REQUIRE(Work.LoadRawCalData(Folder.Path(Name)));
    }
};

inline double CurveCount(double P)
{
    return 8000 + 60 * P + 0.3 * P * P + 400 * std::sin(P / 20);
}

inline CalPoints Sweep(double From, double To, int Count, double Noise)
{
    std::mt19937 Random(7);
    CalPoints Points;
    for (int i = 0; i < Count; ++i) {
        const double P = From + (To - From) * i / (Count - 1);
        Points.push_back({CurveCount(P) + Noise * (static_cast<double>(Random() % 2001) / 1000 - 1), P});
    }
    return Points;
}
