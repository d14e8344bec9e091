// A link of either kind with a window on its frames, recorded.
#pragma once

#include "acquisition/mComFast.h"
#include "files/mRawLog.h"
#include "support/Case.h"
#include "support/ScriptedLink.h"

// A program with an open link of either kind and a recording.
struct Recording : LinkState
{
    CountingWindow Window;
    std::string Path = Folder.Path("a.qvn");

    void Open(int16_t Connection, int16_t Model = 61)
    {
        gConnection = Connection;
        gFile.Model = Model;
        Port.Plugged = {"/dev/ttyUSB0"};
        REQUIRE(OpenLink());
        if (Connection == 1) Socket.Answer();
        REQUIRE(OpenLog(Path, OldBytes::Kept));
    }
    std::string Recorded() const { return ReadWhole(Path).value_or("none"); }
};
