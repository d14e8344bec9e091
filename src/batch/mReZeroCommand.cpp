// The command rezero.
#include "batch/mCommands.h"

#include "base/mNumText.h"
#include "calibration/cReZero.h"
#include "platform/mHost.h"

std::string ReZeroObjection(const Args& Line)
{
    return Line.Has("--group") ? "" : "--group is missing";
}

bool DoReZero(const Args& Line)
{
    if (!LoadSession(Line.Files[0])) return false;
    cReZero Zeros(false);
    Zeros.ChooseGroup(static_cast<int>(Val(Line.Text("--group", "0"))));
    if (Zeros.Rows().empty()) {
        MsgBox("The session has no channel of this group: " + Line.Files[0], TitleError);
        return false;
    }
    if (!Zeros.GetFromFile(Line.Files[1])) return false;
    Zeros.Store();
    if (const std::string Names = Zeros.Unmoved(); !Names.empty())
        MsgBox("Read by curves, which a zero does not move: " + Names, TitleWarning);
    return SaveSession(Line.Files[0], Line.Text("--out", Line.Files[0]));
}
