// Showing, judging, finding and storing the settings of the table.
#include "records/cOptions.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "core/mIni.h"
#include "core/mModes.h"
#include "core/mNotice.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

#include <algorithm>
#include <cmath>

namespace {
template <class Type>
constexpr bool IsNumber = std::is_arithmetic_v<Type> && !std::is_same_v<Type, bool>;

std::string NumberText(const OptionItem& Item, double Value)
{
    return Item.Format.empty() ? FormatShortest(Value) : FormatNum(Value * Item.Scale, Item.Format);
}

// The place of Value among the choices. Of a logger's models 60 to 65 are one choice.
std::string ChoiceText(const OptionItem& Item, int32_t Value)
{
    if (Item.Global == OptionGlobal(&gFile.Model) && IsMasterModel(Value)) Value = ModelMaster;
    for (std::size_t i = 0; i < Item.Choices.size(); ++i)
        if (Item.Choices[i].Value == Value) return FormatNum(static_cast<double>(i), "0");
    return {};
}

// What is shown for a number that an integer or a real has.
std::string ShownNumber(const OptionItem& Item, double Value)
{
    if (Item.Kind == eOption::Check) return Value != 0 ? "1" : "0";
    if (Item.Kind == eOption::Choice) return ChoiceText(Item, RoundWithin(Value, INT32_MIN, INT32_MAX));
    return NumberText(Item, Value);
}

std::string GlobalText(const OptionItem& Item)
{
    if (Item.Kind == eOption::Port) return PortText();
    return std::visit(
        [&](auto Global) -> std::string {
            using Type = std::remove_cv_t<std::remove_pointer_t<decltype(Global)>>;
            if constexpr (std::is_same_v<Type, std::string>)
                return *Global;
            else if constexpr (std::is_same_v<Type, bool>)
                return *Global ? "1" : "0";
            else if constexpr (IsNumber<Type>)
                return ShownNumber(Item, static_cast<double>(*Global));
            else
                return {};
        },
        Item.Global);
}

// The store's value as it is shown: another program may have changed it. The key mode in use is the session's.
std::string StoreText(const OptionItem& Item)
{
    if (Item.Key.empty() || Item.Global == OptionGlobal(&gKeyMode)) return GlobalText(Item);
    const Setting& Known = *FindSetting(Item.Key);
    std::string Stored = gHost.Settings->GetSetting(Known.Section, Known.Key).value_or(Known.Default);
    if (!IsValidFor(Known, Stored)) Stored = Known.Default;
    return std::holds_alternative<std::string*>(Item.Global) ? Stored : ShownNumber(Item, Val(Stored));
}

// What a text stands for, in the global's unit.
double ValueOf(const OptionItem& Item, const std::string& Text)
{
    if (Item.Kind != eOption::Choice) return Val(Text) / Item.Scale;
    return At(Item.Choices, static_cast<int>(Val(Text))).Value;
}

template <class Type>
bool Fits(double Value)
{
    if constexpr (std::is_integral_v<Type>)
        return RoundHalfEven(Value) >= std::numeric_limits<Type>::min() &&
               RoundHalfEven(Value) <= std::numeric_limits<Type>::max();
    return std::abs(Value) <= static_cast<double>(std::numeric_limits<Type>::max());
}

// The range of a whole number's global as text; empty when Value fits into it.
std::string RangeMissed(const OptionItem& Item, double Value)
{
    return std::visit(
        [&](auto Global) -> std::string {
            using Type = std::remove_pointer_t<decltype(Global)>;
            if constexpr (IsNumber<Type> && !std::is_const_v<Type>)
                if (!Fits<Type>(Value))
                    return FormatShortest(static_cast<double>(std::numeric_limits<Type>::lowest())) + " to " +
                           FormatShortest(static_cast<double>(std::numeric_limits<Type>::max()));
            return {};
        },
        Item.Global);
}

void StoreGlobal(const OptionItem& Item, const std::string& Text)
{
    if (Item.Kind == eOption::Port) return SetPort(Text);
    std::visit(
        [&](auto Global) {
            using Type = std::remove_pointer_t<decltype(Global)>;
            if constexpr (std::is_same_v<Type, std::string>)
                *Global = Text;
            else if constexpr (std::is_same_v<Type, bool>)
                *Global = Text == "1";
            else if constexpr (IsNumber<Type> && !std::is_const_v<Type>) {
                if (Item.Kind == eOption::Choice && Text.empty()) return;
                const double Value = ValueOf(Item, Text);
                *Global = static_cast<Type>(std::is_integral_v<Type> ? RoundHalfEven(Value) : Value);
            }
        },
        Item.Global);
}

bool IsTyped(const OptionItem& Item)
{
    return Item.Kind == eOption::Number || Item.Kind == eOption::Port;
}

// Only the 26 letters are folded: the words of the table have no others.
std::string Lower(std::string Text)
{
    for (char& Letter : Text)
        if (Letter >= 'A' && Letter <= 'Z') Letter = static_cast<char>(Letter - 'A' + 'a');
    return Text;
}

// A session whose key mode is in use keeps it with itself: otherwise its next opening would bring the former one back.
void TakeKeyMode(bool IsChosen)
{
    gKeyModeSet = gKeyMode;
    if (IsChosen && IsKeyMode(gFile.KeyMode)) gFile.KeyMode = gKeyMode;
}

void TakeActiveSensor()
{
    for (const CalibrSensRow& Row : gCalibrSens) {
        if (!Row.IsActive) continue;
        gAutoCalCh = Row.CalCh;
        gAutoCalQ0 = Row.Q0;
        gAutoCalQ1 = Row.Q1;
    }
}

bool WriteFiles()
{
    const bool HasIni = WriteIni();
    if (gCurFile.empty()) return HasIni;
    return WriteDataFile(gCurFile, gFile, SectionFilter::Any) && HasIni;
}
} // namespace

