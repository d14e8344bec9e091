// Start-up and shutdown without a window.
#include "files/mMain.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mNotice.h"
#include "core/mSettings.h"
#include "files/mPoints.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

namespace {
bool Load(const std::string& Path)
{
    std::string Kept;
    if (!ReadDataFile(Path, gFile, SectionFilter::Any, &Kept)) return false;
    if (!Kept.empty()) UpdateStatus("Kept from the session before: " + Kept);
    ReadPoints(Path);
    ResolveChannels();
    return true;
}
} // namespace

bool StartUp(const std::string& Folder)
{
    gAppDir = Folder;
    LoadSettings();
    const bool Found = ReadIni();
    SetCurFile(gCurFile);
    gKeyMode = IsKeyMode(gFile.KeyMode) ? gFile.KeyMode : gKeyModeSet;
    gTimeStep = SafeDiv(1, gDataFreq);
    gDeltaT = gTimeStep;
    return Found;
}

bool LoadCurrentFile()
{
    return Load(gCurFile);
}

bool OpenSession(const std::string& Path)
{
    if (!Load(Path)) return false;
    SetCurFile(Path);
    CreateData(); // the former session's counts mean nothing in this one
    Notify(eNotice::SessionReplaced);
    return true;
}

void ShutDown()
{
    SaveSetting("ToolBar");
    SaveSetting("StatusBar");
    WriteIni();
    SaveSetting("StdFilter");
    SaveSetting("gUseNonLinear");
    for (std::size_t i = 0; i < gRGB.size(); ++i)
        SaveSetting("RGBArr" + FormatNum(static_cast<double>(i), "00"));
    SaveSetting("gDrawWidth");
}
