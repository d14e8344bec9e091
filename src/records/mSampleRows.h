// What becomes of the patterns when the table of samples is edited.
#pragma once

#include "core/mGlobData.h"
#include "records/cGrid.h"

#include <map>
#include <set>
#include <string>
#include <vector>

struct SampleFate
{
    std::map<std::string, std::string> Renamed; // former identifiers and the new ones
    std::set<std::string> Gone;                 // samples without a row
    std::set<std::string> Resized;              // samples whose patterns are longer or shorter than Data Count says
    int Rows = 0;                               // of Data that are dropped

    /// What the user is to agree to; empty when no pattern is lost.
    std::string Question() const;

    /// Renames and drops the rows of Data, STD and Models.
    void Follow(DataFile& File) const;
};

/// Compares the samples of File with those of a grid of the kind "Desc" that was loaded as Loaded.
SampleFate FateOfSamples(const cGrid& Grid, const std::vector<GridRow>& Loaded, const DataFile& File);
