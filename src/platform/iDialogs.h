// What the engine asks of the user: messages, questions and answers typed in.
#pragma once

#include <optional>
#include <string>

enum class eButtons
{
    Ok,
    YesNo
};
enum class eAnswer
{
    Ok,
    Yes,
    No
};

class iDialogs
{
public:
    virtual ~iDialogs() = default;

    /// Shows Text under Title and returns the button chosen.
    virtual eAnswer MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons) = 0;

    /// Asks for a line of text with Proposed as the default answer; nothing when cancelled.
    virtual std::optional<std::string> InputBox(const std::string& Prompt, const std::string& Title,
                                                const std::string& Proposed) = 0;
};
