// What the recorded program answers.
#include "support/ScriptedDialogs.h"

#include "core/mSettings.h"

eAnswer ScriptedDialogs::MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons)
{
    Told.push_back(Title + ": " + Text);
    if (Buttons == eButtons::Ok) return eAnswer::Ok;
    return AnswerYes ? eAnswer::Yes : eAnswer::No;
}

std::optional<std::string> ScriptedDialogs::InputBox(const std::string& Prompt, const std::string& Title,
                                                     const std::string& Proposed)
{
    Told.push_back(Title + ": " + Prompt + " [" + Proposed + "]");
    if (Answers.empty()) return Proposed;
    auto Answer = Answers.front();
    Answers.pop_front();
    return Answer;
}

std::optional<std::string> ScriptedDialogs::ExecComDlg(const std::string& Title, const std::string& Ext, eFileMode,
                                                       const std::string& Folder)
{
    Told.push_back(Title + ": " + Folder + "*." + Ext);
    if (Files.empty()) return {};
    auto File = Files.front();
    Files.pop_front();
    return File;
}

void RecordedStatus::SetPanel(int Panel, const std::string& Text)
{
    Shown.push_back(std::string(1, static_cast<char>('0' + Panel)) + ": " + Text);
}

void RecordedStatus::SetProgress(int Percent)
{
    Shown.push_back(std::to_string(Percent) + "%");
}

FreshState::FreshState()
{
    gHost = {&Dialogs, &Status, &Settings};
    LoadSettings();
}

FreshState::~FreshState()
{
    gHost = {};
}
