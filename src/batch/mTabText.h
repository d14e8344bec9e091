// The tables of the commands on derived variables and live panels: cells separated by tabs, lines ended by LF, numbers
// in their shortest form of nine digits.
#pragma once

#include "base/mNumText.h"

#include <string>

class TabText
{
public:
    explicit TabText(const char* Heads) : Whole(Heads) { Whole += '\n'; }

    TabText& Cell(const std::string& Words)
    {
        if (!IsLineStart) Whole += '\t';
        IsLineStart = false;
        Whole += Words;
        return *this;
    }
    TabText& Cell(double X) { return Cell(FormatGeneral(X, Digits)); }
    void EndLine()
    {
        Whole += '\n';
        IsLineStart = true;
    }
    const std::string& Text() const { return Whole; }

private:
    static constexpr int Digits = 9;

    std::string Whole;
    bool IsLineStart = true;
};
