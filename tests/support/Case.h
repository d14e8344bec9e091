// What nearly every case needs: the engine's records and settings, files in a folder of its own, scripted answers.
#pragma once

#include "base/mError.h"
#include "base/mNumText.h"
#include "base/mSafeSave.h"
#include "core/mGlobData.h"
#include "core/mSettings.h"
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
