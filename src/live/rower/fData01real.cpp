// Labels and plots of the rower's panel.
#include "live/rower/fData01real.h"

#include <QVBoxLayout>

namespace {
constexpr ReadoutShape Shapes[] = {{"lbData_0", "lbLabs_0", "Time (s)", 4},
                                   {"lbData_2", "lbLabs_2", "Stroke rate", 3},
                                   {"lbData_3", "lbLabs_3", "Strokes", 3}};
} // namespace

fData01real::fData01real(int16_t InitSource, const std::string& RawPath)
    : fCurvePanel("fData01real", "Rower's Panel", InitSource, "picPanel"), Readouts(new fReadouts(Body, Shapes))
{
    auto* Layout = new QVBoxLayout(Body);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->setSpacing(0);
    Layout->addWidget(Readouts);
    Layout->addWidget(Surface, 1);
    AddReadouts(*Readouts);
    Panel.Load(Source);
    Panel.InitMode(RawPath);
    Begin();
}

void fData01real::ShowLabels()
{
    Readouts->SetText(0, Panel.TimeText());
    Readouts->SetText(1, Panel.RateText());
    Readouts->SetText(2, Panel.StrokesText());
}

void fData01real::LoadSession()
{
    Panel.Load(Source);
    Panel.Resize();
}
