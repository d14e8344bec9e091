// Any bytes as a recording: read, scanned for strokes, cut to its frames, which must read as the same samples, and
// mended to a copy that is read to its end. The first byte chooses the logger and the key mode.
#include "program.h"

#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "files/mBinIO.h"
#include "files/mMend.h"
#include "files/mQVN.h"
#include "files/mStream.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace {
void MakeSession(uint8_t Choice)
{
    constexpr std::array<int16_t, 4> Models = {60, 66, 67, 61};
    gFile.Model = Models[Choice % 4];
    gKeyMode = Choice / 4 % 4;
    gKeyChan = gFile.Model < 66 ? 17 : 2;
    gFile.KeyThres = 5;
    gFile.ChanCnt = LastDataChan;
    gFile.Calibr.Resize(LastDataChan);
    for (CalibrRow& Row : gFile.Calibr) {
        Row.ProcMode = static_cast<int16_t>((&Row - &gFile.Calibr[1]) % 6);
        Row.Q1 = 0.01;
        Row.Qup1 = 0.02;
        Row.Qdn2 = 1e-6;
        Row.Threshold = 1;
    }
}

SampleStore ReadAll(const std::string& Path)
{
    gLastGPS = {};
    int32_t Start = 0;
    int32_t Stop = 0;
    if (!ReadRawFile(Path, Start, Stop) || gRaw.UBound() > SampleStore::MaxIndex) std::abort();
    return std::exchange(gRaw, {});
}

bool AreEqual(const SampleStore& First, const SampleStore& Second)
{
    for (int Chan = 0; Chan <= First.ChannelUBound(); ++Chan)
        if (!std::ranges::equal(First.Channel(Chan), Second.Channel(Chan))) return false;
    return true;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, std::size_t Size)
{
    if (Size < 2) return 0;
    gRawFN = FuzzFolder() + "a.qvn";
    StartProgram();
    MakeSession(*Data);
    SaveWhole(gRawFN, {reinterpret_cast<const char*>(Data) + 1, Size - 1}, Durability::Fast);
    const SampleStore Samples = ReadAll(gRawFN);
    // A scan of a file without a frame is refused.
    if (!ScanRawFile(gRawFN)) gScanRows.Clear();
    for (int i = 2; i <= gScanRows.UBound(); ++i)
        if (gScanRows[i].Pos <= gScanRows[i - 1].Pos || gScanRows[i].Pos >= static_cast<int32_t>(Size)) std::abort();
    const std::string Cut = FuzzFolder() + "cut.qvn";
    if (!CutRawFile(Cut, 0, 0) || !AreEqual(ReadAll(Cut), Samples)) std::abort();
    const std::string Mended = FuzzFolder() + "mended.qvn";
    if (!MendRawFile(gRawFN, Mended)) return 0; // without a frame
    int32_t Start = 0;
    int32_t Stop = 0;
    Unread Left;
    if (!ReadRawFile(Mended, Start, Stop, &Left) || !Left.Damage().empty()) std::abort();
    return 0;
}
