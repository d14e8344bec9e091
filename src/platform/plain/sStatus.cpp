// Progress on a terminal.
#include "platform/plain/sStatus.h"

#include "base/mNumText.h"

#include <iostream>

sStatus::~sStatus()
{
    Clear();
}

void sStatus::SetPanel(int Panel, const std::string& Text)
{
    // Panel 1 names the session, which whoever typed the command knows.
    if (Panel != 1) Show(Text);
}

void sStatus::SetProgress(int Percent)
{
    Show(FormatNum(Percent, "0") + "%");
}

void sStatus::Clear()
{
    if (IsShown) std::cerr << "\r\033[K" << std::flush;
    IsShown = false;
}

void sStatus::Show(const std::string& Text)
{
    if (!IsVisible) return;
    std::cerr << "\r\033[K" << Text << std::flush;
    IsShown = true;
}
