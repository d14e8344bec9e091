// The commands of the batch program: one table, and the functions it names.
#pragma once

#include "batch/mArgs.h"
#include "platform/plain/sDialogs.h"

#include <span>

class cReport;
class iMonitor;

/// A command. Run gives false when a failure was reported.
struct Command
{
    const char* Name;
    const char* Usage;   // the arguments behind the name
    const char* Summary; // one sentence for the list of commands
    std::size_t MinFiles;
    std::size_t MaxFiles; // 0: any number from MinFiles on
    std::vector<Option> Options;
    bool (*Run)(const Args& Line);
    std::string (*Objection)(const Args& Line) = nullptr; // what is wrong with the line as a whole, empty when nothing
};

/// The program's dialogs: a command sets the answers that its arguments give.
extern sDialogs gBatchDialogs;

/// Writes a report to a file whose name tells its form. False when it fails (reported to the user). Null in a program
/// that was built without the toolkit, whose fonts it needs.
extern bool (*gWriteReport)(const cReport& Report, const std::string& Path);

/// The way to performance monitors. Null in a program that was built without one.
extern iMonitor* gBatchMonitor;

/// All commands in the order of the help.
std::span<const Command> AllCommands();

/// Opens the session data file and resolves its channels. False when it cannot be read (reported to the user).
bool LoadSession(const std::string& Path);

/// Copies the session's own file to its backup when Out is about to replace it. False when it fails (reported to the
/// user).
bool BackUpReplaced(const std::string& Session, const std::string& Out);

/// Writes gFile to Out, behind a backup copy when that is the session's own file. False when it fails (reported to the
/// user).
bool SaveSession(const std::string& Session, const std::string& Out);

/// Reads a raw file into the sample store and filters it with --filter. False when that fails (reported to the user).
bool LoadRaw(const std::string& Path, const Args& Line);

/// Reports that a raw file has no frame: what was made of it is the head line alone.
void ReportNoFrames(const std::string& Path);

/// Writes Text as a whole file. False when that fails (reported to the user).
bool SaveText(const std::string& Path, const std::string& Text);

// Session data files and samples as text.
bool DoResave(const Args& Line);
bool DoDump(const Args& Line);
bool DoExport(const Args& Line);
bool DoMend(const Args& Line);
bool DoInfo(const Args& Line);

// Strokes and patterns.
bool DoScan(const Args& Line);
bool DoStrokes(const Args& Line);
bool DoProcess(const Args& Line);

// Derived variables.
bool DoDerive(const Args& Line);
bool DoLive(const Args& Line);
std::string LiveObjection(const Args& Line);

// The play view.
bool DoPlay(const Args& Line);
std::string PlayObjection(const Args& Line);

// Patterns and reports.
bool DoPatterns(const Args& Line);
bool DoReport(const Args& Line);

// Calibration.
bool DoCalibrate(const Args& Line);
std::string CalibrateObjection(const Args& Line);
bool DoLookup(const Args& Line);
std::string LookupObjection(const Args& Line);
bool DoReZero(const Args& Line);
std::string ReZeroObjection(const Args& Line);

// Tables of the session.
bool DoTable(const Args& Line);
std::string TableObjection(const Args& Line);
bool DoReadIDs(const Args& Line);

// Video.
bool DoPoints(const Args& Line);

// Recording.
bool DoRecord(const Args& Line);
std::string RecordObjection(const Args& Line);

// Performance monitor.
bool DoMonitor(const Args& Line);
std::string MonitorObjection(const Args& Line);

// The logger's set-up.
bool DoLogger(const Args& Line);
std::string LoggerObjection(const Args& Line);

// Video.
bool DoVideo(const Args& Line);
std::string VideoObjection(const Args& Line);
