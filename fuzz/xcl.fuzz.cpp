// Any bytes as a raw calibration file: parsed, and analysed in every way.
#include "program.h"

#include "base/mError.h"
#include "calibration/cCalibr.h"
#include "calibration/mRawCal.h"
#include "core/mGlobData.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, std::size_t Size)
{
    StartProgram();
    int Bad = 0;
    auto Parsed = ParseRawCal(std::string(AsText(Data, Size)), Bad);
    if (!Parsed) return 0;
    gFile.Calibr.Clear();
    for (int Chan = 1; Chan <= 8; ++Chan) {
        CalibrRow& Row = gFile.Calibr.Grow();
        Row.Chan = static_cast<int16_t>(Chan);
        Row.Max = 1000;
    }
    gFile.ChanCnt = 8;
    cCalibr Bench;
    Bench.TakeRawCal(std::move(*Parsed));
    Bench.SetCalGr();
    Bench.FindLimits();
    for (const eApprox Mode : {ApproxLinear, ApproxOneLine, ApproxTwoLines, ApproxAbsolute, ApproxRefTable}) {
        Bench.SetApprox(Mode);
        // A failure of the arithmetic is reported to the user; here it must only be one.
        try {
            Bench.AnalyseArr();
            Bench.Store();
        } catch (const RunError&) {
            continue;
        }
    }
    return 0;
}
