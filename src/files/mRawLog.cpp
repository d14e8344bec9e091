// Names, questions and messages of a recording.
#include "files/mRawLog.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <algorithm>
#include <filesystem>

bool gLogging = false;
cRawLog gLogFile;
std::string gSampleName;

namespace {
// A comment must not lead to another folder.
std::string AsFileName(std::string Text)
{
    std::replace(Text.begin(), Text.end(), '/', '-');
    return Text;
}

bool MayReplace(const std::string& Path)
{
    std::error_code Ignored;
    if (gInBoatMode != 0 || !std::filesystem::exists(Path, Ignored)) return true;
    return AskYesNo("Are you sure to replace file " + Path + "?", TitleWarning);
}

// Reported after the current event, which is not done with its frame: a message box lets further events run.
void ReportLater(const std::string& Text)
{
    gHost.Clock->StartOnce(0, [Text] { MsgBox(Text, TitleError); });
}

void ReportFailure()
{
    ReportLater("Can't write Log file: " + gLogFile.Path() + " (" + gLogFile.Failure() +
                "). The recording has stopped; what was recorded until now is whole.");
}
} // namespace

void StartLog()
{
    const int16_t Next = ToInt16(int64_t{gFile.SampleCnt} + 1);
    gSampleName = "Sample " + FormatNum(gFile.SampleCnt, "00");
    const std::string Comment =
        InputBox("Ready to start sample # " + FormatNum(gFile.SampleCnt, "0"), "Input Comment", gSampleName);
    gRawFN = gCurDir + AsFileName(Comment == gSampleName ? gFileTitle : Comment) + "_" +
             FormatNum(gFile.SampleCnt, "000") + ".qvn";
    if (!MayReplace(gRawFN)) return;
    StopLog();
    gFile.SampleCnt = Next;
    WriteSession(); // a failure is reported to the user; the recording matters more and goes on
    OpenLog(gRawFN, OldBytes::Kept);
}

bool OpenLog(const std::string& Path, OldBytes Old)
{
    gLogging = gLogFile.Open(Path, Old);
    return gLogging || FileFailed("Can't open Log file: ", Path, TitleError);
}

void LogFrame(std::span<const uint8_t> Frame)
{
    if (!gLogging || gLogFile.Append(Frame)) return;
    gLogging = false;
    ReportFailure();
}

void StopLog()
{
    gLogging = false;
    if (!gLogFile.Close()) ReportFailure();
}
