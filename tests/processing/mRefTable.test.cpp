#include "processing/mRefTable.h"

#include "processing/mPhysVal.h"
#include "processing/mProcFuncs.h"
#include "support/Case.h"

#include <fstream>

namespace {
const std::string Heads = "N\tCnt\tX\tY\r\n";

// A program with the folder of a session.
class Tables : public FreshState
{
public:
    Tables()
    {
        gFile = DataFile{};
        gCurDir = Folder.Path("");
    }

    std::string File(const std::string& Name, const std::string& Text)
    {
        std::ofstream(Folder.Path(Name), std::ios::binary) << Text;
        return Folder.Path(Name);
    }

    // Makes a table of these rows the only one.
    static void Use(const std::vector<double>& X, const std::vector<double>& Y)
    {
        gRefTabs.assign(2, {});
        gRefCnt = 1;
        gRefTabs[1].Cnt = static_cast<int16_t>(X.size() - 1);
        std::copy(X.begin(), X.end(), gRefTabs[1].X.begin());
        std::copy(Y.begin(), Y.end(), gRefTabs[1].Y.begin());
    }
};

std::string Show(const RefTable& Table)
{
    std::string Text = FormatNum(Table.Cnt, "0") + " " + Table.Name;
    for (std::size_t i = 0; i <= static_cast<std::size_t>(Table.Cnt); ++i)
        Text +=
            " | " + FormatShortest(Table.N[i]) + " " + FormatShortest(Table.X[i]) + " " + FormatShortest(Table.Y[i]);
    return Text;
}

std::string Line(int Row)
{
    return FormatNum(Row, "0") + "\t1\t" + FormatNum(Row, "0.000") + "\t" + FormatNum(-Row, "0.000000") + "\t\r\n";
}
} // namespace

TEST_CASE_FIXTURE(Tables, "a table file is read by the order of its lines, and a broken one as far as it holds")
{
    const std::string Title = "Reference Table\r\n";
    const std::string Rows = "0\t5\t1.500\t-2.000000\r\n7\t6\t2.500\t-1.000000\t\r\n2\t0\t4.000\t0.500000";
    // Null is reported as no table.
    const std::tuple<std::string, const char*> Files[] = {
        {Title + "02\tS1\t\r\n" + Heads + Rows, "2 S1 | 5 1.5 -2 | 6 2.5 -1 | 0 4 0.5"},
        {"any\n01\tS1\nN\n" + Rows, "1 S1 | 5 1.5 -2 | 6 2.5 -1"},
        {Title + "40000\t\r\n" + Heads + Rows, "2  | 5 1.5 -2 | 6 2.5 -1 | 0 4 0.5"},
        {Title + "02\tS1\t\r\n" + Heads + "0\t5\tx\t1\r\n\r\n" + Rows, "2 S1 | 5 1.5 -2 | 6 2.5 -1 | 0 4 0.5"},
        {Title + "02\tS1\t\r\n" + Heads + "0\t5\t1.500\t-2.0\r\n1\t6\t2.5", "0 S1 | 5 1.5 -2"},
        {Title + "02\tS1\t\r\n" + Heads, nullptr},
        {Title + "S1\t\r\n" + Heads + Rows, nullptr},
        {"Reference", nullptr},
        {"", nullptr}};
    gRefCnt = 3;
    for (const auto& [Text, Shown] : Files) {
        CAPTURE(Text);
        Dialogs.Told.clear();
        RefTable Table;
        Table.Name = "before";
        const std::string Path = File("S1.ref", Text);
        CHECK(ReadRefTable(Path, Table) == (Shown ? 3 : 0));
        CHECK(Show(Table) == (Shown ? Shown : "0 before | 0 0 0"));
        CHECK(Dialogs.Told == (Shown ? Texts{} : Texts{"Error: Can't open reference table: " + Path}));
    }
    std::string Long = Title + "255\tS1\t\r\n" + Heads;
    for (int Row = 0; Row < 300; ++Row)
        Long += Line(Row);
    RefTable Table;
    ReadRefTable(File("S1.ref", Long), Table);
    CHECK(Table.Cnt == 255);
    CHECK(Table.Y[255] == -255);
}

TEST_CASE_FIXTURE(Tables, "each channel with a table gets its number, also behind one that cannot be read")
{
    gFile.Calibr.Resize(4);
    for (const int Chan : {1, 3, 4}) {
        gFile.Calibr[Chan].ProcMode = 4;
        gFile.Calibr[Chan].Threshold = 1;
        gFile.Calibr[Chan].SensorID = Chan == 3 ? "lost" : "S" + FormatNum(Chan, "0");
        File("S" + FormatNum(Chan, "0") + ".ref",
             "Reference Table\n01\tS\t\n\n0\t0\t0\t0\n1\t0\t10\t" + FormatNum(Chan, "0") + "\n");
    }
    LoadRefTables();
    LoadRefTables();
    CHECK(gRefCnt == 3);
    CHECK(Dialogs.Told == Texts(2, "Error: Can't open reference table: " + Folder.Path("lost.ref")));
    CHECK(gFile.Calibr[1].Threshold == 1);
    CHECK(gFile.Calibr[1].RefTabFN == "S1");
    CHECK(gFile.Calibr[3].Threshold == 1);
    CHECK(gFile.Calibr[3].RefTabFN == "");
    CHECK(gFile.Calibr[4].Threshold == 3);
    double Prev = 0;
    CHECK(CalcPhysVal(1, 5, Prev) == 0.5);
    CHECK(CalcPhysVal(4, 5, Prev) == 2);
    for (const double Number : {0.0, -1.0, 4.0, 1e300, std::nan("")}) {
        gFile.Calibr[4].Threshold = Number;
        CHECK(CalcPhysVal(4, 5, Prev) == 0);
    }
}
