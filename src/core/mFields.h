// The columns of every row type: one table each, from which the reader, the writer and the grid follow.
#pragma once

#include "core/mGlobData.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

enum class FieldForm
{
    Text,
    Trimmed,  // text without the blanks around it
    Unquoted, // text without double quotes
    Number,   // at least Whole digits before the point, Decimals after it
    Sig,      // Decimals significant digits, less those before the point
    Sig6,     // six to two decimals by magnitude
    Truth,    // -1 or 0
    Date      // dd/mm/yy
};

/// How a field is written in a file.
struct FieldFormat
{
    FieldForm Form = FieldForm::Text;
    int Whole = 1;
    int Decimals = 0;
};

/// One column of a row type.
template <class Row>
struct Field
{
    const char* Name;
    std::variant<std::string Row::*, int16_t Row::*, int32_t Row::*, float Row::*, double Row::*, bool Row::*> Member;
    FieldFormat How;
};

// The columns in the order of the file. SessID and Chan are not stored.
std::span<const Field<DataFile>> MainFields();
std::span<const Field<DataFile>> SessHeadFields(); // of every file
std::span<const Field<DataFile>> SessTailFields(); // of files with Model 2 and above
std::span<const Field<CrewRow>> CrewFields();
std::span<const Field<CalibrRow>> CalibrFields();
std::span<const Field<ViewRow>> ViewFields();
std::span<const Field<BoatRow>> BoatFields();
std::span<const Field<DescRow>> DescFields();
std::span<const Field<DataRow>> DataFields(); // the columns before the values
std::span<const Field<DotRow>> DotFields();
std::span<const Field<SegRow>> SegFields();
std::span<const Field<VideoIDRow>> VideoIDFields();

// A value taken from Text. A number is the leading one of the text, 0 without one; one that the value cannot hold, or
// a text that is no date, leaves the former value.
void StoreText(std::string& Value, const FieldFormat& How, std::string_view Text);
void StoreText(int16_t& Value, const FieldFormat& How, std::string_view Text);
void StoreText(int32_t& Value, const FieldFormat& How, std::string_view Text);
void StoreText(float& Value, const FieldFormat& How, std::string_view Text);
void StoreText(double& Value, const FieldFormat& How, std::string_view Text);
void StoreText(bool& Value, const FieldFormat& How, std::string_view Text);

// A value appended to Line.
void AppendText(std::string& Line, const FieldFormat& How, const std::string& Value);
void AppendText(std::string& Line, const FieldFormat& How, double Value);

/// Sets a field of a row from text, by the rules of StoreText.
template <class Row>
void SetField(Row& Target, const Field<Row>& Column, std::string_view Text)
{
    std::visit([&](auto Member) { StoreText(Target.*Member, Column.How, Text); }, Column.Member);
}

/// Appends the text of a field to Line.
template <class Row>
void AppendField(std::string& Line, const Row& Source, const Field<Row>& Column)
{
    const auto Append = [&](auto Member) {
        if constexpr (std::is_same_v<decltype(Member), std::string Row::*>)
            AppendText(Line, Column.How, Source.*Member);
        else
            AppendText(Line, Column.How, static_cast<double>(Source.*Member));
    };
    std::visit(Append, Column.Member);
}
