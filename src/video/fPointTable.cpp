// Labels in lines, in a place that scrolls.
#include "video/fPointTable.h"

#include "base/mNumText.h"
#include "platform/qt/qText.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QScrollArea>

#include <algorithm>

fPointTable::fPointTable() : QGroupBox("Rower's Body"), Table(new QWidget)
{
    setObjectName("frBody");
    auto* Grid = new QGridLayout(Table);
    Grid->setVerticalSpacing(2);
    const char* const Heads[] = {"Point", "X", "Y", "Angle (deg)"};
    for (int i = 0; i < 4; ++i)
        AddLabel(QString("lbHead_%1").arg(i), Heads[i], i == 0 ? Qt::AlignLeft : Qt::AlignRight, 0, i);
    for (int i = 0; i < gDots.UBound(); ++i) {
        PointLine Line;
        Line.lDotName = AddLabel(QString("lDotName_%1").arg(i), Shown(gDots[i + 1].PointName), Qt::AlignLeft, i + 1, 0);
        Line.lDotName->setToolTip("A click makes this the next point");
        Line.lDotName->setCursor(Qt::PointingHandCursor);
        Line.lDotName->installEventFilter(this);
        Line.lbX = AddLabel(QString("lbX_%1").arg(i), "", Qt::AlignRight, i + 1, 1);
        Line.lbY = AddLabel(QString("lbY_%1").arg(i), "", Qt::AlignRight, i + 1, 2);
        Line.lbA = AddLabel(QString("lbA_%1").arg(i), "", Qt::AlignRight, i + 1, 3);
        for (QLabel* Each : {Line.lbX, Line.lbY, Line.lbA})
            Each->setMinimumWidth(Each->fontMetrics().horizontalAdvance("0000.0"));
        Lines.push_back(Line);
    }
    Grid->setColumnStretch(0, 1);
    Grid->setRowStretch(gDots.UBound() + 1, 1);
    auto* Scroll = new QScrollArea(this);
    Scroll->setObjectName("scrBody");
    Scroll->setWidgetResizable(true);
    Scroll->setFrameShape(QFrame::NoFrame);
    Scroll->setWidget(Table);
    Scroll->setMinimumHeight(3 * fontMetrics().height());
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins(4, 4, 4, 4);
    Layout->addWidget(Scroll);
}

QLabel* fPointTable::AddLabel(const QString& Name, const QString& Text, Qt::Alignment Side, int Row, int Column)
{
    auto* Label = new QLabel(Text, Table);
    Label->setObjectName(Name);
    Label->setAlignment(Side | Qt::AlignVCenter);
    dynamic_cast<QGridLayout*>(Table->layout())->addWidget(Label, Row, Column);
    return Label;
}

void fPointTable::ShowPoints(const cDigit& Digit)
{
    const int Count = std::min({static_cast<int>(Lines.size()), gDots.UBound(), Digit.Marks().UBound()});
    for (int Dot = 1; Dot <= Count; ++Dot) {
        const PointLine& Line = Lines[static_cast<std::size_t>(Dot) - 1];
        const VideoPoint& Place = Digit.Marks()[Dot].Place;
        const auto Angle = Digit.ShownAngle(Dot);
        Line.lbX->setText(Shown(Place.IsPlaced() ? FormatNum(Place.X, "0") : ""));
        Line.lbY->setText(Shown(Place.IsPlaced() ? FormatNum(Place.Y, "0") : ""));
        Line.lbA->setText(Shown(Angle ? FormatNum(*Angle, "0.0") : ""));
        QFont Letters = Line.lDotName->font();
        Letters.setBold(Dot == Digit.CurDot());
        Line.lDotName->setFont(Letters);
    }
}

bool fPointTable::eventFilter(QObject* Watched, QEvent* Event)
{
    if (Event->type() == QEvent::MouseButtonPress && OnChoose)
        for (std::size_t i = 0; i < Lines.size(); ++i)
            if (Watched == Lines[i].lDotName) OnChoose(static_cast<int>(i) + 1);
    return QGroupBox::eventFilter(Watched, Event);
}
