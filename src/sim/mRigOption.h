// The calibration rig on the command line: "CHANNEL=LOAD,LOAD,...,name=value,...".
#pragma once

#include "sim/cRig.h"

/// Takes the text of a rig. False, with the rig as it was, when it is none.
bool TakeRig(RigSettings& Rig, const std::string& Text);

/// What the parameters of a rig mean, for the help.
std::string RigHelp();
