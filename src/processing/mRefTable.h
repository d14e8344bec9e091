// The reference tables of the open session: loading, the .ref format both ways, and the look-up with extrapolation.
#pragma once

#include "core/mGlobData.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A measured conversion of raw counts to physical values. Rows are 0 to Cnt.
struct RefTable
{
    static constexpr int MaxRow = 255;

    int16_t Cnt = 0;
    std::string Name;
    std::array<double, MaxRow + 1> N{}; // counts
    std::array<double, MaxRow + 1> X{}; // input of the look-up
    std::array<double, MaxRow + 1> Y{}; // output of the look-up
};

/// The tables of a session in the order of the channels that use them; element 0 stays empty.
struct RefTableSet
{
    std::vector<RefTable> Tables = std::vector<RefTable>(1);
    int16_t Cnt = 0;
};

/// Tables of the open session in the order of the channels that use them; element 0 stays empty.
extern std::vector<RefTable> gRefTabs;
extern int16_t gRefCnt;

/// A table file that is about to be written.
struct ComingRefFile
{
    std::string Path;
    std::string Text;
};

/// Reads the tables of all rows with ProcMode 4 from Folder. A row whose table was read gets its number in Threshold
/// and its SensorID in RefTabFN, and its zero when it has one; a table that cannot be read is reported to the user and
/// its row is left alone. Coming stands for the file of its path.
RefTableSet ReadRefTables(RowArray<CalibrRow>& Rows, const std::string& Folder, const ComingRefFile* Coming = nullptr);

/// Makes them the tables of the open session.
void Publish(RefTableSet&& Read);

/// The same for the open session: reloads the tables of its channels from gCurDir.
void LoadRefTables(const ComingRefFile* Coming = nullptr);

/// Reads a table file. Gives gRefCnt, or 0 when it cannot be opened (reported to the user).
int16_t ReadRefTable(const std::string& Path, RefTable& Table);

/// The same from the text of a file. A table that was cut short ends with its last whole row. False when Text holds no
/// table; Table may have changed.
bool ParseRefTable(std::string_view Text, RefTable& Table);

/// The whole file of a table.
std::string RefTableText(const RefTable& Table);

/// Writes a table file whole. False when that fails (reported to the user).
bool WriteRefTable(const std::string& Path, const RefTable& Table);

/// Output of a table at input V; 0 at V equal to the last input.
double RefLookup(const RefTable& Table, double V);

/// The same of table number Tab of the open session; 0 for a number without a table.
double RefLookup(int Tab, double V);

/// Output beyond the ends of a table by a cubic through its seven rows at that end; 0 for a shorter table.
double RefExtrapolate(const RefTable& Table, double V);
