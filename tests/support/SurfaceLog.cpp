// Drawing calls as text.
#include "support/SurfaceLog.h"

#include "core/mNumText.h"

#include <utility>

namespace {
// Red, green and blue as two hexadecimal digits each.
std::string Name(int32_t Colour)
{
    if (Colour == NoFill) return "empty";
    std::string Digits = "#";
    for (const int Part : {Colour & 255, (Colour >> 8) & 255, (Colour >> 16) & 255}) {
        Digits += "0123456789ABCDEF"[Part / 16];
        Digits += "0123456789ABCDEF"[Part % 16];
    }
    return Digits;
}
} // namespace

std::vector<std::string> SurfaceLog::Take()
{
    return std::exchange(Calls, {});
}

void SurfaceLog::Add(const std::string& What, std::vector<double> Numbers, const std::string& Behind)
{
    std::string Call = What;
    for (const double Number : Numbers)
        Call.append(" ").append(FormatShortest(Number));
    if (!Behind.empty()) Call.append(" ").append(Behind);
    Calls.push_back(Call);
}

void SurfaceLog::Clear(int32_t Colour)
{
    Add("clear", {}, Name(Colour));
}

void SurfaceLog::SetPen(int32_t Colour, int Width)
{
    Pen = Name(Colour);
    if (Width > 1) Pen.append(" wide ").append(FormatNum(Width, "0"));
}

void SurfaceLog::SetFill(int32_t Colour)
{
    Fill = Name(Colour);
}

void SurfaceLog::SetFont(int Size, bool Bold)
{
    Font = FormatNum(Size, "0") + (Bold ? " bold" : "");
}

void SurfaceLog::Line(double X1, double Y1, double X2, double Y2)
{
    Add("line", {X1, Y1, X2, Y2}, Pen);
}

void SurfaceLog::Polyline(std::span<const SurfacePoint> Points)
{
    std::vector<double> Numbers;
    for (const SurfacePoint& Corner : Points)
        Numbers.insert(Numbers.end(), {static_cast<double>(Corner.X), static_cast<double>(Corner.Y)});
    Add("polyline", Numbers, Pen);
}

void SurfaceLog::Point(double X, double Y)
{
    Add("point", {X, Y}, Pen);
}

void SurfaceLog::Circle(double X, double Y, double Radius)
{
    Add("circle", {X, Y, Radius}, Pen + " " + Fill);
}

void SurfaceLog::Box(double X1, double Y1, double X2, double Y2)
{
    Add("box", {X1, Y1, X2, Y2}, Pen + " " + Fill);
}

void SurfaceLog::Text(double X, double Y, const std::string& Text, eAlign Align)
{
    const char* Aligned = Align == eAlign::Left ? "" : Align == eAlign::Right ? " right" : " centre";
    std::string Behind = "\"";
    Behind.append(Text).append("\" ").append(Font).append(Aligned).append(" ").append(Pen);
    Add("text", {X, Y}, Behind);
}

void SurfaceLog::KeepGround()
{
    Add("keep", {}, "");
}

void SurfaceLog::RestoreGround(double X1, double Y1, double X2, double Y2)
{
    Add("restore", {X1, Y1, X2, Y2}, "");
}
