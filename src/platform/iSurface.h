// A picture to draw on that stays as it was drawn: the plots, panels and views draw through this.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// Places and lengths are in drawing units, one ninety-sixth of an inch on screen; x grows to the right, y downward.
struct SurfacePoint
{
    int32_t X = 0;
    int32_t Y = 0;
};

/// A place between drawing units.
struct SurfacePlace
{
    double X = 0;
    double Y = 0;
};

/// Which part of a text stands at the place given.
enum class eAlign
{
    Left,
    Centre,
    Right
};

/// Colour of SetFill that leaves boxes and circles empty.
inline constexpr int32_t NoFill = -1;

/// Colours are 0x00BBGGRR.
class iSurface
{
public:
    virtual ~iSurface() = default;

    /// Width and height.
    virtual SurfacePoint Size() const = 0;

    /// The smallest step that can be seen, in drawing units.
    virtual double Pixel() const { return 1; }

    /// Paints everything, the kept ground as well, in one colour, or with the background picture when there is one.
    virtual void Clear(int32_t Colour) = 0;

    /// Takes a picture, stretched over the whole surface, for the ground of the next Clear. An empty path takes it
    /// away; a file that is no picture is as none.
    virtual void SetBackground(const std::string& Path) = 0;

    /// Colour and width of lines and outlines, and the colour of texts.
    virtual void SetPen(int32_t Colour, int Width = 1) = 0;

    virtual void SetFill(int32_t Colour) = 0;

    /// Height of texts in drawing units.
    virtual void SetFont(int Size, bool Bold = false) = 0;

    virtual void Line(double X1, double Y1, double X2, double Y2) = 0;
    virtual void Polyline(std::span<const SurfacePoint> Points) = 0;

    /// A polyline with smooth edges between places of any fineness.
    virtual void Curve(std::span<const SurfacePlace> Places)
    {
        std::vector<SurfacePoint> Points;
        for (const SurfacePlace& Each : Places)
            Points.push_back({static_cast<int32_t>(std::lrint(Each.X)), static_cast<int32_t>(std::lrint(Each.Y))});
        Polyline(Points);
    }

    virtual void Point(double X, double Y) = 0;
    virtual void Circle(double X, double Y, double Radius) = 0;
    virtual void Box(double X1, double Y1, double X2, double Y2) = 0;

    /// Writes Text with its top at Y.
    virtual void Text(double X, double Y, const std::string& Text, eAlign Align = eAlign::Left) = 0;

    /// Width of a text in a font of that height. Where there is no font to measure it is an estimate by the number of
    /// characters.
    virtual double TextWidth(const std::string& Text, int Size, bool Bold = false) const
    {
        const auto Letters = std::count_if(Text.begin(), Text.end(), [](char C) { return (C & 0xC0) != 0x80; });
        return static_cast<double>(Letters) * Size * (Bold ? 0.66 : 0.6);
    }

    /// Keeps the picture as it is now as the ground on which passing things are drawn.
    virtual void KeepGround() = 0;

    /// Puts the ground back in a box, edges included: this takes passing things away and leaves no holes in grids.
    virtual void RestoreGround(double X1, double Y1, double X2, double Y2) = 0;
};
