// Targets and target curves of crew categories: the files Targets.ini and Curves.ini of the program's folder, and the
// row in use.
#pragma once

#include "core/mGlobData.h"
#include "records/cGrid.h"

#include <array>
#include <string>
#include <vector>

/// The target values of a crew category.
struct TargetRow
{
    /// The cells before the values: identifier, target group, sex, weight category, boat types, age group.
    static constexpr int FieldCnt = 6;

    std::array<std::string, FieldCnt> Fields;
    std::vector<double> Values; // catch angle, finish angle, total angle, average and maximal force, work, power
};

/// The table of Targets.ini.
struct TargetTable
{
    std::vector<std::string> Heads; // of all columns, fields and values
    std::vector<TargetRow> Rows;
    TextEncoding Encoding = TextEncoding::Ascii; // of the file it was read from
};

/// A curve in unit form; the names in use are "A", angle, and "F", force.
struct CurveRow
{
    std::string Name;
    std::vector<double> Values;
};

extern TargetRow gTarget; // the row in use, with the session's boat type in place of the row's
extern TargetTable gTargets;
extern std::vector<CurveRow> gCurves;

/// Reads gIsTargVals and gIsTargCurves and loads what they ask for. The last row that matches the session's sex,
/// category, boat type and age group becomes gTarget; the table's last row is never chosen. A category without
/// targets and missing curves are reported to the user and switch their setting off.
void InitTargets();

/// Reads Targets.ini into gTargets; a file of another kind gives an empty table. False when it cannot be opened
/// (reported to the user).
bool LoadTargets();

/// The same from another file, whose targets are in use from now on; without a row for the session, which is reported
/// to the user, gIsTargVals is off.
bool UseTargets(const std::string& Path);

/// Writes gTargets to Targets.ini, values with two decimals. False when that fails (reported to the user): the file is
/// as it was.
bool SaveTargets();

/// Reads Curves.ini into gCurves; a file of another kind gives no curves. False when it cannot be opened (reported to
/// the user).
bool LoadCurves();

/// The texts of gTargets for the editing grid.
cGrid TargetsToGrid();

/// The text that a cell of the grid takes when Typed is put in: of a value its leading number, with a point or a comma,
/// with two decimals.
std::string TargetCell(int Column, const std::string& Typed);

/// Which row of the grid the open session would take, in words.
std::string TargetChoice(const cGrid& Grid);

/// Takes the table back from the grid, keeps the file as Targets.bak and writes the new one. False when a row would
/// end the table or the file cannot be written (both reported to the user).
bool StoreTargets(const cGrid& Grid);