cOptions::cOptions()
{
    for (const OptionGroup& Group : OptionGroups())
        for (const OptionItem& Item : Group.Items)
            Shown.push_back({&Group, &Item, {}, {}});
    Fill();
    for (Entry& Each : Shown)
        if (!Each.Item->Key.empty()) Each.Text = StoreText(*Each.Item);
}

void cOptions::Fill()
{
    for (Entry& Each : Shown)
        Each.Text = Each.Filled = GlobalText(*Each.Item);
    // The radio that stands for none is chosen when no other one is.
    for (Entry& Each : Shown)
        if (Each.Item->Kind == eOption::Radio && std::holds_alternative<std::monostate>(Each.Item->Global))
            Each.Text = Each.Filled = IsAnyChosen(*Each.Group) ? "0" : "1";
}

bool cOptions::IsAnyChosen(const OptionGroup& Group) const
{
    return std::any_of(Shown.begin(), Shown.end(), [&](const Entry& Each) {
        return Each.Group == &Group && Each.Item->Kind == eOption::Radio && Each.Text == "1";
    });
}

const OptionItem& cOptions::Item(int Index) const
{
    return *At(Shown, Index).Item;
}

eOptionPage cOptions::Page(int Index) const
{
    return At(Shown, Index).Group->Page;
}

std::string cOptions::RowName(int Index) const
{
    const Entry& Each = At(Shown, Index);
    return Each.Group->Rows.empty() ? "" : At(Each.Group->Rows, Each.Item->Row);
}

int cOptions::Find(const std::string& Control) const
{
    const auto Found =
        std::find_if(Shown.begin(), Shown.end(), [&](const Entry& Each) { return Each.Item->Control == Control; });
    return Found == Shown.end() ? -1 : static_cast<int>(Found - Shown.begin());
}

const std::string& cOptions::Text(int Index) const
{
    return At(Shown, Index).Text;
}

void cOptions::Put(int Index, const std::string& Text)
{
    Entry& Each = At(Shown, Index);
    Each.Text = Text;
    if (Each.Item->Kind == eOption::Radio && Text == "1") ReleaseRadios(Each);
}

void cOptions::ReleaseRadios(const Entry& Chosen)
{
    for (Entry& Each : Shown)
        if (&Each != &Chosen && Each.Group == Chosen.Group && Each.Item->Kind == eOption::Radio) Each.Text = "0";
}

double cOptions::Number(const std::string& Control) const
{
    return Val(Text(Find(Control)));
}

bool cOptions::IsOn(const std::string& Control) const
{
    return Text(Find(Control)) == "1";
}

int cOptions::Chosen(const std::string& Control) const
{
    const int Index = Find(Control);
    return Text(Index).empty() ? -1 : static_cast<int>(ValueOf(Item(Index), Text(Index)));
}

