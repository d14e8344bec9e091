// Messages as lines of stderr.
#include "platform/plain/sDialogs.h"

#include <iostream>

eAnswer sDialogs::MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons)
{
    if (StatusLine) StatusLine->Clear();
    std::cerr << Title << ": " << Text << std::endl;
    if (Buttons == eButtons::Ok) return eAnswer::Ok;
    return AnswerYes ? eAnswer::Yes : eAnswer::No;
}

std::optional<std::string> sDialogs::InputBox(const std::string&, const std::string&, const std::string& Proposed)
{
    return Answer.value_or(Proposed);
}
