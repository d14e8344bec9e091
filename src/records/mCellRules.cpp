// Numbers, dates and texts, each with its reasons.
#include "records/mCellRules.h"

#include "base/mIsoDate.h"
#include "base/mNumText.h"

#include <algorithm>

namespace {
std::string_view Trim(std::string_view Text)
{
    const auto First = Text.find_first_not_of(' ');
    if (First == std::string_view::npos) return {};
    return Text.substr(First, Text.find_last_not_of(' ') - First + 1);
}

// Digits with a point among them, taken off the front. False when there are none.
bool TakeDigits(std::string_view& Text, bool TakesPoint)
{
    int Digits = 0;
    for (; !Text.empty(); Text.remove_prefix(1)) {
        const bool IsPoint = Text[0] == '.';
        if (IsPoint ? !TakesPoint : Text[0] < '0' || Text[0] > '9') break;
        if (IsPoint)
            TakesPoint = false;
        else
            ++Digits;
    }
    return Digits > 0;
}

void TakeSign(std::string_view& Text)
{
    if (Text.starts_with('-') || Text.starts_with('+')) Text.remove_prefix(1);
}

bool IsNumber(std::string_view Text)
{
    TakeSign(Text);
    if (!TakeDigits(Text, true)) return false;
    if (Text.empty()) return true;
    if (Text[0] != 'e' && Text[0] != 'E') return false;
    Text.remove_prefix(1);
    TakeSign(Text);
    return TakeDigits(Text, false) && Text.empty();
}

// A comma typed for the decimal point; beside a point it is something else.
std::string WithPoint(std::string_view Text, eFrom From)
{
    std::string Number(Text);
    if (From == eFrom::Typed && std::count(Number.begin(), Number.end(), ',') == 1 &&
        Number.find('.') == std::string::npos)
        std::replace(Number.begin(), Number.end(), ',', '.');
    return Number;
}

std::string NumberText(const GridColumn& Column, double X)
{
    if (Column.Kind != eCell::Number) return FormatNum(X + 0.0, "0"); // a typed -0 is kept as 0
    return Column.IsSingle ? FormatShortest(static_cast<float>(X)) : FormatShortest(X);
}

std::string BoundText(const GridColumn& Column, double X)
{
    return Column.Kind == eCell::Number ? FormatGeneral(X, 6) : FormatNum(X, "0");
}

std::string TakeNumber(const GridColumn& Column, std::string& Text, eFrom From)
{
    const auto X = PlainNumber(WithPoint(Trim(Text), From));
    if (!X) return Text.empty() ? "a number is missing" : "\"" + Text + "\" is no number";
    if (Column.Kind != eCell::Number && *X != RoundHalfEven(*X)) return "takes whole numbers only";
    if (*X < Column.Low || *X > Column.High)
        return "takes numbers from " + BoundText(Column, Column.Low) + " to " + BoundText(Column, Column.High);
    Text = NumberText(Column, *X);
    return {};
}

std::string TakeDate(std::string& Text, eFrom From)
{
    // The file has two digits for the year, which stand for these.
    static const double First = *DateFromCalendar(1930, 1, 1);
    static const double Last = *DateFromCalendar(2029, 12, 31);
    std::optional<double> Date = Trim(Text).empty() ? 0.0 : ParseIsoDate(Trim(Text));
    if (!Date && From == eFrom::Typed) Date = ParseDate(Text);
    if (!Date)
        return "\"" + Text + "\" is no date: " + (From == eFrom::Typed ? "type day/month/year" : "write yyyy-mm-dd");
    if (*Date != 0.0 && (*Date < First || *Date > Last))
        return "takes dates from 1930 to 2029, which the file can hold";
    Text = FormatIsoDate(*Date);
    return {};
}

std::string TakeText(const GridColumn& Column, std::string& Text)
{
    if (Column.Held.contains(Text)) return {};
    if (Text.find_first_of("\t\r\n") != std::string::npos) return "takes neither tabs nor line breaks";
    if (Column.IsTrimmed) Text = Trim(Text);
    if (Column.HasNoQuotes && Text.find('"') != std::string::npos) return "takes no double quotes";
    if (Column.BeginsLine && Text.starts_with("End"))
        return "cannot begin with \"End\": it would end the table in the file";
    if (Column.Most > 0 && CountCharacters(Text) > Column.Most)
        return "takes " + FormatNum(Column.Most, "0") +
               (Column.Most == 1 ? " character, these are " : " characters, these are ") +
               FormatNum(CountCharacters(Text), "0");
    return {};
}
} // namespace

std::optional<double> PlainNumber(std::string_view Text)
{
    Text = Trim(Text);
    return IsNumber(Text) ? LeadingNumber(Text) : std::nullopt;
}

int CountCharacters(std::string_view Text)
{
    return static_cast<int>(std::count_if(Text.begin(), Text.end(),
                                          [](char C) { return (static_cast<unsigned char>(C) & 0xC0U) != 0x80; }));
}

std::string TakeCell(const GridColumn& Column, std::string& Text, eFrom From)
{
    switch (Column.Kind) {
    case eCell::RowNumber:
        return "is the number of the row";
    case eCell::Text:
        return TakeText(Column, Text);
    case eCell::Date:
        return TakeDate(Text, From);
    default:
        return TakeNumber(Column, Text, From);
    }
}
