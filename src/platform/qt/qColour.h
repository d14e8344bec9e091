// Colours between the engine's 0x00BBGGRR and the toolkit.
#pragma once

#include <QColor>

#include <cstdint>

inline QColor ToQColor(int32_t Colour)
{
    return {Colour & 255, (Colour >> 8) & 255, (Colour >> 16) & 255};
}

inline int32_t FromQColor(const QColor& Colour)
{
    return Colour.red() | Colour.green() << 8 | Colour.blue() << 16;
}
