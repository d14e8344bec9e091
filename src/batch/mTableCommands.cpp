// The commands table and readids.
#include "batch/mCommands.h"

#include "base/mNumText.h"
#include "core/mGlobData.h"
#include "platform/mHost.h"
#include "records/cDataGrid.h"

#include <algorithm>
#include <iostream>

namespace {
// The kind of a table that a session data file holds, null for another name.
const GridKind* KindInFile(const std::string& Name)
{
    const GridKind* Kind = FindGridKind(Name);
    return Kind && Kind->Section ? Kind : nullptr;
}

// The session without the table that FILE would give is no answer to leave it so: nobody is there to be asked.
bool Refuse(const std::string& Question)
{
    MsgBox(Question, TitleWarning);
    return false;
}

std::string TableNames()
{
    std::string Names;
    for (const GridKind& Each : AllGridKinds())
        if (Each.Section) Names += (Names.empty() ? "" : ", ") + std::string(Each.Name);
    return Names;
}

bool StoreAndSave(cDataGrid& Table, const Args& Line)
{
    const std::string& Session = Line.Files[0];
    return Table.Store([&] { return SaveSession(Session, Line.Text("--out", Session)); });
}
} // namespace

std::string TableObjection(const Args& Line)
{
    if (!KindInFile(Line.Files[1])) return "there is no table " + Line.Files[1] + "; there are " + TableNames();
    if (Line.Has("--from") == (Line.Files.size() == 3)) return "either OUT.csv or --from FILE is needed";
    if (Line.Has("--out") && !Line.Has("--from")) return "--out belongs to --from";
    return {};
}

bool DoTable(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    cDataGrid Table(*KindInFile(Line.Files[1]));
    if (!Table.Load()) return false;
    if (!Line.Has("--from")) return Table.Export(Line.Files[2]);
    const auto Step = Table.Import(Line.Text("--from", ""), Refuse);
    if (!Step) return false;
    Table.Grid.Do(*Step);
    return StoreAndSave(Table, Line);
}

bool DoReadIDs(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    cDataGrid Table(*FindGridKind("Calibr"));
    int Taken = 0;
    if (!Table.Load()) return false;
    const auto Step = Table.ReadIDs(Line.Files[1], Taken);
    if (!Step) return false;
    Table.Grid.Do(*Step);
    if (!StoreAndSave(Table, Line)) return false;
    std::cout << FormatNum(Taken, "0") << (Taken == 1 ? " channel has" : " channels have") << " Q0 and Q1 of the sensor"
              << (Taken == 1 ? "" : "s") << std::endl;
    return true;
}
