// A program for tests: messages are recorded, questions get the answers that the test laid out, the settings are in
// memory with their defaults loaded.
#pragma once

#include "core/mSettings.h"
#include "platform/mHost.h"
#include "platform/plain/sSettings.h"
#include "support/TempFolder.h"

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

    eAnswer MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons) override
    {
        Told.push_back(Title + ": " + Text);
        return Buttons == eButtons::Ok ? eAnswer::Ok : AnswerYes ? eAnswer::Yes : eAnswer::No;
    }
    std::optional<std::string> InputBox(const std::string& Prompt, const std::string& Title,
                                        const std::string& Proposed) override
    {
        Told.push_back(Title + ": " + Prompt + " [" + Proposed + "]");
        return Next(Answers).value_or(Proposed);
    }
    std::optional<std::string> ExecComDlg(const std::string& Title, const std::string& Ext, eFileMode,
                                          const std::string& Folder) override
    {
        Told.push_back(Title + ": " + Folder + "*." + Ext);
        return Next(Files);
    }

private:
    // The first of a queue, taken off it.
    template <class Answer>
    static std::optional<Answer> Next(std::deque<Answer>& Queue)
    {
        if (Queue.empty()) return {};
        auto First = std::move(Queue.front());
        Queue.pop_front();
        return First;
    }
};

class RecordedStatus : public iStatus
{
public:
    /// Every text as "2: Text", every progress as "50%".
    std::vector<std::string> Shown;

    /// Percent from which long work is given up.
    int CancelAt = 101;

    void SetPanel(int Panel, const std::string& Text) override { Shown.push_back(std::to_string(Panel) + ": " + Text); }
    void SetProgress(int Percent) override
    {
        Last = Percent;
        Shown.push_back(std::to_string(Percent) + "%");
    }
    bool IsCancelled() override { return Last >= CancelAt; }

private:
    int Last = 0;
};

/// Fixture of a case that needs a program around it.
class FreshState
{
public:
    FreshState()
    {
        gHost = {&Dialogs, &Status, &Settings};
        LoadSettings();
    }
    ~FreshState() { gHost = {}; }
    FreshState(const FreshState&) = delete;
    FreshState& operator=(const FreshState&) = delete;

    TempFolder Folder;
    ScriptedDialogs Dialogs;
    RecordedStatus Status;
    sSettings Settings;
};
