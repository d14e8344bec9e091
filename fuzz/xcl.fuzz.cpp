// Any bytes as a raw calibration file: read, and analysed in every way.
#include "program.h"

#include "base/mError.h"
#include "base/mSafeSave.h"
#include "calibration/cCalibr.h"
#include "core/mGlobData.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, std::size_t Size)
{
    const std::string Path = FuzzFolder() + "a.xcl";
    SaveWhole(Path, {reinterpret_cast<const char*>(Data), Size}, Durability::Fast);
    gFile.Calibr.Clear();
    for (int Chan = 1; Chan <= 8; ++Chan) {
        CalibrRow& Row = gFile.Calibr.Grow();
        Row.Chan = static_cast<int16_t>(Chan);
        Row.Max = 1000;
    }
    gFile.ChanCnt = 8;
    cCalibr Bench;
    if (!Bench.LoadRawCalData(Path)) return 0;
    Bench.SetCalGr();
    Bench.FindLimits();
    for (const eApprox Mode : {ApproxLinear, ApproxOneLine, ApproxTwoLines, ApproxAbsolute, ApproxRefTable}) {
        Bench.SetApprox(Mode);
        // A failure of the arithmetic is told to the user; here it only must be one.
        try {
            Bench.AnalyseArr();
            Bench.Store();
        } catch (const RunError&) {
            continue;
        }
    }
    return 0;
}
