// Cells, blocks and rows: what is taken, refused, undone and done again.
#include "OpenedDemo.h"

TEST_CASE("a cell takes what its field can keep, in one form, and says why it takes nothing else")
{
    const OpenedDemo Demo;
    struct Typed
    {
        const char* Kind;
        const char* Head;
        const char* Text;
        const char* Taken; // or why not
        eFrom From = eFrom::Typed;
    };
    const Typed Cases[] = {
        {"Calibr", "Seat", " 07 ", "7"},
        {"Calibr", "Seat", "-0", "0"},
        {"Calibr", "Seat", "1.5", "takes whole numbers only"},
        {"Calibr", "Seat", "32768", "takes numbers from -32768 to 32767"},
        {"Calibr", "Seat", "1st", "\"1st\" is no number"},
        {"Calibr", "Seat", "", "a number is missing"},
        {"Calibr", "Chan", "3", "is the number of the row"},
        {"Calibr", "Q1", "1,50", "1.5"},
        {"Calibr", "Q1", "1,50", "\"1,50\" is no number", eFrom::File},
        {"Calibr", "Q1", "1,234.5", "\"1,234.5\" is no number"},
        {"Calibr", "Q1", "1e999", "\"1e999\" is no number"},
        {"Calibr", "Q1", "nan", "\"nan\" is no number"},
        {"Calibr", "Q1", "+.5e-1", "0.05"},
        {"Crew", "Height (m)", "1.8600", "1.86"},
        {"Crew", "Height (m)", "1e39", "takes numbers from -3.40282e+38 to 3.40282e+38"},
        {"Calibr", "ParamID", " A1 ", "A1"},
        {"Calibr", "ParamID", "Ending", "cannot begin with \"End\": it would end the table in the file"},
        {"Calibr", "Sensor ID", "Ending", "Ending"},
        {"Crew", "Rower ID", "Ковалёва", "Ковалёва"}, // eight characters
        {"Crew", "Rower ID", "Ковалёвa1", "takes 8 characters, these are 9"},
        {"Crew", "Name", "a\tb", "takes neither tabs nor line breaks"},
        {"Crew", "Sex", "F", "F"},
        {"Crew", "Birth Date", "1/2/98", "1998-02-01"},
        {"Crew", "Birth Date", "1/2/98", "\"1/2/98\" is no date: write yyyy-mm-dd", eFrom::File},
        {"Crew", "Birth Date", "29.02.2024", "2024-02-29"},
        {"Crew", "Birth Date", "2023-02-29", "\"2023-02-29\" is no date: type day/month/year"},
        {"Crew", "Birth Date", "2030-01-01", "takes dates from 1930 to 2029, which the file can hold"},
        {"Crew", "Birth Date", " ", ""},
        {"View1", "Functions", "\"Mod\"", "takes no double quotes"},
        {"View1", "Color", "9", "9"},
    };
    for (const Typed& Each : Cases) {
        CAPTURE(Each.Head);
        CAPTURE(Each.Text);
        const cDataGrid Table = Loaded(Each.Kind);
        std::string Text = Each.Text;
        const std::string Reason = Table.Grid.Take(Table.Grid.FindColumn(Each.Head), Text, Each.From);
        CHECK((Reason.empty() ? Text : Reason) == Each.Taken);
    }
}

TEST_CASE("each edit is a step that is taken back and done again, down to the table at the start")
{
    const OpenedDemo Demo;
    cDataGrid Table = Loaded("Calibr");
    cGrid& Grid = Table.Grid;
    std::vector<std::string> States{GridToCsv(Grid)};
    const auto Do = [&](GridStep Step) {
        Grid.Do(std::move(Step));
        REQUIRE(GridToCsv(Grid) != States.back());
        States.push_back(GridToCsv(Grid));
    };
    std::vector<int> All;
    for (int Row = 0; Row <= Grid.RowCount() + 2; ++Row)
        All.push_back(Row);
    Do(ChangeCells(Grid, {{3, 1, "New"}, {1, 4, "2"}}));
    Do(InsertRow(Grid, 2));
    Do(DeleteRows(Grid, {0, 2, 5}));
    Do(MoveRows(Grid, 1, 2, 1));
    Do(MoveRows(Grid, 1, 2, -1));
    Do(FillDown(Grid, {{0, 2, 4}, {3, 4}}).Step);
    Do(ClearCells(Grid, {{0, 1}, {0, 1, 5}}).Step);
    Do(PasteBlock(Grid, {{Grid.RowCount() - 1}, {1}}, {All.begin(), All.begin() + Grid.RowCount()}, "X\tsensor\nY\n")
           .Step);
    Do(ReplaceRows(Grid, {}));
    Do(InsertRow(Grid, -1));
    Grid.Do(ChangeCells(Grid, {{0, 4, "0"}})); // as it was: no step
    CHECK(Cell(Table, 0, "Chan") == "1");
    CHECK(Grid.IsChanged());
    for (std::size_t i = States.size() - 1; i > 0; --i) {
        REQUIRE(Grid.Undo());
        CHECK(GridToCsv(Grid) == States[i - 1]);
    }
    CHECK((!Grid.Undo() && !Grid.IsChanged()));
    for (std::size_t i = 1; i < States.size(); ++i) {
        REQUIRE(Grid.Redo());
        CHECK(GridToCsv(Grid) == States[i]);
    }
    CHECK(!Grid.Redo());
    Grid.SetSaved();
    Grid.Undo();
    CHECK(Grid.IsChanged());
    Grid.Do(DeleteRows(Grid, {}));
    Grid.Do(InsertRow(Grid, -1));
    CHECK((!Grid.Redo() && Grid.IsChanged())); // what was saved cannot be reached any more
}

TEST_CASE("a block comes from a spreadsheet whole or not at all")
{
    const OpenedDemo Demo;
    cDataGrid Table = Loaded("Crew");
    cGrid& Grid = Table.Grid;
    Grid.Do(ReplaceRows(Grid, {EmptyRow(Grid), EmptyRow(Grid), EmptyRow(Grid)}));
    const auto Paste = [&](const GridBlock& Block, const std::vector<int>& Shown, const std::string& Text) {
        GridEdit Edit = PasteBlock(Grid, Block, Shown, Text);
        Grid.Do(Edit.Step);
        return Edit.Reason;
    };
    CHECK(Paste({{0}, {0}}, {0, 2}, "1\t2\t\"Kim \"\"K\"\" Ferry\"\r\n3\t1\tSam\r\n5\t2\t\"Ro\"bin\n") == "");
    CHECK(BlockText(Grid, {{0, 1, 2, 3}, {0, 1, 2}}) == "1\t2\tKim \"K\" Ferry\n0\t0\t\n3\t1\tSam\n5\t2\t\"Ro\"bin\n");
    CHECK(Paste({{1, 3}, {4, 5}}, {0, 1, 2, 3}, "1,9") == "");
    CHECK(BlockText(Grid, {{0, 1, 2, 3}, {4, 5}}) == "0\t0\n1.9\t1.9\n0\t0\n1.9\t1.9\n");
    const std::string Before = GridToCsv(Grid);
    CHECK(Paste({{0}, {0}}, {0, 1}, "1\t2\n2\tx") == "Row 2, Side: \"x\" is no number. Nothing was pasted.");
    CHECK(Paste({{0}, {24}}, {0}, "1\t2") == "What is to be pasted is wider than the table from this column on.");
    CHECK(GridToCsv(Grid) == Before);
}
