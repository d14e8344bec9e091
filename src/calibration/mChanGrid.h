// What both channel indicators share: colours and names of channels, the values of the scale, limited places.
#pragma once

#include <array>
#include <cstdint>
#include <string>

inline constexpr int32_t GridColour = 0x323232;  // frame and numbers
inline constexpr int32_t ScaleColour = 0xC8C8C8; // lines of the scale
inline constexpr int32_t DeadColour = 0x969696;  // values that no longer come

/// Counts at which the scale has lines, tenths of the full scale.
inline constexpr int ScaleLines = 10;
double ScaleValue(int Line);

/// Colour of a channel, 0x00BBGGRR: the eight colours after the background colour in turn.
int32_t ChanColour(int Chan);

/// Number of a channel, and its ParamID where the channel table has a row for it.
std::string ChanLabel(int Chan);

/// Labels of all channels of the session that have a ParamID, some to a line.
std::string ChanList();

/// The colour, darkened until a text in it can be read on white in the sun.
int32_t Legible(int32_t Colour);

/// The colour, mixed with white until lines in it recede behind everything else.
int32_t Pale(int32_t Colour);

/// X truncated, within what a screen could show.
int32_t Place(double X);
