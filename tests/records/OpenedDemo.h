// A demonstration session, opened, and its tables.
#pragma once

#include "files/mMain.h"
#include "files/mTextIO.h"
#include "records/cDataGrid.h"
#include "support/Case.h"

inline const GridKind& Kind(const std::string& Name)
{
    const GridKind* Found = FindGridKind(Name);
    REQUIRE(Found);
    return *Found;
}

struct OpenedDemo : FreshState
{
    explicit OpenedDemo(const std::string& Name = "single")
    {
        std::filesystem::copy_file(SOURCE_FOLDER "/demo/" + Name + ".txt", Folder.Path("s.txt"));
        Open();
    }
    void Open() { REQUIRE(OpenSession(Folder.Path("s.txt"))); }
    std::string File() { return ReadWhole(Folder.Path("s.txt")).value(); }
    std::string Put(const std::string& Name, const std::string& Text)
    {
        REQUIRE(SaveWhole(Folder.Path(Name), Text, Durability::Fast));
        return Folder.Path(Name);
    }
};

inline cDataGrid Loaded(const std::string& Name)
{
    cDataGrid Table(Kind(Name));
    REQUIRE(Table.Load());
    return Table;
}

inline void SetCell(cDataGrid& Table, int Row, const std::string& Head, const std::string& Text)
{
    Table.Grid.Do(ChangeCells(Table.Grid, {{Row, Table.Grid.FindColumn(Head), Text}}));
}

inline std::string Cell(const cDataGrid& Table, int Row, const std::string& Head)
{
    return Table.Grid.Cell(Row, Table.Grid.FindColumn(Head));
}

inline bool Never(const std::string&)
{
    return false;
}
