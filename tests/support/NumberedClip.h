// Clips made for a test: each picture shows its number as eight blocks, black for 0 and white for 1.
#pragma once

#include "platform/ffmpeg/sFilm.h"

#include <functional>
#include <string>
#include <vector>

inline constexpr int ClipWidth = 160;
inline constexpr int ClipHeight = 96;
inline constexpr int ClipBits = 8;

/// Picture Number: its bits in two rows of four blocks, the highest at the top left. Behind a pattern that moves the
/// coder has something to predict.
inline Picture NumberedPicture(int Number)
{
    constexpr int InARow = ClipBits / 2;
    Picture Made{ClipWidth, ClipHeight, std::vector<uint32_t>(ClipWidth * ClipHeight)};
    for (int Y = 0; Y < ClipHeight; ++Y)
        for (int X = 0; X < ClipWidth; ++X) {
            const int Bit = (Y * 2 / ClipHeight) * InARow + X * InARow / ClipWidth;
            const bool IsWhite = (Number >> (ClipBits - 1 - Bit)) & 1;
            const int Pattern = (X + 3 * Number) / 8 % 2 * 24;
            const auto Grey = static_cast<uint32_t>(IsWhite ? 255 - Pattern : Pattern);
            Made.Pixels[static_cast<std::size_t>(Y * ClipWidth + X)] = 0xFF000000U | Grey << 16 | Grey << 8 | Grey;
        }
    return Made;
}

/// The number that a picture of any size shows.
inline int NumberShown(const Picture& Shown)
{
    constexpr int InARow = ClipBits / 2;
    int Number = 0;
    for (int Bit = 0; Bit < ClipBits; ++Bit) {
        const int X = Shown.Width * (2 * (Bit % InARow) + 1) / ClipBits;
        const int Y = Shown.Height * (2 * (Bit / InARow) + 1) / 4;
        const uint32_t Pixel = Shown.Pixels[static_cast<std::size_t>(Y * Shown.Width + X)];
        Number = Number * 2 + ((Pixel & 0xFF) > 127 ? 1 : 0);
    }
    return Number;
}

/// Writes a clip of so many pictures; picture i is seen at tick TickOf(i). Gives an empty text, or why it failed.
inline std::string WriteClip(
    const std::string& Path, const FilmKind& Kind, int Pictures,
    const std::function<int64_t(int)>& TickOf = [](int i) { return int64_t{i}; })
{
    sFilm Film;
    std::string Why = Film.Begin(Path, Kind, ClipWidth, ClipHeight);
    for (int i = 0; Why.empty() && i < Pictures; ++i)
        Why = Film.Add(NumberedPicture(i), TickOf(i));
    return Why.empty() ? Film.End() : Why;
}
