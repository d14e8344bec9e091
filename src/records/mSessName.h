// The names of sessions: dates as identifiers and boxes show them, identifiers, paths, and what cannot be one.
#pragma once

#include "core/mGlobData.h"

#include <string>

/// The machine's date; 0 in a program without a clock.
DateDays Today();

/// A date as identifiers begin with it, "2026_11_23"; empty for 0, the unset date.
std::string SortedDate(DateDays Days);

/// A date as the session's box shows it, "23/11/2026"; empty for 0.
std::string LongDate(DateDays Days);

/// Why Typed cannot be stored as a date: it is none, or of a year that the two digits in a file cannot say. Empty when
/// it can, as an empty text can.
std::string WhyNoDate(const std::string& Typed);

/// The identifier of a session: date, session number, and sex, category and boat type of the crew.
std::string SessionTitle(DateDays Date, const std::string& SessNum, const std::string& CrewCategory);

/// The identifier of an athlete's session: date, counter, rower.
std::string AthleteTitle(DateDays Date, int32_t Count, const std::string& RowerID);

/// Where a session is kept: in a folder of its own, which has its name, in Folder.
std::string SessionPath(const std::string& Folder, const std::string& Title);

/// Where an athlete's session is kept: in Folder itself.
std::string AthletePath(const std::string& Folder, const std::string& Title);

/// Why Title cannot be the name of a session's files, here or on a stick that other systems read; empty when it can.
std::string WhyNoTitle(const std::string& Title);

/// Why Folder cannot hold data folders; empty when it can. One that is not there can.
std::string WhyNoFolder(const std::string& Folder);
