// The tables of a session as documents: what they store, and what follows from it.
#include "OpenedDemo.h"
#include "core/mIni.h"
#include "records/mAntro.h"

TEST_CASE(
    "a text that the file has longer than its field stays whole, in its row and in others, and a new one is measured")
{
    OpenedDemo Demo;
    gFile.Crew[1].Name = "A name of more than thirty characters";
    cDataGrid Table = Loaded("Crew");
    std::string Held = gFile.Crew[1].Name, New = Held + "!";
    CHECK(Table.Grid.Take(2, Held, eFrom::Typed).empty());
    CHECK(Table.Grid.Take(2, New, eFrom::Typed) == "takes 30 characters, these are 38");
    SetCell(Table, 0, "Seat", "5");
    REQUIRE(Table.Save());
    Demo.Open();
    CHECK(gFile.Crew[1].Name == Held);
    CHECK(gFile.Crew[1].Seat == 5);
}

TEST_CASE("O&K stores rows with their numbers and identifiers, writes the file behind its copy, and fails as a whole")
{
    OpenedDemo Demo;
    const std::string Before = Demo.File();
    cDataGrid Table = Loaded("Calibr");
    const int Count = gFile.ChanCnt;
    const int16_t KeyChan = gKeyChan;
    Table.Grid.Do(InsertRow(Table.Grid, 0));
    std::filesystem::create_directory(Demo.Folder.Path("s.bak"));
    REQUIRE(SaveWhole(Demo.Folder.Path("s.bak/x"), ""));
    CHECK(!Table.Save());
    CHECK((gFile.ChanCnt == Count && gKeyChan == KeyChan && Table.Grid.IsChanged() && Demo.File() == Before));
    std::filesystem::remove_all(Demo.Folder.Path("s.bak"));
    REQUIRE(Table.Save());
    CHECK(ReadWhole(Demo.Folder.Path("s.bak")) == Before);
    CHECK(gFile.ChanCnt == Count + 1);
    CHECK((gFile.Calibr[Count + 1].Chan == Count + 1 && gFile.Calibr[2].SessID == gFile.SessID));
    CHECK(gKeyChan == KeyChan + 1);
    cDataGrid Crew = Loaded("Crew");
    Crew.Grid.Do(ReplaceRows(Crew.Grid, {}));
    REQUIRE(Crew.Save());
    CHECK(gFile.CrewCnt == 1);
    Demo.Open();
    CHECK((gFile.Crew.UBound() == 0 && gFile.Calibr.UBound() == Count + 1));
}

TEST_CASE("rows that were changed elsewhere are not written over unasked")
{
    OpenedDemo Demo;
    cDataGrid Table = Loaded("Calibr");
    CHECK(!Table.IsStale());
    gFile.Calibr[1].Q0 = 5;
    CHECK(Table.IsStale());
    Demo.Dialogs.AnswerYes = false;
    CHECK(!Table.Save());
    CHECK(gFile.Calibr[1].Q0 == 5);
    CHECK(Demo.Dialogs.Told.size() == 1);
}

TEST_CASE("a sample takes its patterns along when it is renamed, and they go with it, with a question, when it is gone")
{
    OpenedDemo Demo;
    for (const char* ID : {"S01", "S02", "S03"}) {
        DescRow& Row = gFile.Desc.Grow();
        Row.SampleID = ID;
        Row.DataCount = 1;
        for (RowArray<DataRow>* Rows : {&gFile.Data, &gFile.STD, &gFile.Models}) {
            DataRow& Data = Rows->Grow();
            Data.SampleID = ID;
            Data.Values = {1, 2};
        }
    }
    cDataGrid Table = Loaded("Desc");
    Table.Grid.Do(DeleteRows(Table.Grid, {1}));
    SetCell(Table, 0, "Sample ID", "Race");
    SetCell(Table, 1, "Data Count", "5");
    Demo.Dialogs.AnswerYes = false;
    CHECK(!Table.Save());
    CHECK(gFile.Data.UBound() == 3);
    CHECK(Demo.Dialogs.Told ==
          Texts{"Warning!: 1 sample no longer in the table: S02. The patterns, 1 row of Data, will be dropped as well. "
                "Data Count does not fit the patterns of 1 sample: S03. Values beyond it will be lost, values that are "
                "missing will be 0. Store the table?"});
    Demo.Dialogs.AnswerYes = true;
    REQUIRE(Table.Save());
    for (const RowArray<DataRow>* Rows : {&gFile.Data, &gFile.STD, &gFile.Models}) {
        REQUIRE(Rows->UBound() == 2);
        CHECK(((*Rows)[1].SampleID == "Race" && (*Rows)[2].SampleID == "S03"));
    }
}

