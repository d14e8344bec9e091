// Dialogs of a program without a window: messages go to stderr, questions get one fixed answer.
#pragma once

#include "platform/iDialogs.h"
#include "platform/plain/sStatus.h"

class sDialogs : public iDialogs
{
public:
    /// Line: the status line that a message must not run into, if there is one.
    explicit sDialogs(sStatus* Line = nullptr) : StatusLine(Line) {}

    /// The answer to every question with Yes and No.
    bool AnswerYes = true;

    /// The answer to every input box; without one the proposed text is taken.
    std::optional<std::string> Answer;

    eAnswer MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons) override;
    std::optional<std::string> InputBox(const std::string& Prompt, const std::string& Title,
                                        const std::string& Proposed) override;

private:
    sStatus* StatusLine;
};
