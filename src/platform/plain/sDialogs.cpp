// Messages as lines of stderr.
#include "platform/plain/sDialogs.h"

#include <iostream>

eAnswer sDialogs::MsgBox(const std::string& Text, const std::string& Title, eButtons Buttons)
{
    std::cerr << Title << ": " << Text << std::endl;
    if (Buttons == eButtons::YesNo) return AnswerYes ? eAnswer::Yes : eAnswer::No;
    if (Title != "Information") Failed = true;
    return eAnswer::Ok;
}

std::optional<std::string> sDialogs::InputBox(const std::string&, const std::string&, const std::string& Proposed)
{
    return Answer.value_or(Proposed);
}
