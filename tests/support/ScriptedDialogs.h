// A program for tests: messages are recorded, questions get the answers that the test laid out, the settings are in
// memory with their defaults loaded.
#pragma once

#include "core/mHost.h"
#include "platform/plain/sSettings.h"

#include <deque>
#include <string>
#include <vector>

class ScriptedDialogs : public iDialogs
{
public:
    /// Every message and question in order, as "Title: Text".
    std::vector<std::string> Told;

    /// The answer to questions with Yes and No.
    bool AnswerYes = true;

    /// Answers to input boxes in order, nothing standing for Cancel; the proposed text when they have run out.
    std::deque<std::optional<std::string>> Answers;

    /// Answers to file dialogs in order; Cancel when they have run out.
    std::deque<std::string> Files;

    eAnswer MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons) override;
    std::optional<std::string> InputBox(const std::string& Prompt, const std::string& Title,
                                        const std::string& Proposed) override;
    std::optional<std::string> ExecComDlg(const std::string& Title, const std::string& Ext, eFileMode Mode,
                                          const std::string& Folder) override;
};

class RecordedStatus : public iStatus
{
public:
    /// Every text as "2: Text", every progress as "50%".
    std::vector<std::string> Shown;

    void SetPanel(int Panel, const std::string& Text) override;
    void SetProgress(int Percent) override;
};

/// Fixture of a case that needs a program around it.
class FreshState
{
public:
    FreshState();
    ~FreshState();

    ScriptedDialogs Dialogs;
    RecordedStatus Status;
    sSettings Settings;
};
