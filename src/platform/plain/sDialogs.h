// Dialogs of a program without a window: messages go to stderr, questions get one fixed answer.
#pragma once

#include "platform/iDialogs.h"

class sDialogs : public iDialogs
{
public:
    /// The answer to every question with Yes and No.
    bool AnswerYes = true;

    /// The answer to every input box; without one the proposed text is taken.
    std::optional<std::string> Answer;

    /// Whether a warning or an error has been shown.
    bool Failed = false;

    eAnswer MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons) override;
    std::optional<std::string> InputBox(const std::string& Prompt, const std::string& Title,
                                        const std::string& Proposed) override;
};
