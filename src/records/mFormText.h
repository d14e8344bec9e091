// What is typed into the boxes of a dialog: numbers, and the faults that keep it from being stored.
#pragma once

#include <optional>
#include <string>
#include <vector>

/// What cannot be stored: the name of its control, and why.
struct FormFault
{
    std::string Control;
    std::string Why;
};

/// The same for texts that are checked one after the other: adds a fault unless Why is empty.
void AddFault(std::vector<FormFault>& Faults, const std::string& Control, const std::string& Why);

/// Typed without the blanks around it.
std::string TrimTyped(const std::string& Typed);

/// The number that is typed, with a point or a comma; 0 for an empty text, nothing when it is no number.
std::optional<double> TypedNumber(const std::string& Typed);

/// Why Typed is no number; empty when it is one.
std::string WhyNoNumber(const std::string& Typed);