TEST_CASE("the rowers' database is made, filled and read, and a rower who is known is asked about")
{
    OpenedDemo Demo;
    gRowersDBFN = Demo.Folder.Path("rowers.txt");
    cDataGrid Table = Loaded("Crew");
    Demo.Dialogs.AnswerYes = false;
    CHECK(!Table.Crew.Read());
    Demo.Dialogs.AnswerYes = true;
    REQUIRE(Table.Crew.Read());
    CHECK(Table.Crew.Export(Table.Grid) == gFile.Crew.UBound());
    CHECK(ReadWhole(gRowersDBFN) == "Crew\r\nEnd\r\n");
    REQUIRE(Table.Save());
    const std::string Written = ReadWhole(gRowersDBFN).value();
    const std::string Section = DataFileText(gFile, SectionFilter::Any);
    CHECK(Section.find(Written) != std::string::npos);

    SetCell(Table, 0, "Weight (kg)", "99");
    Demo.Dialogs.Told.clear();
    Demo.Dialogs.AnswerYes = false;
    CHECK(Table.Crew.Export(Table.Grid) == 0);
    CHECK(!Table.Crew.IsChanged());
    CHECK(Demo.Dialogs.Told.front() ==
          "Warning!: The name " + gFile.Crew[1].Name + " already exists in Database. Rewrite it?");
    SetCell(Table, 0, "Seat", "7");
    const GridRow Rower = Table.Crew.Rower(1, Table.Grid.Row(0));
    CHECK(Rower.Cells[0] == "7");
    CHECK(Val(Rower.Cells[5]) == doctest::Approx(static_cast<double>(gFile.Crew[1].Weight)));

    gRowersDBFN = Demo.Put("letter.txt", "a letter");
    CHECK(!Table.Crew.Read());
    CHECK(Demo.Dialogs.Told.back() ==
          "Error: Can't open Rower's Database file: " + gRowersDBFN + " (its first line is not \"Crew\")");
}

TEST_CASE("measurements live in a file of their own, and the newest of a rower go into his row of the crew")
{
    OpenedDemo Demo;
    gAppDir = Demo.Folder.Path("");
    gFile.Crew[1].RowerID = "R01";
    const float Head = gFile.Crew[1].Head;
    cDataGrid Table = Loaded("Antro");
    Table.Grid.Do(ReplaceRows(Table.Grid, {EmptyRow(Table.Grid), EmptyRow(Table.Grid), EmptyRow(Table.Grid)}));
    const std::tuple<const char*, const char*, const char*> Days[] = {
        {"R01", "2024-05-01", "270"}, {"R01", "2025-05-01", "271.5"}, {"R02", "2026-01-01", "300"}};
    for (int Row = 0; const auto& [ID, Day, Foot] : Days) {
        SetCell(Table, Row, "RowerID", ID);
        SetCell(Table, Row, "Date", Day);
        SetCell(Table, Row++, "Foot", Foot);
    }
    const std::string Before = Demo.File();
    REQUIRE(Table.Save());
    CHECK(Demo.File() == Before);
    gAntro.Clear();
    REQUIRE(LoadAntro());
    cDataGrid Crew = Loaded("Crew");
    Crew.Grid.Do(TakeNewestAntro(Crew.Grid, {0}).Step);
    CHECK(Cell(Crew, 0, "Foot (mm)") == "271.5");
    REQUIRE(Crew.Save());
    CHECK((gFile.Crew[1].Foot == 0.2715F && gFile.Crew[1].Head == Head));
    SetCell(Crew, 0, "Rower ID", "R09");
    CHECK(TakeNewestAntro(Crew.Grid, {0}).Reason == "No measurements: row 1 (R09)");
}
