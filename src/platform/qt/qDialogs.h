// Message boxes, input boxes, file and colour dialogs on the screen.
#pragma once

#include "platform/iDialogs.h"

class qDialogs : public iDialogs
{
public:
    eAnswer MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons) override;
    std::optional<std::string> InputBox(const std::string& Prompt, const std::string& Title,
                                        const std::string& Proposed) override;
    std::optional<std::string> ExecComDlg(const std::string& Title, const std::string& Ext, eFileMode Mode,
                                          const std::string& Folder) override;
    std::optional<int32_t> ChooseColour(int32_t Proposed) override;
};
