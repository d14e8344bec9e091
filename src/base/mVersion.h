// The version of the programs.
#pragma once

/// The version as "major.minor.patch".
const char* Version();
