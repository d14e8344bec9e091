// Columns of a record grid with the fields behind them, and the way between a record and its texts.
#pragma once

#include "base/mIsoDate.h"
#include "base/mNumText.h"
#include "core/mFields.h"
#include "records/mCellRules.h"
#include "records/mColumn.h"

#include <algorithm>
#include <limits>
#include <span>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

/// A column as the table of a kind says it.
struct ColumnSpec
{
    const char* Head;
    int Most = 0;                      // characters of a text
    const char* Field = nullptr;       // name of the field in the file; null: the head
    const char* Tip = "";              // help
    std::span<const Choice> Choices{}; // values that are usual
    float Scale = 1;                   // what the grid shows of a single: its value times this
    eCell Kind = eCell::Text;          // Colour and RowNumber are said here, others follow from the field
    bool IsKey = false;
};

/// A column and the field of a row behind it, null for the row's number.
template <class Row>
struct BoundColumn
{
    const Field<Row>* Behind;
    float Scale;
};

/// The fields of columns, in their order.
template <class Row>
std::vector<BoundColumn<Row>> BindColumns(std::span<const ColumnSpec> Specs, std::span<const Field<Row>> Fields)
{
    std::vector<BoundColumn<Row>> Bound;
    for (const ColumnSpec& Spec : Specs) {
        const std::string Name = Spec.Field ? Spec.Field : Spec.Head;
        const auto Found =
            std::find_if(Fields.begin(), Fields.end(), [&](const Field<Row>& Each) { return Each.Name == Name; });
        Bound.push_back({Found == Fields.end() ? nullptr : &*Found, Spec.Scale});
    }
    return Bound;
}

/// Gives Column what follows from the type of its field.
template <class Value>
void SetRange(GridColumn& Column, const FieldFormat& How)
{
    if constexpr (std::is_same_v<Value, std::string>) {
        Column.IsTrimmed = How.Form == FieldForm::Trimmed;
        Column.HasNoQuotes = How.Form == FieldForm::Unquoted;
    } else if (How.Form == FieldForm::Date) {
        Column.Kind = eCell::Date;
    } else {
        constexpr bool IsWhole = std::is_integral_v<Value>;
        if (Column.Kind == eCell::Text) Column.Kind = IsWhole ? eCell::Whole : eCell::Number;
        Column.IsSingle = std::is_same_v<Value, float>;
        Column.Low = static_cast<double>(std::numeric_limits<Value>::lowest());
        Column.High = static_cast<double>(std::numeric_limits<Value>::max());
        if (!IsWhole && How.Form == FieldForm::Number)
            Column.Tip += "The file keeps " + FormatNum(How.Decimals, "0") + " decimals.";
    }
}

/// The column of a grid. First is the first field of a line of the file.
template <class Row>
GridColumn MakeColumn(const ColumnSpec& Spec, const Field<Row>* Behind, const Field<Row>* First)
{
    GridColumn Column{.Head = Spec.Head, .Kind = Spec.Kind, .Rule = TakeCell, .Tip = Spec.Tip};
    if (!Column.Tip.empty()) Column.Tip += ' ';
    Column.Most = Spec.Most;
    Column.IsKey = Spec.IsKey;
    Column.BeginsLine = Behind == First;
    Column.Choices.assign(Spec.Choices.begin(), Spec.Choices.end());
    if (Behind)
        std::visit(
            [&](auto Member) {
                SetRange<std::remove_reference_t<decltype(std::declval<Row&>().*Member)>>(Column, Behind->How);
            },
            Behind->Member);
    return Column;
}

/// The text of a field in the grid: numbers in their shortest form, dates as yyyy-mm-dd.
template <class Row>
std::string GridText(const Row& Source, const BoundColumn<Row>& Column)
{
    if (!Column.Behind) return {};
    return std::visit(
        [&](auto Member) -> std::string {
            const auto& Value = Source.*Member;
            using Held = std::remove_cvref_t<decltype(Value)>;
            if constexpr (std::is_same_v<Held, std::string>)
                return Value;
            else if constexpr (std::is_integral_v<Held>)
                return FormatNum(Value, "0");
            else if constexpr (std::is_same_v<Held, float>)
                return FormatShortest(Value * Column.Scale);
            else
                return Column.Behind->How.Form == FieldForm::Date ? FormatIsoDate(Value) : FormatShortest(Value);
        },
        Column.Behind->Member);
}

/// Sets a field from a text that the column takes.
template <class Row>
void PutGridText(Row& Target, const BoundColumn<Row>& Column, const std::string& Text)
{
    if (!Column.Behind) return;
    std::visit(
        [&](auto Member) {
            auto& Value = Target.*Member;
            using Held = std::remove_cvref_t<decltype(Value)>;
            if constexpr (std::is_same_v<Held, std::string>)
                Value = Text;
            else if constexpr (std::is_same_v<Held, float>)
                Value = static_cast<float>(Val(Text)) / Column.Scale;
            else if (Column.Behind->How.Form == FieldForm::Date)
                Value = static_cast<Held>(ParseIsoDate(Text).value_or(0));
            else
                Value = static_cast<Held>(Val(Text));
        },
        Column.Behind->Member);
}

/// The texts of a record, a column after another.
template <class Row>
std::vector<std::string> GridTexts(const Row& Source, const std::vector<BoundColumn<Row>>& Columns)
{
    std::vector<std::string> Texts;
    Texts.reserve(Columns.size());
    for (const BoundColumn<Row>& Each : Columns)
        Texts.push_back(GridText(Source, Each));
    return Texts;
}

/// A record of texts: Former, with the fields whose texts are others.
template <class Row>
Row RecordFromTexts(const std::vector<std::string>& Texts, const std::vector<BoundColumn<Row>>& Columns, Row Former)
{
    for (std::size_t i = 0; i < Columns.size(); ++i)
        if (Texts[i] != GridText(Former, Columns[i])) PutGridText(Former, Columns[i], Texts[i]);
    return Former;
}