std::string cOptions::NumberFault(int Index) const
{
    const OptionItem& Each = Item(Index);
    const std::string& Typed = Text(Index);
    const std::string Last = Typed.substr(0, Typed.find_last_not_of(" \t") + 1);
    if (Each.Kind == eOption::Port && Last.starts_with('/')) return {};
    const auto Number = LeadingNumber(Typed);
    if (!Number) return Last.empty() ? "Empty: taken as 0." : "Not a number: taken as 0.";
    if (const std::string Range = RangeMissed(Each, *Number / Each.Scale); !Range.empty())
        return "Cannot be stored: only " + Range + ".";
    if (!(Last.back() == '.' || (Last.back() >= '0' && Last.back() <= '9')))
        return "Taken as " + FormatShortest(*Number) + ": the rest is no number.";
    const bool IsWhole = Each.Format == "0" && !std::holds_alternative<double*>(Each.Global);
    if (IsWhole && *Number != RoundHalfEven(*Number))
        return "Taken as " + FormatShortest(RoundHalfEven(*Number)) + ": a whole number is needed.";
    if (*Number < Each.Range.Min || *Number > Each.Range.Max) return Each.Range.Why;
    return {};
}

std::string cOptions::Fault(int Index) const
{
    const OptionItem& Each = Item(Index);
    std::string Reason = IsTyped(Each) ? NumberFault(Index) : "";
    return Reason.empty() && Each.Fault ? Each.Fault(*this, Each) : Reason;
}

std::string cOptions::SearchedText(const Entry& Each)
{
    const OptionItem& Item = *Each.Item;
    std::string Text = Item.Label + " " + Item.Unit + " " + Item.Help + " " + Item.Key + " " + Item.Control + " " +
                       Each.Group->Title + " " + Each.Group->Note;
    for (const OptionChoice& Choice : Item.Choices)
        Text += " " + Choice.Text;
    for (const OptionPage& Page : OptionPages())
        if (Page.Page == Each.Group->Page) Text += std::string(" ") + Page.Title;
    std::erase(Text, '&');
    return Lower(Text);
}

std::vector<int> cOptions::Search(const std::string& Words) const
{
    std::vector<std::string> Wanted(1);
    for (const char Letter : Lower(Words))
        if (Letter == ' ')
            Wanted.emplace_back();
        else
            Wanted.back() += Letter;
    std::erase(Wanted, "");
    std::vector<int> Found;
    for (int i = 0; i < Count() && !Wanted.empty(); ++i) {
        const std::string Text = SearchedText(At(Shown, i));
        if (std::all_of(Wanted.begin(), Wanted.end(),
                        [&](const std::string& Word) { return Text.find(Word) != std::string::npos; }))
            Found.push_back(i);
    }
    return Found;
}

int cOptions::FirstTooLarge() const
{
    for (int i = 0; i < Count(); ++i)
        if (IsTyped(Item(i)) && !RangeMissed(Item(i), ValueOf(Item(i), Text(i))).empty()) return i;
    return -1;
}

bool cOptions::ReportTooLarge() const
{
    const int Index = FirstTooLarge();
    if (Index < 0) return false;
    const OptionItem& Each = Item(Index);
    MsgBox("Nothing was saved: " + Text(Index) + " cannot be stored as \"" + Each.Label + "\" of \"" +
               At(Shown, Index).Group->Title + "\", which holds " + RangeMissed(Each, ValueOf(Each, Text(Index))) + ".",
           TitleWarning);
    return true;
}

bool cOptions::SaveMain()
{
    if (ReportTooLarge()) return false;
    for (const Entry& Each : Shown)
        if (Each.Text != Each.Filled) StoreGlobal(*Each.Item, Each.Text);
    const Entry& KeyMode = At(Shown, Find("opKeyMode"));
    TakeKeyMode(KeyMode.Text != KeyMode.Filled);
    ResolveChannels();
    TakeActiveSensor();
    for (const Entry& Each : Shown)
        if (!Each.Item->Key.empty()) SaveSetting(Each.Item->Key);
    const bool IsWritten = WriteFiles();
    Fill();
    Notify(eNotice::OptionsSaved);
    return IsWritten;
}

bool cOptions::ChooseColour(int Index)
{
    int32_t& Colour = *std::get<int32_t*>(Item(Index).Global);
    const auto Chosen = gHost.Dialogs->ChooseColour(Colour);
    if (!Chosen) return false;
    Colour = *Chosen;
    Entry& Each = At(Shown, Index);
    Each.Text = Each.Filled = GlobalText(*Each.Item);
    Notify(eNotice::LookChanged);
    return true;
}

void cOptions::SetPenWidth(int16_t Width)
{
    gDrawWidth = Width;
    Notify(eNotice::LookChanged);
}

bool cOptions::Browse(int Index)
{
    const OptionItem& Each = Item(Index);
    const std::string Path = ExecComDlg(Each.FileTitle, Each.FileExt, eFileMode::In);
    if (!Path.empty()) Put(Index, Path);
    return !Path.empty();
}
