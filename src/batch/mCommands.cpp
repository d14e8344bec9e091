// The table of commands and what several of them begin with.
#include "batch/mCommands.h"

#include "base/mSafeSave.h"
#include "files/mBinIO.h"
#include "files/mMain.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"
#include "processing/mFilter.h"

#include <filesystem>

namespace {
bool IsSameFile(const std::string& First, const std::string& Second)
{
    std::error_code Error;
    return First == Second || std::filesystem::equivalent(First, Second, Error);
}
} // namespace

// NOLINTNEXTLINE(readability-function-size): one table
std::span<const Command> AllCommands()
{
    static const Option From{"--from", ArgKind::Whole, "I"};
    static const Option To{"--to", ArgKind::Whole, "J"};
    static const Option Start{"--start", ArgKind::Whole, "I"};
    static const Option Stop{"--stop", ArgKind::Whole, "J"};
    static const Option Filter{"--filter", ArgKind::Flag, ""};
    static const std::vector<Command> Table = {
        {"resave",
         "SESSION OUT [--filter Any|Non]",
         "reads a session data file and writes it again; Non leaves the samples out",
         2,
         2,
         {{"--filter", ArgKind::Choice, "Any|Non"}},
         DoResave},
        {"dump", "SESSION RAW OUT", "writes the raw counts of every frame as text", 3, 3, {}, DoDump},
        {"export",
         "SESSION RAW OUT [--from I] [--to J] [--filter]",
         "writes calibrated samples I to J as text (default: all)",
         3,
         3,
         {From, To, Filter},
         DoExport},
        {"scan", "SESSION RAW OUT", "finds the strokes of a long recording and writes their table", 3, 3, {}, DoScan},
        {"strokes",
         "SESSION RAW [--start I] [--stop J] [--filter]",
         "writes a line of parameters for every stroke beside the session data file",
         2,
         2,
         {Start, Stop, Filter},
         DoStrokes},
        {"process",
         "SESSION RAW... [--start I] [--stop J] [--filter] [--comment TEXT] [--dist D] [--time T] [--out OUT]",
         "averages the strokes of each recording and stores the pattern as a sample",
         2,
         0,
         {Start,
          Stop,
          Filter,
          {"--comment", ArgKind::Text, "TEXT"},
          {"--dist", ArgKind::Real, "D"},
          {"--time", ArgKind::Real, "T"},
          {"--out", ArgKind::Text, "OUT"}},
         DoProcess},
        {"derive",
         "SESSION SAMPLE OUT [--view 3|4]",
         "writes the derived variables of a stored sample, as the report (3) or the play view (4) computes them",
         3,
         3,
         {{"--view", ArgKind::Choice, "3|4"}},
         DoDerive},
        {"patterns",
         "SESSION SAMPLE OUT.csv",
         "writes the mean stroke of a stored sample as a comma-separated table, a column a parameter",
         3,
         3,
         {},
         DoPatterns},
        {"report",
         "SESSION SAMPLE OUT.pdf|svg|png",
         "writes the report of a stored sample, as it is printed",
         3,
         3,
         {},
         DoReport},
        {"live",
         "SESSION RAW OUT [--panel rower|catch|coach|ergo] [--targets FILE] [--average] [--separate]",
         "plays a recording through a panel and writes the figures that it shows",
         3,
         3,
         {{"--panel", ArgKind::Choice, "rower|catch|coach|ergo"},
          {"--targets", ArgKind::Text, "FILE"},
          {"--average", ArgKind::Flag, ""},
          {"--separate", ArgKind::Flag, ""}},
         DoLive,
         LiveObjection},
        {"play",
         "SESSION OUT (--raw RAW | --sample SAMPLE) --at X...",
         "writes what the play view shows of its curves at times in a recording (s), or at shares of a sample's cycle",
         2,
         2,
         {{"--raw", ArgKind::Text, "RAW"}, {"--sample", ArgKind::Text, "SAMPLE"}, {"--at", ArgKind::Reals, "X..."}},
         DoPlay,
         PlayObjection},
        {"mend",
         "RAW OUT",
         "copies a recording without its broken bytes: all frames that can be decoded; the recording itself stays as "
         "it is",
         2,
         2,
         {},
         DoMend},
        {"calibrate",
         "SESSION XCL --channel C --apply 0|1|2|4 [--cutoff PERCENT] [--min A] [--max B] [--sensor ID] [--out OUT]",
         "calibrates a channel by the points of a raw calibration file: 0 line, 1 one curve, 2 a curve each for rising "
         "and falling load, 4 reference table from A to B (default: the channel's range)",
         2,
         2,
         {{"--channel", ArgKind::Whole, "C"},
          {"--apply", ArgKind::Choice, "0|1|2|4"},
          {"--cutoff", ArgKind::Real, "PERCENT"},
          {"--min", ArgKind::Real, "A"},
          {"--max", ArgKind::Real, "B"},
          {"--sensor", ArgKind::Text, "ID"},
          {"--out", ArgKind::Text, "OUT"}},
         DoCalibrate,
         CalibrateObjection},
        {"lookup",
         "SESSION CHANNEL COUNT...",
         "prints the physical value of each raw count of a channel in turn; CHANNEL is a number or a parameter",
         3,
         0,
         {},
         DoLookup,
         LookupObjection},
        {"rezero",
         "SESSION RAW --group 0|1|2|3|4 [--out OUT]",
         "makes the last counts of a recording the zeros of a group: 0 horizontal angles, 1 vertical angles, 2 handle "
         "forces, 3 seats, 4 gates",
         2,
         2,
         {{"--group", ArgKind::Choice, "0|1|2|3|4"}, {"--out", ArgKind::Text, "OUT"}},
         DoReZero,
         ReZeroObjection},
        {"record",
         "SESSION --serial DEVICE | --tcp HOST:PORT --out FILE --seconds N",
         "records what the logger sends; 0 seconds: until Ctrl-C. A FILE that exists is replaced when frames come",
         1,
         1,
         {{"--serial", ArgKind::Text, "DEVICE"},
          {"--tcp", ArgKind::Text, "HOST:PORT"},
          {"--out", ArgKind::Text, "FILE"},
          {"--seconds", ArgKind::Real, "N"}},
         DoRecord,
         RecordObjection},
        {"monitor",
         "REPLIES OUT | --usb [--seconds N]",
         "decodes a file of a performance monitor's replies, or polls the monitor on USB until Ctrl-C, and writes a "
         "line for each change",
         0,
         2,
         {{"--usb", ArgKind::Flag, ""}, {"--seconds", ArgKind::Real, "N"}},
         DoMonitor,
         MonitorObjection},
        {"logger",
         "SESSION --serial DEVICE | --tcp HOST:PORT [--wait S] [--stay] COMMAND... | --read",
         "puts the logger in set-up mode, sends each command and prints what it answers within S seconds (default 0.5, "
         "a scan for devices as long as it takes), then lets it run unless --stay; --read prints all its settings",
         1,
         0,
         {{"--serial", ArgKind::Text, "DEVICE"},
          {"--tcp", ArgKind::Text, "HOST:PORT"},
          {"--wait", ArgKind::Real, "S"},
          {"--stay", ArgKind::Flag, ""},
          {"--read", ArgKind::Flag, ""}},
         DoLogger,
         LoggerObjection},
        {"table",
         "SESSION KIND OUT.csv | SESSION KIND --from FILE [--out OUT]",
         "writes a table of the session (Calibr, Crew, Boat, Desc, View1, View3, View4, Dots, Segs) as CSV, "
         "or takes its rows from a CSV file or another session",
         2,
         3,
         {{"--from", ArgKind::Text, "FILE"}, {"--out", ArgKind::Text, "OUT"}},
         DoTable,
         TableObjection},
        {"readids",
         "SESSION OTHER [--out OUT]",
         "gives channels Q0 and Q1 of the same sensors in another session",
         2,
         2,
         {{"--out", ArgKind::Text, "OUT"}},
         DoReadIDs},
        {"video",
         "FILE [--frame N OUT.png]",
         "prints what a video is in JSON, or writes its picture N, from 0, as it is displayed",
         1,
         2,
         {{"--frame", ArgKind::Whole, "N"}},
         DoVideo,
         VideoObjection},
        {"points",
         "SESSION VIDEO IN.csv OUT.csv [--sample SAMPLE]",
         "places points on frames of a clip, keeps them with the session, and writes all of the clip with their angles",
         4,
         4,
         {{"--sample", ArgKind::Text, "SAMPLE"}},
         DoPoints},
        {"info", "SESSION", "prints a summary of a session data file in JSON", 1, 1, {}, DoInfo},
    };
    return Table;
}

void ReportNoFrames(const std::string& Path)
{
    MsgBox("There are no frames of a logger in the file: " + Path, TitleInformation);
}

bool SaveText(const std::string& Path, const std::string& Text)
{
    return SaveWhole(Path, Text) || FileFailed(CantWrite, Path, TitleError);
}

bool LoadSession(const std::string& Path)
{
    return OpenSession(Path);
}

bool BackUpReplaced(const std::string& Session, const std::string& Out)
{
    return !IsSameFile(Out, Session) || BackupFile(Session);
}

bool SaveSession(const std::string& Session, const std::string& Out)
{
    return BackUpReplaced(Session, Out) && WriteDataFile(Out, gFile, SectionFilter::Any);
}

bool LoadRaw(const std::string& Path, const Args& Line)
{
    int32_t Start = 0;
    int32_t Stop = 0;
    if (!ReadRawFile(Path, Start, Stop)) return false;
    if (!Line.Has("--filter")) return true;
    ZeroTime();
    SpikeFilter();
    return true;
}
