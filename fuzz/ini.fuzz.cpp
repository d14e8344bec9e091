// Any bytes as Skarvelin.ini: read, written, and read again to the same state.
#include "core/mHost.h"
#include "core/mIni.h"
#include "files/mSafeSave.h"
#include "platform/plain/sDialogs.h"
#include "platform/plain/sSettings.h"
#include "platform/plain/sStatus.h"

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <unistd.h>

namespace {
void SetUp()
{
    static sStatus Status(false);
    static sDialogs Dialogs;
    static sSettings Settings;
    gHost = {};
    gHost.Dialogs = &Dialogs;
    gHost.Status = &Status;
    gHost.Settings = &Settings;
    gAppDir = (std::filesystem::temp_directory_path() / ("skarvelin-fuzz-" + std::to_string(getpid()))).string() + "/";
    std::filesystem::create_directories(gAppDir);
    std::atexit([] { std::filesystem::remove_all(gAppDir); });
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* Data, std::size_t Size)
{
    static const bool Ready = (SetUp(), true);
    static_cast<void>(Ready);
    SaveWhole(IniPath(), {reinterpret_cast<const char*>(Data), Size}, Durability::Fast);
    if (!ReadIni() || !WriteIni()) std::abort();
    const auto First = ReadWhole(IniPath());
    if (!ReadIni() || !WriteIni() || ReadWhole(IniPath()) != First) std::abort();
    return 0;
}
