// The session data file: reading it into gFile and the video tables, writing it whole, and its backup.
#pragma once

#include "core/mGlobData.h"

#include <set>
#include <string>

class LineReader;

/// Any: all sections; Non: none of the sample sections.
enum class SectionFilter
{
    Any,
    Non
};

// The oar dimensions of files with Model 0 and 1, which hold them once for all seats. Kept for writing them back.
extern float gOldInboard;
extern float gOldOarLen;
extern float gOldBladeLen;

/// Reads Path into File, section by section: what the file does not name keeps its value, apart from the model and the
/// samples. Sets gSessID; into gFile also gKeyMode, the old oar dimensions, the video tables and the reference tables.
/// Kept, unless null, becomes the list of what it does not name and what therefore stays, as "Sess, STD (26 rows)".
/// A file that breaks off, and lines of values that were left out, are reported to the user; with gStrictReading that
/// is a failure. False when it cannot be opened or has no section at all (reported to the user): nothing has changed,
/// and nothing does when reading ends in an exception.
bool ReadDataFile(const std::string& Path, DataFile& File, SectionFilter Filter, std::string* Kept = nullptr);

/// The same from the bytes of a file; SessID is the identifier that its rows get, and becomes gSessID only with gFile.
/// Reference tables come from gCurDir. False when the bytes have no section at all: nothing has changed.
bool ParseDataFile(std::string Bytes, const std::string& SessID, DataFile& File, SectionFilter Filter);

/// Reads the rows of a crew section behind its keyword. A line that stops within its sixth field still gives the
/// weight.
void ReadCrewRows(LineReader& Lines, RowArray<CrewRow>& Rows);

/// Reads another session, which rows are taken from: of the program nothing changes. Found gets the keywords that the
/// file has. Failures and reports as with ReadDataFile.
bool ReadOtherFile(const std::string& Path, DataFile& File, std::set<std::string>& Found);

/// The whole file as text, with CR LF behind each line.
std::string DataFileText(const DataFile& File, SectionFilter Filter);

/// Writes the whole file. False when that fails (reported to the user): the file at Path is as it was.
bool WriteDataFile(const std::string& Path, const DataFile& File, SectionFilter Filter);

/// Writes the whole file together with the points digitised on its videos, in their own file beside it. WriteDataFile
/// does so with gFile; this is for a session that is about to become gFile.
bool WriteWithPoints(const std::string& Path, const DataFile& File, SectionFilter Filter);

/// Copies Path to the file of the same name with the extension ".bak"; a path without folder is in the program's
/// folder. A file that does not exist needs no copy. False when it cannot be copied (reported to the user).
bool BackupFile(const std::string& Path);

/// Backs the current session data file up and writes gFile in its place. False when either failed (reported to the
/// user): the file is as it was.
bool WriteSession();
