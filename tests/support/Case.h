// What nearly every case needs: the engine's records and settings, files in a folder of its own, scripted answers.
#pragma once

#include "core/mError.h"
#include "core/mGlobData.h"
#include "core/mNumText.h"
#include "core/mSettings.h"
#include "files/mSafeSave.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"

#include <doctest/doctest.h>

#include <cmath>
#include <filesystem>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

/// Messages, drawing calls, lines of a status panel.
using Texts = std::vector<std::string>;
