// What the options show: the text of every setting, what is wrong with it, the search for a word, and storing.
#pragma once

#include "records/mOptions.h"

#include <string>
#include <vector>

class cOptions
{
public:
    /// Shows the settings as they are in the store, and those of the session and of the ini file. Changes nothing.
    cOptions();

    int Count() const { return static_cast<int>(Shown.size()); }
    const OptionItem& Item(int Index) const;

    eOptionPage Page(int Index) const;

    /// The label of the row of a table that the setting stands in; empty in a form.
    std::string RowName(int Index) const;

    /// The place of the control of that name; -1 when there is none.
    int Find(const std::string& Control) const;

    /// What is shown: a number or text as it was typed; "1" or "0" of a check; the place of a choice, or nothing.
    const std::string& Text(int Index) const;

    /// Types or chooses.
    void Put(int Index, const std::string& Text);

    // Of the control of that name: the leading number of its text, whether it is checked, the value that is chosen, -1
    // for none.
    double Number(const std::string& Control) const;
    bool IsOn(const std::string& Control) const;
    int Chosen(const std::string& Control) const;

    /// Why the program cannot use what is shown, in a few words; empty when it can.
    std::string Fault(int Index) const;

    /// The settings in whose texts, or in whose page or group, all words of Words are found, in the order of the pages.
    std::vector<int> Search(const std::string& Words) const;

    /// Stores everything in memory, in the settings store, the ini file and, when one is open, the session data file.
    /// What was not typed or chosen anew keeps its value to the last digit. False when a number does not fit, and then
    /// nothing is changed, or when a file cannot be written (reported to the user).
    bool SaveMain();

    /// The place of the first number that cannot be stored, -1 when there is none.
    int FirstTooLarge() const;

    /// Asks for a colour, which is taken at once. False when none was chosen.
    bool ChooseColour(int Index);

    /// Takes a pen width at once.
    static void SetPenWidth(int16_t Width);

    /// Asks for the file of a setting and shows the path chosen. False when none was.
    bool Browse(int Index);

private:
    struct Entry
    {
        const OptionGroup* Group;
        const OptionItem* Item;
        std::string Text;
        std::string Filled; // the text of the value in memory
    };

    void Fill();
    bool IsAnyChosen(const OptionGroup& Group) const;
    bool ReportTooLarge() const;
    std::string NumberFault(int Index) const;
    static std::string SearchedText(const Entry& Each);
    void ReleaseRadios(const Entry& Chosen);

    std::vector<Entry> Shown;
};
