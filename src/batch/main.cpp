// The batch program: reads its command line, sets the engine up without a window, and runs one command.
#include "base/mVersion.h"
#include "batch/mCommands.h"
#include "core/mSettings.h"
#include "files/mUnread.h"
#include "platform/ffmpeg/mMedia.h"
#include "platform/hid/mUsbMonitor.h"
#include "platform/mHost.h"
#include "platform/plain/sSettings.h"
#include "platform/plain/sStatus.h"
#ifdef SKARVELIN_DESKTOP
#include "views/report/qReportFile.h"
#endif

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <unistd.h>

namespace {
sStatus gBatchStatus(isatty(STDERR_FILENO) != 0);
sSettings gBatchSettings;
} // namespace

sDialogs gBatchDialogs(&gBatchStatus);

namespace {
constexpr const char* Usage = "skarvelin-batch [--set KEY=VALUE]... [--no] [--strict] COMMAND ARGS";

constexpr int Done = 0;
constexpr int Failed = 1;
constexpr int WrongUsage = 2;

int Misused(const std::string& What, const std::string& Right)
{
    std::cerr << "skarvelin-batch: " << What << "\nUsage: " << Right << "\nFor more, see skarvelin-batch --help."
              << std::endl;
    return WrongUsage;
}

std::string UsageOf(const Command& Each)
{
    return std::string("skarvelin-batch ") + Each.Name + " " + Each.Usage;
}

void PrintHelp()
{
    std::cout << "Usage: " << Usage << "\n\nCommands:\n";
    for (const Command& Each : AllCommands())
        std::cout << "  " << Each.Name << " " << Each.Usage << "\n      " << Each.Summary << "\n";
    std::cout << "\nSESSION is a session data file, RAW a raw sample file, OUT a file to write.\n"
                 "  --set KEY=VALUE  a setting for this call, as --set gProcRuns=2 --set StdFilter=1.5\n"
                 "  --no             questions are answered No instead of Yes\n"
                 "  --strict         a recording that is not read to its end is a failure: nothing is written\n"
                 "  COMMAND --help   the usage of one command\n"
                 "  --version        the version\n\n"
                 "Exit code: 0 done, 1 a failure was reported, 2 wrong usage.\n\nSettings and their defaults:\n";
    for (const Setting& Each : AllSettings())
        std::cout << "  " << Each.Key << "=" << Each.Default << "\n";
}

// Puts a KEY=VALUE into the store. Gives an empty text, or what is wrong with it.
std::string Set(const std::string& Text)
{
    const auto Equal = Text.find('=');
    if (Equal == std::string::npos) return "--set takes KEY=VALUE, not \"" + Text + "\"";
    const std::string Value = Text.substr(Equal + 1);
    const Setting* Item = FindSetting(Text.substr(0, Equal));
    if (!Item) return "there is no setting " + Text.substr(0, Equal);
    if (!IsValidFor(*Item, Value)) return "setting " + Item->Key + " cannot be \"" + Value + "\"";
    gHost.Settings->SaveSetting(Item->Section, Item->Key, Value);
    return {};
}

int RunCommand(const Command& Each, const std::vector<std::string>& Words)
{
    if (std::find(Words.begin(), Words.end(), "--help") != Words.end()) {
        std::cout << "Usage: " << UsageOf(Each) << "\n" << Each.Summary << std::endl;
        return Done;
    }
    Args Line;
    if (const std::string Wrong = ParseArgs(Words, Each.Options, Line); !Wrong.empty())
        return Misused(Wrong, UsageOf(Each));
    if (Line.Files.size() < Each.MinFiles)
        return Misused("too few arguments for " + std::string(Each.Name), UsageOf(Each));
    if (Each.MaxFiles != 0 && Line.Files.size() > Each.MaxFiles)
        return Misused("too many arguments for " + std::string(Each.Name), UsageOf(Each));
    if (const std::string Wrong = Each.Objection ? Each.Objection(Line) : ""; !Wrong.empty())
        return Misused(Wrong, UsageOf(Each));
    LoadSettings();
    const bool Success = Guard(Each.Name, [&] { return Each.Run(Line); });
    return Success ? Done : Failed;
}

int Run(const std::vector<std::string>& Words)
{
    for (std::size_t i = 0; i < Words.size(); ++i) {
        const std::string& Word = Words[i];
        if (Word == "--help") {
            PrintHelp();
            return Done;
        }
        if (Word == "--version") {
            std::cout << "skarvelin-batch " << Version() << std::endl;
            return Done;
        }
        if (Word == "--no")
            gBatchDialogs.AnswerYes = false;
        else if (Word == "--strict")
            gStrictReading = true;
        else if (Word == "--set" && i + 1 < Words.size()) {
            if (const std::string Wrong = Set(Words[++i]); !Wrong.empty()) return Misused(Wrong, Usage);
        } else if (Word.starts_with("--"))
            return Misused(Word == "--set" ? "--set needs KEY=VALUE" : "there is no option " + Word, Usage);
        else {
            const auto Commands = AllCommands();
            const auto Found =
                std::find_if(Commands.begin(), Commands.end(), [&](const Command& Each) { return Each.Name == Word; });
            if (Found == Commands.end()) return Misused("there is no command " + Word, Usage);
            return RunCommand(*Found, {Words.begin() + static_cast<std::ptrdiff_t>(i) + 1, Words.end()});
        }
    }
    return Misused("no command given", Usage);
}
} // namespace

int main(int Count, char** Words)
{
    gHost = {&gBatchDialogs, &gBatchStatus, &gBatchSettings};
    gHost.MakeMedia = MakeMedia;
#ifdef SKARVELIN_DESKTOP
    gWriteReport = WriteReportOffscreen;
#endif
    const std::unique_ptr<iMonitor> Monitor = MakeUsbMonitor();
    gBatchMonitor = Monitor.get();
    try {
        return Run({Words + 1, Words + Count});
    } catch (...) {
        std::fputs(("skarvelin-batch: " + FailureReason() + ".\n").c_str(), stderr);
        return Failed;
    }
}
