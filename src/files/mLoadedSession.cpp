// The one place where a session that was read takes the place of the open one.
#include "files/mLoadedSession.h"

#include "files/mTextIO.h"

#include <utility>

float gOldInboard = 0;
float gOldOarLen = 0;
float gOldBladeLen = 0;

LoadedSession BeginLoading(const DataFile& File, std::string SessID, std::string Folder)
{
    LoadedSession New;
    New.IsOpen = &File == &gFile;
    New.SessID = std::move(SessID);
    New.Folder = std::move(Folder);
    New.File = File;
    New.Oars = {gOldInboard, gOldOarLen, gOldBladeLen};
    if (!New.IsOpen) return New;
    New.KeyMode = gKeyMode;
    New.Tables = {gRefTabs, gRefCnt};
    New.Dots = gDots;
    New.Segs = gSegs;
    New.VideoID = gVideoID;
    return New; // without points: a session that names none has none, whatever was open before
}

void Publish(LoadedSession&& Read, DataFile& File)
{
    File = std::move(Read.File);
    if (!Read.IsOpen) return;
    gSessID = std::move(Read.SessID);
    gOldInboard = Read.Oars.Inboard;
    gOldOarLen = Read.Oars.OarLen;
    gOldBladeLen = Read.Oars.BladeLen;
    gKeyMode = Read.KeyMode;
    Publish(std::move(Read.Tables));
    gDots = std::move(Read.Dots);
    gSegs = std::move(Read.Segs);
    gVideoID = std::move(Read.VideoID);
    gVidCoords = std::move(Read.Coords);
    gVidAngles = std::move(Read.Angles);
}
