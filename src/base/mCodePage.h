// Text files as bytes: UTF-8 inside the program, UTF-8 or the legacy 8-bit code page on disk.
#pragma once

#include <string>

/// How the bytes of a text file stand for characters. Ascii: either would do.
enum class TextEncoding
{
    Ascii,
    Legacy,
    Utf8
};

/// The 8-bit code pages of files that are not UTF-8.
enum class LegacyPage
{
    Latin,   // 1252
    Cyrillic // 1251
};

/// Bytes of a file as UTF-8. What is valid UTF-8 is taken as such, anything else is read in the legacy code page.
/// Encoding returns which it was.
std::string DecodeText(std::string Bytes, TextEncoding& Encoding, LegacyPage Page);

/// UTF-8 text as the bytes of a file. Legacy and Ascii give the legacy code page when every character fits and
/// DecodeText will take it for that, otherwise UTF-8: nothing is ever replaced. A byte that is not UTF-8 counts as one
/// of the page.
std::string EncodeText(std::string Text, TextEncoding Encoding, LegacyPage Page);
