// The machine's serial devices, in the one order that gives port numbers a meaning.
#pragma once

#include <string>
#include <vector>

/// Paths of the serial devices that have hardware behind them, in natural sort order: port n is element
/// n - 1. Listed in the folder Classes, where the kernel shows its terminals.
std::vector<std::string> SerialDevices(const std::string& Classes = "/sys/class/tty");

/// In plain words why the serial device of that path could not be opened: not there, not allowed, or in use.
std::string WhyShut(const std::string& Path);
