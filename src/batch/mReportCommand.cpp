// The command report.
#include "batch/mCommands.h"

#include "core/mGlobData.h"
#include "platform/mHost.h"
#include "views/report/cReport.h"

bool (*gWriteReport)(const cReport& Report, const std::string& Path) = nullptr;

bool DoReport(const Args& Line)
{
    if (!gWriteReport) {
        MsgBox("This program was built without the desktop program, whose fonts a report needs.", TitleError);
        return false;
    }
    if (!LoadSession(Line.Files[0])) return false;
    const int Sample = FindDesc(gFile, Line.Files[1], DescKey::TestID);
    if (Sample < 1) {
        MsgBox("There is no sample " + Line.Files[1] + " in file: " + Line.Files[0], TitleError);
        return false;
    }
    cReport Report;
    Report.InitData(ReportStored, static_cast<int16_t>(Sample), 0, 0);
    for (const std::string& Note : Report.Notes)
        MsgBox(Note, TitleWarning);
    return gWriteReport(Report, Line.Files[2]);
}
