// The windows in which an automatic re-zeroing is seen: one re-zero window for each pass.
#pragma once

#include "calibration/cAutoReZero.h"
#include "calibration/fDoReZero.h"

#include <QPointer>

#include <functional>

class fAutoReZero : public cAutoReZero::iView
{
public:
    /// Open puts a new re-zero window into the main window.
    explicit fAutoReZero(std::function<fDoReZero&()> InitOpen) : Open(std::move(InitOpen)) {}

    void Begin(eReZeroGroup Group) override
    {
        Window = &Open();
        Window->ChooseGroup(Group);
        Window->StartData();
    }

    // A window that is being closed has no tag, though it may not be gone yet.
    cReZero* Rows() override { return Window && Window->Tag == DataTag ? &Window->Zeros() : nullptr; }

    void Show() override
    {
        if (Window) Window->ShowRows();
    }

    void End() override
    {
        if (Window) Window->Unload();
    }

private:
    std::function<fDoReZero&()> Open;
    QPointer<fDoReZero> Window;
};
