// Storing, and putting back.
#include "records/mGridStore.h"

#include "base/mError.h"
#include "base/mNumText.h"
#include "platform/mHost.h"
#include "processing/mRefTable.h"
#include "records/mAntro.h"
#include "records/mSampleRows.h"

#include <algorithm>
#include <utility>

namespace {
// Everything that a stored grid may change. Put back unless it is done.
class cFormer
{
public:
    cFormer() = default;
    ~cFormer()
    {
        if (IsDone) return;
        gFile = std::move(File);
        gDots = std::move(Dots);
        gSegs = std::move(Segs);
        gAntro = std::move(Antro);
        gRefTabs = std::move(RefTabs);
        gRefCnt = RefCnt;
        ResolveChannels();
    }
    cFormer(const cFormer&) = delete;
    cFormer& operator=(const cFormer&) = delete;

    bool IsDone = false;
    DataFile File = gFile;

private:
    RowArray<DotRow> Dots = gDots;
    RowArray<SegRow> Segs = gSegs;
    RowArray<AntroRow> Antro = gAntro;
    std::vector<RefTable> RefTabs = gRefTabs;
    int16_t RefCnt = gRefCnt;
};
} // namespace

bool IsSameTable(const std::vector<GridRow>& First, const std::vector<GridRow>& Second)
{
    return std::equal(First.begin(), First.end(), Second.begin(), Second.end(),
                      [](const GridRow& A, const GridRow& B) { return A.Cells == B.Cells; });
}

bool StoreGrid(const GridKind& Kind, const cGrid& Grid, const std::vector<GridRow>& Loaded, const GridStoring& Store,
               const std::function<bool()>& Write)
{
    const std::string Name = Kind.Name;
    const SampleFate Fate = Name == "Desc" ? FateOfSamples(Grid, Loaded, gFile) : SampleFate();
    if (const std::string Question = Fate.Question(); !Question.empty() && !AskYesNo(Question, TitleWarning))
        return false;
    cGrid Present;
    Kind.Load(gFile, Present);
    cFormer Former;
    Store(Grid, gFile);
    Fate.Follow(gFile);
    if (Name == "Crew") gFile.CrewCnt = ToInt16(gFile.Crew.UBound() + 1);
    if (Name == "View1") gFile.View1Cnt = ToInt16(gFile.View1.UBound());
    if (Name == "Calibr") {
        gFile.ChanCnt = ToInt16(gFile.Calibr.UBound());
        // Tables that cannot be read were reported when the session was opened.
        if (!IsSameTable(Grid.Rows(), Present.Rows())) LoadRefTables();
        ResolveChannels();
    }
    return Former.IsDone = Write();
}
