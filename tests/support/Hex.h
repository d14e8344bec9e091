// Bytes of frames and files, typed in hexadecimal.
#pragma once

#include <charconv>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The bytes of pairs of hexadecimal digits with blanks between them.
inline std::vector<uint8_t> Hex(std::string_view Text)
{
    std::vector<uint8_t> Bytes;
    for (std::size_t i = 0; i < Text.size(); i += Text[i] == ' ' ? 1U : 2U) {
        if (Text[i] == ' ') continue;
        uint8_t Byte = 0;
        std::from_chars(Text.data() + i, Text.data() + i + 2, Byte, 16);
        Bytes.push_back(Byte);
    }
    return Bytes;
}

/// The same bytes as a text, for files.
inline std::string HexText(std::string_view Text)
{
    const auto Bytes = Hex(Text);
    return {Bytes.begin(), Bytes.end()};
}
