// Corrections of stored samples, on all samples of the open session at once and in memory only.
#pragma once

#include "core/mGlobData.h"

#include <string>

/// What the corrections work on.
struct SwapTables
{
    RowArray<CalibrRow> Calibr;
    RowArray<DataRow> Data;

    bool operator==(const SwapTables&) const = default;
};

class cSwap
{
public:
    std::string What; // a parameter, or a seat number in text
    std::string With;
    std::string AverTo;

    /// Rows touched by the last command.
    int16_t Count = 0;

    // Each command returns the text that says what it did. A parameter that is not found touches no row. A pattern of
    // fewer than 51 values throws RunError: then nothing was changed.

    /// Adds Number ('O') to the 51 values of What in each sample, or multiplies them by it ('S').
    std::string OffScale(char Kind, double Number);

    /// Exchanges the seat numbers What and With in channels and data rows, the last row of each table left out.
    std::string Swap();

    /// Gives the parameter What the name With.
    std::string Rename();

    /// Copies the values of With over those of What in each sample.
    std::string Replace();

    /// Puts the mean of What and With into AverTo in each sample.
    std::string Average();

    /// Takes the last correction back. False when there is none, or when others have changed the tables since.
    bool Undo();

    /// Whether a correction was made since the last Save.
    bool IsChanged() const { return Changed; }

    /// Writes the session data file behind a backup copy. False when that fails (reported to the user).
    bool Save();

    /// The session data file has been written with all corrections.
    void SetSaved();

private:
    void Commit(SwapTables Corrected);
    std::string Times() const;

    SwapTables Before;
    SwapTables After; // what the last correction left
    bool WasChanged = false;
    bool HasUndo = false;
    bool Changed = false;
};
