// The pages of the options, put together from their parts.
#include "records/mOptions.h"

#include "base/mNumText.h"
#include "records/mOptionParts.h"

namespace {
constexpr OptionPage Pages[] = {
    {eOptionPage::Logger, "&Logger"},           {eOptionPage::Link, "Li&nk"},
    {eOptionPage::Processing, "&Processing"},   {eOptionPage::Splits, "&Splits"},
    {eOptionPage::Calibrators, "Cali&brators"}, {eOptionPage::Feedback, "&Feedback"},
    {eOptionPage::Colours, "Colo&urs"},         {eOptionPage::General, "&General"},
};

std::vector<OptionGroup> MakeGroups()
{
    std::vector<OptionGroup> Groups;
    for (const auto Add :
         {AddLogger, AddLink, AddProcessing, AddSplits, AddCalibrators, AddFeedback, AddColours, AddGeneral})
        Add(Groups);
    return Groups;
}
} // namespace

std::span<const OptionPage> OptionPages()
{
    return Pages;
}

std::span<const OptionGroup> OptionGroups()
{
    static const std::vector<OptionGroup> Groups = MakeGroups();
    return Groups;
}

std::string Numbered(const char* Name, std::size_t i, const char* Pattern)
{
    return Name + FormatNum(static_cast<double>(i), Pattern);
}

OptionItem Switch(const char* Control, const char* Label, OptionGlobal Global, const char* Key, const char* Help,
                  OptionFault Fault)
{
    return {.Control = Control,
            .Label = Label,
            .Kind = eOption::Check,
            .Global = Global,
            .Key = Key,
            .Help = Help,
            .Fault = Fault};
}

std::vector<OptionChoice> InTurn(std::initializer_list<const char*> Texts)
{
    std::vector<OptionChoice> Choices;
    for (const char* Text : Texts)
        Choices.push_back({Text, static_cast<int32_t>(Choices.size())});
    return Choices;
}
