// Grid and letters of figures.
#include "live/ergo/fFigures.h"

#include "platform/qt/qText.h"

#include <QGridLayout>
#include <QLabel>

#include <algorithm>

namespace {
constexpr double ValueShare = 0.062; // heights of letters in the panel's height
constexpr double CaptionShare = 0.024;
constexpr double ShareByWidth = 0.62; // letters are no higher than this part of their share of the panel's width
constexpr int LeastPixels = 8;

void SetPixels(QLabel& Label, QSize Panel, double Share)
{
    QFont Letters = Label.font();
    const double Height = std::min(Panel.height() * Share, Panel.width() * Share * ShareByWidth);
    Letters.setPixelSize(std::max(LeastPixels, static_cast<int>(Height)));
    Label.setFont(Letters);
}
} // namespace

fFigures::fFigures(QWidget* Parent, std::span<const FigureShape> Shapes, int Columns) : QWidget(Parent)
{
    auto* Grid = new QGridLayout(this);
    Grid->setContentsMargins(0, 0, 0, 0);
    Grid->setSpacing(2);
    int Place = 0;
    for (const FigureShape& Shape : Shapes) {
        auto* Caption = new QLabel(Shape.Caption, this);
        Caption->setObjectName(QString(Shape.Value) + "_caption");
        auto* Value = new QLabel(this);
        Value->setObjectName(Shape.Value);
        Value->setStyleSheet("font-weight: bold");
        for (QLabel* Label : {Caption, Value}) {
            Label->setAlignment(Qt::AlignCenter);
            Label->setMinimumWidth(1);
            Label->setToolTip(Shape.Tip);
        }
        const int Row = 2 * (Place / Columns);
        Grid->addWidget(Caption, Row, Place % Columns, Qt::AlignBottom);
        Grid->addWidget(Value, Row + 1, Place % Columns, Qt::AlignTop);
        Grid->setRowStretch(Row, 1);
        Grid->setRowStretch(Row + 1, 1);
        Grid->setColumnStretch(Place % Columns, 1);
        Captions.push_back(Caption);
        Values.push_back(Value);
        ++Place;
    }
}

void fFigures::SetText(std::size_t Number, const std::string& Text)
{
    Values[Number]->setText(Shown(Text));
}

void fFigures::Fit(QSize Panel)
{
    for (QLabel* Caption : Captions)
        SetPixels(*Caption, Panel, CaptionShare);
    for (QLabel* Value : Values) {
        SetPixels(*Value, Panel, ValueShare);
        Value->setMinimumHeight(
            QFontMetrics(Value->font()).size(Qt::TextSingleLine, "0").height()); // an empty one keeps its place
    }
}
