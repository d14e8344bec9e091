// Any bytes as Skarvelin.ini: read, written, and read again to the same state.
#include "program.h"

#include "base/mSafeSave.h"
#include "core/mIni.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, std::size_t Size)
{
    gAppDir = FuzzFolder();
    SaveWhole(IniPath(), {reinterpret_cast<const char*>(Data), Size}, Durability::Fast);
    if (!ReadIni() || !WriteIni()) std::abort();
    const auto First = ReadWhole(IniPath());
    if (!ReadIni() || !WriteIni() || ReadWhole(IniPath()) != First) std::abort();
    return 0;
}
