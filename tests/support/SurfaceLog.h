// A surface that writes what is drawn on it as lines of text.
#pragma once

#include "base/mNumText.h"
#include "platform/iSurface.h"

#include <string>
#include <utility>
#include <vector>

class SurfaceLog : public iSurface
{
public:
    SurfaceLog(int Width, int Height) : Extent{Width, Height} {}

    /// The calls since the last Take, a line each: what was drawn, where, and in which pen or fill.
    std::vector<std::string> Take() { return std::exchange(Calls, {}); }

    SurfacePoint Extent;

    SurfacePoint Size() const override { return Extent; }
    void Clear(int32_t Colour) override { Add("clear", {}, Name(Colour)); }
    void SetBackground(const std::string& Path) override { Add("background", {}, Path); }
    void SetPen(int32_t Colour, int Width) override
    {
        Pen = Name(Colour);
        if (Width > 1) Pen.append(" wide ").append(FormatNum(Width, "0"));
    }
    void SetFill(int32_t Colour) override { Fill = Name(Colour); }
    void SetFont(int Size, bool Bold) override { Font = FormatNum(Size, "0") + (Bold ? " bold" : ""); }
    void Line(double X1, double Y1, double X2, double Y2) override { Add("line", {X1, Y1, X2, Y2}, Pen); }
    void Polyline(std::span<const SurfacePoint> Points) override
    {
        std::vector<double> Numbers;
        for (const SurfacePoint& Corner : Points)
            Numbers.insert(Numbers.end(), {static_cast<double>(Corner.X), static_cast<double>(Corner.Y)});
        Add("polyline", Numbers, Pen);
    }
    void Point(double X, double Y) override { Add("point", {X, Y}, Pen); }
    void Circle(double X, double Y, double Radius) override { Add("circle", {X, Y, Radius}, Pen + " " + Fill); }
    void Box(double X1, double Y1, double X2, double Y2) override { Add("box", {X1, Y1, X2, Y2}, Pen + " " + Fill); }
    void Text(double X, double Y, const std::string& Text, eAlign Align) override
    {
        const char* Aligned = Align == eAlign::Left ? "" : Align == eAlign::Right ? " right" : " centre";
        std::string Behind = "\"";
        Behind.append(Text).append("\" ").append(Font).append(Aligned).append(" ").append(Pen);
        Add("text", {X, Y}, Behind);
    }
    void KeepGround() override { Add("keep", {}, ""); }
    void RestoreGround(double X1, double Y1, double X2, double Y2) override { Add("restore", {X1, Y1, X2, Y2}, ""); }

private:
    // Red, green and blue as two hexadecimal digits each.
    static std::string Name(int32_t Colour)
    {
        if (Colour == NoFill) return "empty";
        std::string Digits = "#";
        for (const int Part : {Colour & 255, (Colour >> 8) & 255, (Colour >> 16) & 255})
            for (const int Digit : {Part / 16, Part % 16})
                Digits += "0123456789ABCDEF"[Digit];
        return Digits;
    }

    void Add(std::string Call, const std::vector<double>& Numbers, const std::string& Behind)
    {
        for (const double Number : Numbers)
            Call.append(" ").append(FormatShortest(Number));
        if (!Behind.empty()) Call.append(" ").append(Behind);
        Calls.push_back(std::move(Call));
    }

    std::vector<std::string> Calls;
    std::string Pen;
    std::string Fill;
    std::string Font;
};
