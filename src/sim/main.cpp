// The simulated logger: reads its command line and the session, and writes a recording.
#include "core/mHost.h"
#include "files/mTextIO.h"
#include "platform/plain/sDialogs.h"
#include "platform/plain/sSettings.h"
#include "platform/plain/sStatus.h"
#include "sim/mRecord.h"

#include <iostream>

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

int Run(const std::vector<std::string>& Words)
{
    SimOptions Options;
    if (const std::string Wrong = ParseSimOptions(Words, Options); !Wrong.empty()) {
        std::cerr << "skarvelin-sim: " << Wrong << "\nUsage: " << SimUsage() << "\nskarvelin-sim --help tells more."
                  << std::endl;
        return WrongUsage;
    }
    if (Options.WantsHelp || Options.WantsVersion) {
        std::cout << (Options.WantsHelp ? SimHelp() : "skarvelin-sim " SKARVELIN_VERSION "\n") << std::flush;
        return Done;
    }
    return Guard("The recording", [&] { return Record(Options); }) ? Done : Failed;
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
