// The files of targets and curves, and the choice of a target.
#include "records/mTargets.h"

#include "core/mIni.h"
#include "records/mGridSteps.h"
#include "support/Case.h"

namespace {
struct TargetFolder : FreshState, TempFolder
{
    TargetFolder()
    {
        gAppDir = Path("");
        gFile.Sex = 'W';
        gFile.Category = 'L';
        gFile.BoatType = "2X";
        gFile.AgeGroup = 'A';
        for (const char* Key : {"gIsTargVals", "gIsTargCurves"})
            Settings.SaveSetting("Models", Key, "1");
    }
    void Put(const std::string& Name, const std::string& Text) const { REQUIRE(SaveWhole(Path(Name), Text)); }
    std::string Text(const std::string& Name) const { return ReadWhole(Path(Name)).value_or("(none)"); }
};

constexpr const char* Table = "Targets of a season\r\n"
                              "ID\tGroup\tSex\tWeight\tBoats\tAge\tCatch\tForce\r\n"
                              "1\tFirst\tW\tL\t1x 2x\tA\t-60.5\t300\r\n"
                              "2\tSecond\tW\tL\t2x\tA\t-58,5 deg\tmuch\r\n"
                              "3\tOther\tM\tL\t2x\tA\t1\t2\r\n"
                              "4\tLast\tW\tL\t2x\tA\t-1\t-1\r\n"
                              "End\r\n5\tBehind\tW\tL\t2x\tA\t9\t9\r\n";
} // namespace

TEST_CASE("the grid's rows go back to the file with its backup, values with two decimals")
{
    const TargetFolder Folder;
    Folder.Put("Targets.ini", Table);
    REQUIRE(LoadTargets());
    cGrid Grid = TargetsToGrid();
    CHECK(Grid.Current() == 0);
    std::string Value = "-0,86 m", Boats = "1x,2x\t";
    CHECK((Grid.Take(6, Value, eFrom::Typed) + Grid.Take(4, Boats, eFrom::Typed)).empty());
    CHECK((Value == "-0.86" && Boats == "1x,2x "));
    Grid.Do(DeleteRows(Grid, {0, 1}));
    CHECK(Grid.Cell(Grid.Current(), 1) == "Other");
    Grid.Do(InsertRow(Grid, 1));
    Grid.Do(ChangeCells(Grid, {{Grid.Current(), 6, "3.14159"}}));
    Grid.SetCurrent(9);
    CHECK(Grid.Current() == 2);
    REQUIRE(StoreTargets(Grid));
    CHECK(Folder.Text("Targets.bak") == Table);
    CHECK(Folder.Text("Targets.ini") == "Targets\r\nID\tGroup\tSex\tWeight\tBoats\tAge\tCatch\tForce\r\n"
                                        "3\tOther\tM\tL\t2x\tA\t1.00\t2.00\r\n4\tLast\tW\tL\t2x\tA\t-1.00\t-1.00\r\n"
                                        "4\tLast\tW\tL\t2x\tA\t3.14\t-1.00\r\nEnd\r\n");
    Grid.Do(DeleteRows(Grid, {0, 1, 2}));
    CHECK(Grid.Current() == -1);
}
