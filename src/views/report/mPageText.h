// Texts on a page of a report: its inks, and words that are cut or wrapped to the room that they have.
#pragma once

#include "platform/iSurface.h"

#include <string>
#include <vector>

/// Inks of a page, 0x00BBGGRR.
enum PageInk : int32_t
{
    InkText = 0x302820,
    InkSoft = 0x75706B, // what explains
    InkLine = 0xC8C0B8,
    InkBand = 0xF7F4F1, // every other line of a table
    InkAccent = 0xAD5C0B,
    InkAlarm = 0x0000B0,
    InkWhite = 0xFFFFFF
};

/// The text in letters of that size, with dots in place of its end, or of what is ahead of its last letters where these
/// tell it from others, when it is wider than Width.
std::string Fitting(const iSurface& Surface, const std::string& Text, int Size, double Width, bool Bold = false);
std::string FittingName(const iSurface& Surface, const std::string& Text, int Size, double Width);

/// The words in lines of that width, MostLines of them at most: the last one ends with dots where it is cut.
std::vector<std::string> Wrapped(const iSurface& Surface, const std::string& Text, int Size, double Width,
                                 std::size_t MostLines);
