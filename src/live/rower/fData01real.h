// The window "Rower's Panel": what the rower looks at while rowing, live or from a recording.
#pragma once

#include "live/panel/fCurvePanel.h"
#include "live/rower/cRower.h"

#include <string>

class fData01real : public fCurvePanel<cRower>
{
public:
    /// Source tells where samples come from; with a table source RawPath is the raw file that is loaded for it. The
    /// targets are those that InitTargets has chosen.
    explicit fData01real(int16_t InitSource = SourceFrames, const std::string& RawPath = "");

protected:
    void ShowLabels() override;
    void LoadSession() override;
    void Closing() override { Panel.Unload(); }

private:
    fReadouts* Readouts;
};
