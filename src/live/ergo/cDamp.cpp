// Name, question and failure of the dump.
#include "live/ergo/cDamp.h"

#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "files/mRawLog.h"
#include "platform/mHost.h"

#include <filesystem>

void cDamp::Toggle()
{
    if (IsOpen()) return DampFile.clear();
    // Before the first recording of a run there is no sample yet: the next one's name.
    const std::string Sample = gSampleName.empty() ? "Sample " + FormatNum(gFile.SampleCnt, "00") : gSampleName;
    const std::string Name = gCurDir + Sample + ".log";
    std::error_code Ignored;
    if (std::filesystem::exists(Name, Ignored) && !AskYesNo("Are you sure to replace file " + Name + "?", TitleWarning))
        return;
    if (SaveWhole(Name, ""))
        DampFile = Name;
    else
        FileFailed(CantOpen, Name, TitleWarning);
}
