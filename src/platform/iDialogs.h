// What the engine asks of the user: messages, questions, answers typed in, files and colours.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

enum class eButtons
{
    Ok,
    YesNo,
    OkCancel // answered as Yes and No
};
enum class eAnswer
{
    Ok,
    Yes,
    No
};

/// What a file is asked for: to be read or to be written.
enum class eFileMode
{
    In,
    Out
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

    /// Asks for a file with extension Ext, starting in Folder unless it is empty; nothing when cancelled, as by a
    /// program that has nobody to ask.
    virtual std::optional<std::string> ExecComDlg(const std::string& /*Title*/, const std::string& /*Ext*/,
                                                  eFileMode /*Mode*/, const std::string& /*Folder*/)
    {
        return {};
    }

    /// Asks for a colour, 0x00BBGGRR, with Proposed chosen; nothing when cancelled.
    virtual std::optional<int32_t> ChooseColour(int32_t /*Proposed*/) { return {}; }
};
