// The status line of a program without a window: one line on a terminal, rewritten in place.
#pragma once

#include "platform/iStatus.h"

class sStatus : public iStatus
{
public:
    /// Visible: whether stderr is a terminal that somebody watches.
    explicit sStatus(bool Visible) : IsVisible(Visible) {}
    ~sStatus() override;

    void SetPanel(int Panel, const std::string& Text) override;
    void SetProgress(int Percent) override;

    /// Wipes the line, so that other text can follow.
    void Clear();

private:
    void Show(const std::string& Text);

    bool IsVisible;
    bool IsShown = false;
};
