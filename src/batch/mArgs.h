// The arguments that a command takes, and their reading from the command line.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

enum class ArgKind
{
    Flag,
    Whole,
    Real,
    Reals, // one number or more
    Text,
    Choice // one of the values that the name of the value lists between bars
};

/// An option of a command, as "--start I".
struct Option
{
    const char* Name;
    ArgKind Kind;
    const char* Value; // name of the value in the usage line, empty for a flag
};

/// The arguments of a command: its files in order and its options by name.
struct Args
{
    std::vector<std::string> Files;
    std::map<std::string, std::string> Options;

    bool Has(const std::string& Name) const { return Options.contains(Name); }

    /// Value of an option, or Default when it was not given.
    int32_t Whole(const std::string& Name, int32_t Default) const;
    double Real(const std::string& Name, double Default) const;
    std::vector<double> Reals(const std::string& Name) const;
    std::string Text(const std::string& Name, const std::string& Default) const;
};

/// Reads the arguments in Words into Result. Gives an empty text, or what is wrong with them.
std::string ParseArgs(const std::vector<std::string>& Words, const std::vector<Option>& Known, Args& Result);
