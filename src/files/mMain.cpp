// Start-up and shutdown without a window.
#include "files/mMain.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mNotice.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "processing/mRefTable.h"

namespace {
// What a session file is read into. A failure in the middle of the reading, which goes on in place, puts it back.
class cRollback
{
public:
    cRollback() = default;
    ~cRollback()
    {
        if (IsDone) return;
        gFile = std::move(File);
        gSessID = std::move(SessID);
        gKeyMode = KeyMode;
        gDots = std::move(Dots);
        gSegs = std::move(Segs);
        gVideoID = std::move(VideoID);
        gVidCoords = std::move(Coords);
        gVidAngles = std::move(Angles);
        gRefTabs = std::move(RefTabs);
        gRefCnt = RefCnt;
    }
    cRollback(const cRollback&) = delete;
    cRollback& operator=(const cRollback&) = delete;

    bool IsDone = false;

private:
    DataFile File = gFile;
    std::string SessID = gSessID;
    int16_t KeyMode = gKeyMode;
    RowArray<DotRow> Dots = gDots;
    RowArray<SegRow> Segs = gSegs;
    RowArray<VideoIDRow> VideoID = gVideoID;
    RowArray<VidCoordsRow> Coords = gVidCoords;
    decltype(gVidAngles) Angles = gVidAngles;
    std::vector<RefTable> RefTabs = gRefTabs;
    int16_t RefCnt = gRefCnt;
};
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
    cRollback Former;
    std::string Kept;
    if (!ReadDataFile(gCurFile, gFile, SectionFilter::Any, &Kept)) return false;
    if (!Kept.empty()) UpdateStatus("Kept from the session before: " + Kept);
    ResolveChannels();
    Former.IsDone = true;
    return true;
}

bool OpenSession(const std::string& Path)
{
    SetCurFile(Path);
    if (!LoadCurrentFile()) return false;
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
