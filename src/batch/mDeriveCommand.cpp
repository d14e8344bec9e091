// The command derive: derived variables of a stored sample as the report or the play view computes them.
#include "batch/mCommands.h"
#include "batch/mTabText.h"

#include "core/mGlobData.h"
#include "files/mBinIO.h"
#include "platform/mHost.h"
#include "views/play/cData04play.h"
#include "views/report/cData03report.h"

namespace {
// Runs the work on a row. A row that cannot be computed is reported and left out.
template <class Work>
void ForRow(const ViewRow& View, int Row, const Work& Do)
{
    Guard("Row " + FormatNum(Row, "0") + " (" + View.ID + ")", [&] {
        Do();
        return true;
    });
}

void DeriveReport(TabText& Table)
{
    for (int Row = 1; Row <= gFile.View3.UBound(); ++Row)
        ForRow(gFile.View3[Row], Row, [&] {
            cData03report Plot;
            Plot.InitViewID(Row);
            const std::string& ID = gFile.View3[Row].ID;
            for (std::size_t k = 0; k < Plot.Xs().size(); ++k) {
                Table.Cell(Row).Cell(ID).Cell("P").Cell(static_cast<double>(k));
                Table.Cell(Plot.Xs()[k]).Cell(Plot.Ys()[k]).EndLine();
            }
            if (!Plot.Visible()) return;
            for (const RowValue& Each : Plot.GetFuncs())
                Table.Cell(Row).Cell(ID).Cell("F").Cell(Each.Key).Cell("").Cell(Each.Value).EndLine();
        });
}

void DerivePlay(TabText& Table, int Sample)
{
    for (int Row = 1; Row <= gFile.View4.UBound(); ++Row)
        ForRow(gFile.View4[Row], Row, [&] {
            cData04play Plot;
            Plot.InitViewID(Row, PlayTypical, Sample);
            for (std::size_t k = 0; k < Plot.Ys().size(); ++k) {
                const double Point = static_cast<double>(k);
                Table.Cell(Row).Cell(gFile.View4[Row].ID).Cell("P").Cell(Point);
                Table.Cell(Point + 0.5).Cell(Plot.Ys()[k]).EndLine();
            }
        });
}
} // namespace

bool DoDerive(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    const int Sample = FindDesc(gFile, Line.Files[1], DescKey::TestID);
    if (Sample < 1) {
        MsgBox("There is no sample " + Line.Files[1] + " in file: " + Line.Files[0], TitleError);
        return false;
    }
    TabText Table("Row\tID\tKind\tKey\tX\tY");
    if (Line.Text("--view", "3") == "3") {
        LoadSamplePattern(gFile.Desc[Sample]);
        DeriveReport(Table);
    } else {
        DerivePlay(Table, Sample);
    }
    return SaveText(Line.Files[2], Table.Text());
}
