// Reading of a command's arguments.
#include "batch/mArgs.h"

#include "base/mNumText.h"
#include "processing/mGlobFunc.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {
bool IsWhole(const std::string& Text)
{
    int32_t X = 0;
    const auto [End, Error] = std::from_chars(Text.data(), Text.data() + Text.size(), X);
    return Error == std::errc{} && End == Text.data() + Text.size();
}

bool IsReal(const std::string& Text)
{
    double X = 0;
    const auto [End, Error] = std::from_chars(Text.data(), Text.data() + Text.size(), X);
    return Error == std::errc{} && End == Text.data() + Text.size() && std::isfinite(X);
}

// What is wrong with an option's value; empty when it will do.
std::string Objection(const Option& Item, const std::string& Value)
{
    const std::string Got = std::string(Item.Name) + " is \"" + Value + "\", but ";
    if (Item.Kind == ArgKind::Whole && !IsWhole(Value)) return Got + "takes a whole number";
    if ((Item.Kind == ArgKind::Real || Item.Kind == ArgKind::Reals) && !IsReal(Value)) return Got + "takes a number";
    if (Item.Kind != ArgKind::Choice) return {};
    std::string Choices;
    for (std::string_view Rest = Item.Value;;) {
        const std::string_view Choice = Rest.substr(0, Rest.find('|'));
        if (Value == Choice) return {};
        Choices.append(Choices.empty() ? "" : " or ").append(Choice);
        if (Choice.size() == Rest.size()) return Got + "takes " + Choices;
        Rest.remove_prefix(Choice.size() + 1);
    }
}
} // namespace

int32_t Args::Whole(const std::string& Name, int32_t Default) const
{
    return Has(Name) ? static_cast<int32_t>(Val(Options.at(Name))) : Default;
}

double Args::Real(const std::string& Name, double Default) const
{
    return Has(Name) ? Val(Options.at(Name)) : Default;
}

std::vector<double> Args::Reals(const std::string& Name) const
{
    return SplitNum(Text(Name, ""));
}

std::string Args::Text(const std::string& Name, const std::string& Default) const
{
    return Has(Name) ? Options.at(Name) : Default;
}

std::string ParseArgs(const std::vector<std::string>& Words, const std::vector<Option>& Known, Args& Result)
{
    bool OnlyFiles = false;
    for (std::size_t i = 0; i < Words.size(); ++i) {
        const std::string& Word = Words[i];
        if (OnlyFiles || !Word.starts_with("--")) {
            Result.Files.push_back(Word);
            continue;
        }
        if (Word == "--") {
            OnlyFiles = true;
            continue;
        }
        const auto Equal = Word.find('=');
        const std::string Name = Word.substr(0, Equal);
        const auto Item =
            std::find_if(Known.begin(), Known.end(), [&](const Option& Each) { return Each.Name == Name; });
        if (Item == Known.end()) return "there is no option " + Name;
        std::string Value;
        if (Item->Kind == ArgKind::Flag) {
            if (Equal != std::string::npos) return Name + " takes no value";
        } else if (Equal != std::string::npos)
            Value = Word.substr(Equal + 1);
        else if (i + 1 < Words.size())
            Value = Words[++i];
        else
            return Name + " needs a value";
        if (const std::string Wrong = Objection(*Item, Value); !Wrong.empty()) return Wrong;
        std::string& Kept = Result.Options[Name];
        if (Item->Kind != ArgKind::Reals) Kept.clear();
        Kept += (Kept.empty() ? "" : ",") + Value;
        while (Item->Kind == ArgKind::Reals && i + 1 < Words.size() && IsReal(Words[i + 1]))
            Kept += "," + Words[++i];
    }
    return {};
}
