// Places of zones and mark.
#include "live/catch/fFactorBar.h"

#include <QFrame>

#include <algorithm>

namespace {
constexpr double MarkOffset = 0.3;  // of its height, from its left edge to the value
constexpr double MarkHeight = 0.16; // at most, of the bar's width: the zones below it stay to be seen
constexpr double ZoneTop = 0.2;     // of the bar's height, above and below the zones: the mark is higher than they are

constexpr std::array<const char*, 3> GreyZones = {"#D2D7DC", "#E6E9EC", "#D2D7DC"};

// Grey while the bar is: what it shows is old then.
QFrame* NewBox(QWidget* Parent, const QString& Name, const char* Colour, const char* Grey)
{
    auto* Box = new QFrame(Parent);
    Box->setObjectName(Name);
    Box->setStyleSheet(QString("QFrame { background: %1 } QFrame:disabled { background: %2 }").arg(Colour, Grey));
    return Box;
}
} // namespace

fFactorBar::fFactorBar(QWidget* Parent, const char* Name, const std::array<const char*, 3>& Colours) : QWidget(Parent)
{
    for (std::size_t i = 0; i < Boxes.size(); ++i)
        Boxes[i] = NewBox(this, QString("%1box_%2").arg(Name).arg(i), Colours[i], GreyZones[i]);
    Mark = NewBox(this, QString("%1mark").arg(Name), "#202428", "#8C949C");
    Mark->hide();
    setMinimumHeight(16);
}

void fFactorBar::SetMargin(double InitMargin)
{
    Margin = std::max(InitMargin, 0.0);
    Arrange();
}

void fFactorBar::SetMark(std::optional<double> InitPlace)
{
    if (Place == InitPlace) return;
    Place = InitPlace;
    PlaceMark();
}

void fFactorBar::resizeEvent(QResizeEvent*)
{
    Arrange();
}

void fFactorBar::Arrange()
{
    const double Unit = width() / (2 * Margin + 1);
    const int Ends[] = {0, static_cast<int>(Margin * Unit), static_cast<int>((Margin + 1) * Unit), width()};
    const int Top = static_cast<int>(ZoneTop * height());
    for (std::size_t i = 0; i < Boxes.size(); ++i)
        Boxes[i]->setGeometry(Ends[i], Top, Ends[i + 1] - Ends[i], height() - 2 * Top);
    PlaceMark();
}

void fFactorBar::PlaceMark()
{
    Mark->setVisible(Place.has_value());
    if (!Place) return;
    const int Height = std::min(height(), static_cast<int>(MarkHeight * width()));
    const double Offset = MarkOffset * Height;
    const double At = std::clamp(*Place, 0.0, 1.0) * width();
    Mark->setGeometry(static_cast<int>(At - Offset), (height() - Height) / 2, static_cast<int>(2 * Offset), Height);
}
