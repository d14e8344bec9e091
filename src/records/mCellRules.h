// What the cells of records take: the one check of what is typed, pasted or read from a table.
#pragma once

#include "records/mColumn.h"

#include <optional>
#include <string>
#include <string_view>

/// Makes Text the text that its field keeps: numbers and dates in their one form, texts as they are. Gives why the
/// field cannot take it, in words that follow a column's name, empty when it can.
std::string TakeCell(const GridColumn& Column, std::string& Text, eFrom From);

/// The number that Text is, blanks around it left out; nothing when there is anything else, or it is too large.
std::optional<double> PlainNumber(std::string_view Text);

/// Characters of a text in UTF-8.
int CountCharacters(std::string_view Text);
