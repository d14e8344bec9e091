// Putting back channels, and writing a table with its session.
#include "calibration/mCalStore.h"

#include "base/mCodePage.h"
#include "base/mSafeSave.h"
#include "core/mNotice.h"
#include "core/mSettings.h"
#include "files/mTextIO.h"
#include "platform/mHost.h"

void FormerChannels::PutBack() const
{
    gFile.Calibr = Rows;
    gRefTabs = Tables;
    gRefCnt = TableCnt;
    ResolveChannels();
}

// The table first: a session never names a table that is not there.
bool WriteTableAndSession(const ComingRefFile& Table, const std::string& Session)
{
    WholeFile TableFile(Table.Path);
    WholeFile SessionFile(Session);
    TableFile.Append(Table.Text);
    SessionFile.Append(EncodeText(DataFileText(gFile, SectionFilter::Any), gFile.Encoding, TextPage()));
    if (CommitBoth(TableFile, SessionFile)) {
        if (Session == gCurFile) Notify(eNotice::SessionSaved);
        return true;
    }
    if (!TableFile.Failure().empty()) FileFailed(CantOpen, Table.Path, TitleError, TableFile.Failure());
    if (!SessionFile.Failure().empty()) FileFailed(CantWrite, Session, TitleWarning, SessionFile.Failure());
    return false;
}
