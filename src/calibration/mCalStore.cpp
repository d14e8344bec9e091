// Putting back channels, and writing a table with its session.
#include "calibration/mCalStore.h"

#include "base/mCodePage.h"
#include "base/mSafeSave.h"
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
    if (CommitBoth(TableFile, SessionFile)) return true;
    if (!TableFile.Failure().empty())
        MsgBox("Can't open file: " + Table.Path + " (" + TableFile.Failure() + ")", TitleError);
    if (!SessionFile.Failure().empty())
        MsgBox("Can't write file: " + Session + " (" + SessionFile.Failure() + ")", TitleError);
    return false;
}
