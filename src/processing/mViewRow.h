// What the live panels, the report and the play view share of a row of derived variables, and of colours.
#pragma once

#include "core/mGlobData.h"

#include <string>
#include <vector>

/// The row's colour, 0x00BBGGRR: gRGB 1 to 8 in turn for its colour number, gRGB 0 for number 0; black for a number
/// below.
int32_t RowColour(const ViewRow& Row);

/// A colour, 0x00BBGGRR, for lines and letters on a white ground: one that is too light for it is darkened.
int32_t PaperInk(int32_t Colour);

/// Channels of a row's arguments in their order: element 0 is the X argument, then the arguments of the operation.
/// An unknown name has -1; no names give no channels.
std::vector<int> ArgChannels(const std::vector<std::string>& ArgNames);
