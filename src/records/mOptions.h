// The table of settings that the options show: pages, groups and controls, with units, help and what is usable. Window,
// search, storing and tests follow from it.
#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <string>
#include <variant>
#include <vector>

class cOptions;

/// The pages in their order.
enum class eOptionPage
{
    Logger,
    Link,
    Processing,
    Splits,
    Calibrators,
    Feedback,
    Colours,
    General
};

enum class eOption
{
    Number,
    Text,
    Port, // a number or the path of a serial device
    File,
    Check,
    Radio,  // of those of its group one is chosen, or none
    Choice, // of Choices
    Shown,  // cannot be changed
    Colour, // taken at once
    PenWidth
};

struct OptionItem;

/// Why what is shown of a setting cannot be used, beside that of its kind and its Range; empty when it can.
using OptionFault = std::string (*)(const cOptions& Shown, const OptionItem& Item);

struct OptionChoice
{
    std::string Text;
    int32_t Value;
};

/// The lowest and the highest number that the program can use, and why it cannot use another one.
struct OptionRange
{
    double Min = -std::numeric_limits<double>::infinity();
    double Max = std::numeric_limits<double>::infinity();
    const char* Why = "";
};

using OptionGlobal = std::variant<std::monostate, int16_t*, int32_t*, float*, double*, bool*, std::string*,
                                  const int16_t*, const double*>;

/// A setting with its control.
struct OptionItem
{
    std::string Control{}; // object name
    std::string Label{};
    eOption Kind = eOption::Number;
    OptionGlobal Global{};
    std::string Key{}; // in the settings store; none: the setting is in the session, in the ini file, or taken at once
    std::string Unit{};
    std::string Help{};
    std::string Format = "0"; // of a number; none: the shortest text
    double Scale = 1;         // what is shown for a stored 1
    OptionRange Range{};
    OptionFault Fault = nullptr;
    std::vector<OptionChoice> Choices{};
    std::vector<std::string> (*Proposals)() = nullptr; // texts that are offered while it is typed
    std::string FileTitle{};                           // of the dialog that asks for a file
    std::string FileExt{};
    int Row = 0; // in a table
};

enum class eOptionLayout
{
    Form, // one below the other
    Table // side by side in rows
};

struct OptionGroup
{
    eOptionPage Page;
    std::string Title;
    std::vector<OptionItem> Items;
    std::string Note{}; // below the title
    eOptionLayout Layout = eOptionLayout::Form;
    std::vector<std::string> Columns{}; // headings of a table
    std::vector<std::string> Rows{};    // labels of a table's rows
    std::string LabelNames{};           // object name of the labels of a form, without the index
};

struct OptionPage
{
    eOptionPage Page;
    const char* Title;
};

/// The pages from left to right.
std::span<const OptionPage> OptionPages();

/// All settings, page by page, in the order in which they are stored.
std::span<const OptionGroup> OptionGroups();
