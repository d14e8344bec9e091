// A column of a grid: its head, what its cells hold, and the texts that they take.
#pragma once

#include <set>
#include <string>
#include <vector>

enum class eCell
{
    Text,
    Whole,
    Number,
    Date,     // yyyy-mm-dd
    Colour,   // a number of the colour table
    RowNumber // of the row itself, from 1: not edited
};

/// Where a text comes from. In what is typed a comma may stand for the decimal point, and a date have the forms of the
/// user's country; a file says it in one way.
enum class eFrom
{
    Typed,
    File
};

/// A value that a user can choose, and what it means.
struct Choice
{
    std::string Text;
    std::string Meaning;
};

struct GridColumn;

/// Makes Text what a cell of the column takes. Gives why it takes none, empty when it does.
using CellRule = std::string (*)(const GridColumn& Column, std::string& Text, eFrom From);

struct GridColumn
{
    std::string Head;
    eCell Kind = eCell::Text;
    CellRule Rule = nullptr; // null: any text
    std::string Tip = {};    // for the user, in a sentence or two

    // What the rule of records asks for; see mCellRules.
    int Most = 0; // characters of a text, 0: any number
    double Low = 0;
    double High = 0;
    bool IsSingle = false;         // a number of single precision
    bool IsTrimmed = false;        // a text without blanks around it
    bool HasNoQuotes = false;      // a text whose quotes the file would not keep
    bool BeginsLine = false;       // the first field of a line of the file
    bool IsKey = false;            // a text that no other row should have
    std::vector<Choice> Choices{}; // few values that are usual; others are possible
    std::set<std::string> Held{};  // texts longer than Most that the table came with
};

/// Whether the cells stand at the right.
inline bool IsNumeric(const GridColumn& Column)
{
    return Column.Kind != eCell::Text && Column.Kind != eCell::Date;
}
