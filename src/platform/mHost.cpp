// Short forms of the platform services, and the guard that turns run-time failures into one message.
#include "platform/mHost.h"

#include "base/mError.h"

#include <new>
#include <stdexcept>

Host gHost;

namespace {
int Standing = 0; // open dialogs, one above the other

struct Asking
{
    Asking() { ++Standing; }
    ~Asking() { --Standing; }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;
};
} // namespace

bool IsAsking()
{
    return Standing > 0;
}

void MsgBox(const std::string& Text, const std::string& Title)
{
    const Asking Here;
    gHost.Dialogs->MsgBox(Text, Title, eButtons::Ok);
}

bool FileFailed(const std::string& What, const std::string& Path, const std::string& Title, const std::string& Reason)
{
    MsgBox(What + Path + (Reason.empty() ? "" : " (" + Reason + ")"), Title);
    return false;
}

bool AskYesNo(const std::string& Text, const std::string& Title)
{
    const Asking Here;
    return gHost.Dialogs->MsgBox(Text, Title, eButtons::YesNo) == eAnswer::Yes;
}

bool AskOkCancel(const std::string& Text, const std::string& Title)
{
    const Asking Here;
    return gHost.Dialogs->MsgBox(Text, Title, eButtons::OkCancel) == eAnswer::Yes;
}

std::string InputBox(const std::string& Prompt, const std::string& Title, const std::string& Proposed)
{
    const Asking Here;
    return gHost.Dialogs->InputBox(Prompt, Title, Proposed).value_or("");
}

std::string ExecComDlg(const std::string& Title, const std::string& Ext, eFileMode Mode, const std::string& Folder)
{
    const Asking Here;
    return gHost.Dialogs->ExecComDlg(Title, Ext, Mode, Folder).value_or("");
}

void UpdateStatus(const std::string& Text)
{
    gHost.Status->SetPanel(2, Text);
}

void ShowReading(const std::string& Text)
{
    gHost.Status->SetPanel(3, Text);
}

void UpdateProgress(int Percent)
{
    gHost.Status->SetProgress(Percent);
}

bool GoOn(int Percent)
{
    UpdateProgress(Percent);
    return !gHost.Status->IsCancelled();
}

std::string FailureReason()
{
    try {
        throw;
    } catch (const RunError& Failure) {
        return Failure.what();
    } catch (const std::bad_alloc&) {
    } catch (const std::length_error&) {
    }
    return "there is not enough memory";
}

bool Guard(const std::string& What, const std::function<bool()>& Work)
{
    std::vector<std::string> Failures;
    const bool Success = Guard(What, Failures, Work);
    for (const std::string& Failure : Failures)
        MsgBox(Failure + ". Nothing that was stored has been changed.", TitleError);
    return Success;
}

bool Guard(const std::string& What, std::vector<std::string>& Failures, const std::function<bool()>& Work)
{
    try {
        return Work();
    } catch (...) {
        Failures.push_back(What + " failed: " + FailureReason());
        return false;
    }
}
