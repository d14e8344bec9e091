// The simulated logger: reads its command line and the session, and writes a recording or streams.
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "base/mVersion.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "platform/plain/sDialogs.h"
#include "platform/plain/sSettings.h"
#include "platform/plain/sStatus.h"
#include "sim/cStreamer.h"
#include "sim/mRecord.h"

#include <iostream>
#include <poll.h>

namespace {
constexpr int Done = 0;
constexpr int Failed = 1;
constexpr int WrongUsage = 2;

bool Record(const SimOptions& Options)
{
    SetCurFile(Options.Session);
    if (!ReadDataFile(Options.Session, gFile, SectionFilter::Non)) return false;
    const std::string Summary = RecordFile(Options, gFile);
    if (!Summary.empty()) std::cout << Summary << std::endl;
    return !Summary.empty();
}

// The table of a rowing crew is made with a recording only: a stream has no end to know the strokes by.
bool WriteRigTruth(const SimOptions& Options, const cStreamer& Streamer)
{
    const bool IsWanted = !Options.Truth.empty() && !Options.Logger.Rigs.empty();
    if (!IsWanted || SaveWhole(Options.Truth, Streamer.RigTruth())) return true;
    return FileFailed(CantWrite, Options.Truth, TitleWarning);
}

// Streams until the end or until the user or the system ends the program.
bool Stream(const SimOptions& Options)
{
    SetCurFile(Options.Session);
    if (!ReadDataFile(Options.Session, gFile, SectionFilter::Non)) return false;
    LoggerSettings Used;
    std::string Reason = SettleLogger(Options, gFile, Used);
    sEventLoop Loop;
    const int Signals = WatchEndSignals();
    if (Reason.empty()) {
        cStreamer Streamer(Loop, Options, Used, gFile);
        if (!WriteRigTruth(Options, Streamer)) return false;
        Streamer.OnNews = [](const std::string& Lines) { std::cout << Lines << std::flush; };
        Reason = Streamer.OpenLine();
        if (Reason.empty()) {
            Loop.Watch(Signals, POLLIN, [&](short) { Streamer.Stop(); });
            std::cout << "Streaming; Ctrl-C ends it." << std::endl;
            std::cout << Streamer.Run() << std::endl;
            return true;
        }
        Reason = "Can't open " +
                 (Options.Terminal.empty() ? "port " + FormatNum(Options.Port, "0") : Options.Terminal) + " (" +
                 Reason + "). Another program may have it: choose another one.";
    }
    MsgBox(Reason, TitleWarning);
    return false;
}

int Run(const std::vector<std::string>& Words)
{
    SimOptions Options;
    if (const std::string Wrong = ParseSimOptions(Words, Options); !Wrong.empty()) {
        std::cerr << "skarvelin-sim: " << Wrong << "\nUsage: " << SimUsage() << "\nFor more, see skarvelin-sim --help."
                  << std::endl;
        return WrongUsage;
    }
    if (Options.WantsHelp || Options.WantsVersion) {
        std::cout << (Options.WantsHelp ? SimHelp() : "skarvelin-sim " + std::string(Version()) + "\n") << std::flush;
        return Done;
    }
    const bool Streams = Options.Port != 0 || !Options.Terminal.empty();
    const auto Work = Streams ? Stream : Record;
    return Guard("The simulation", [&] { return Work(Options); }) ? Done : Failed;
}
} // namespace

int main(int Count, char** Words)
{
    sStatus Status(false);
    sDialogs Dialogs(&Status);
    sSettings Settings;
    gHost = {&Dialogs, &Status, &Settings};
    return Run({Words + 1, Words + Count});
}
