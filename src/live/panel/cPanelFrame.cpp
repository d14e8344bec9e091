// Decisions that live panels share.
#include "live/panel/cPanelFrame.h"

#include "acquisition/mSampling.h"
#include "core/mGlobData.h"
#include "core/mModes.h"
#include "live/panel/cData01real.h"
#include "platform/mHost.h"

ePanelWish cPanelFrame::PressSpace() const
{
    if (Source == SourceTimer) return ePanelWish::StartLog;
    return Source == SourceFrames ? ePanelWish::ToggleReplay : ePanelWish::None;
}

ePanelWish cPanelFrame::PressLog()
{
    return gLogging ? ePanelWish::StopLog : ePanelWish::StartLog;
}

ePanelWish cPanelFrame::DoAction(int Code)
{
    if (Code == PlayClose) return ePanelWish::Close;
    if (Code < PlayToStart || Code == PlayPause || Code > PlayClose) return ePanelWish::None;
    FindTimeIdx(gPlayTime);
    return ePanelWish::ShowSample;
}

void cPanelFrame::Obey(ePanelWish Wish)
{
    if (Wish == ePanelWish::StartLog) StartRecording();
    if (Wish == ePanelWish::StopLog) StopAll();
    // Without a file there is nothing to hold or to go on with.
    if (Wish == ePanelWish::ToggleReplay && IsReplayOpen()) gReplaying = !gReplaying;
}

bool cPanelFrame::Holds(bool Live) const
{
    return Live || IsReplayOpen() || IsTableSource(Source);
}

bool cPanelFrame::AskToClose()
{
    WasLogging = gLogging;
    return !WasLogging || AskYesNo("A recording is running. Stop it and close the panel?", TitleWarning);
}

std::string cPanelFrame::EndLogging() const
{
    if (!WasLogging) return "";
    StopAll();
    return Source < SourceNoView ? gLogFile.Path() : "";
}
