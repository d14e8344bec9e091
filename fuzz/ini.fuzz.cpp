// Any bytes as Skarvelin.ini: parsed, written, and parsed again to the same state.
#include "program.h"

#include "core/mIni.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, std::size_t Size)
{
    StartProgram();
    ParseIni(std::string(AsText(Data, Size)));
    const std::string First = IniText();
    ParseIni(First);
    if (IniText() != First) std::abort();
    return 0;
}
