// Parts that the table of options is put together from.
#pragma once

#include "records/mOptions.h"

#include <initializer_list>

// The groups of each page, appended to Groups.
void AddLogger(std::vector<OptionGroup>& Groups);
void AddLink(std::vector<OptionGroup>& Groups);
void AddProcessing(std::vector<OptionGroup>& Groups);
void AddSplits(std::vector<OptionGroup>& Groups);
void AddCalibrators(std::vector<OptionGroup>& Groups);
void AddFeedback(std::vector<OptionGroup>& Groups);
void AddColours(std::vector<OptionGroup>& Groups);
void AddGeneral(std::vector<OptionGroup>& Groups);

/// Name with a number behind it.
std::string Numbered(const char* Name, std::size_t i, const char* Pattern = "0");

/// A setting that is on or off.
OptionItem Switch(const char* Control, const char* Label, OptionGlobal Global, const char* Key, const char* Help,
                  OptionFault Fault = nullptr);

/// Choices with the values 0, 1, 2 ....
std::vector<OptionChoice> InTurn(std::initializer_list<const char*> Texts);
