// Text files as bytes: UTF-8 inside the program, UTF-8 or the legacy 8-bit code page on disk.
#pragma once

#include "core/mGlobData.h"

#include <string>

/// Bytes of a file as UTF-8. What is valid UTF-8 is taken as such, anything else is read in the legacy code page
/// (setting gCodePage, without it 1252, in Russian 1251). Encoding tells which it was.
std::string DecodeText(std::string Bytes, TextEncoding& Encoding);

/// UTF-8 text as the bytes of a file. Legacy and Ascii give the legacy code page when every character fits and
/// DecodeText will take it for that, otherwise UTF-8: nothing is ever replaced. A byte that is not UTF-8 counts as one
/// of the page.
std::string EncodeText(std::string Text, TextEncoding Encoding);
