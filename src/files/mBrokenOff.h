// Whether a session data file is whole.
#pragma once

#include <string>
#include <string_view>

/// Where the text of a session data file breaks off, as "it ends in line 37, in the section Crew behind 2 rows, without
/// the line EOF"; empty when that line is there. IsSection: whether a line begins a section.
std::string WhereBrokenOff(std::string_view Text, bool (*IsSection)(std::string_view Line));
