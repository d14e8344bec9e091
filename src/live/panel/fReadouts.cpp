// Sizes of the letters of captions and values.
#include "live/panel/fReadouts.h"

#include "platform/qt/qText.h"
#include "widgets/qSteady.h"

#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>

namespace {
constexpr int LeastPixels = 8;
constexpr double WidthPerShare = 0.95; // heights of a value that one share of the row's width stands for

void SetPixels(QLabel& Label, double Height)
{
    QFont Letters = Label.font();
    Letters.setPixelSize(std::max(LeastPixels, static_cast<int>(Height)));
    Label.setFont(Letters);
    Label.setFixedHeight(QFontMetrics(Letters).size(Qt::TextSingleLine, "0").height());
    Label.parentWidget()->updateGeometry(); // the place of a value, which learns of no change in its label
}

// How much of its text's width a label has, at most 1.
double WidthShare(const QLabel& Label)
{
    const int Wanted = QFontMetrics(Label.font()).horizontalAdvance(Label.text());
    return Wanted > Label.width() ? static_cast<double>(Label.width()) / Wanted : 1;
}
} // namespace

fReadouts::fReadouts(QWidget* Parent, std::span<const ReadoutShape> Shapes, double InitValueShare,
                     double InitCaptionShare)
    : QWidget(Parent), ValueShare(InitValueShare), CaptionShare(InitCaptionShare)
{
    auto* Layout = new QHBoxLayout(this);
    Layout->setContentsMargins(12, 0, 12, 0);
    for (const ReadoutShape& Shape : Shapes) {
        auto* Pair = new QVBoxLayout;
        Pair->setSpacing(0);
        Captions.push_back(new QLabel(Shape.Caption, this));
        Captions.back()->setObjectName(Shape.Label);
        Values.push_back(new QLabel(this));
        Values.back()->setObjectName(Shape.Value);
        Values.back()->setStyleSheet("font-weight: bold");
        for (QLabel* Label : {Captions.back(), Values.back()}) {
            Label->setAlignment(Qt::AlignCenter);
            Label->setMinimumWidth(1);
        }
        Pair->addWidget(Captions.back());
        Pair->addWidget(new qSteady(*Values.back()));
        Layout->addLayout(Pair, Shape.Share);
        ShareSum += Shape.Share;
    }
}

void fReadouts::SetText(std::size_t Number, const std::string& Text)
{
    QLabel& Label = *Values[Number];
    const QString Words = Shown(Text);
    if (Label.text() == Words) return;
    const bool IsOther = Words.size() != Label.text().size();
    Label.setText(Words);
    if (IsOther) Fit(Room);
}

// As high as the panel's height asks for, and no wider than its width allows. A figure of an hour's rowing may still be
// too long for its place; all get smaller with it, and their row stays as high.
void fReadouts::Fit(QSize Panel)
{
    Room = Panel;
    const double Widest = Room.width() / (WidthPerShare * ShareSum);
    for (QLabel* Label : Captions)
        SetPixels(*Label, std::min(Room.height() * CaptionShare, Widest * CaptionShare / ValueShare));
    for (QLabel* Label : Values)
        SetPixels(*Label, std::min(Room.height() * ValueShare, Widest));
    layout()->activate();
    // At once: what stands below would be laid out a second time when the labels take their place later.
    if (parentWidget() && parentWidget()->layout()) parentWidget()->layout()->activate();
    double Share = 1;
    for (const QLabel* Label : Values)
        Share = std::min(Share, WidthShare(*Label));
    for (QLabel* Label : Values) {
        QFont Letters = Label->font();
        Letters.setPixelSize(std::max(LeastPixels, static_cast<int>(Share * Letters.pixelSize())));
        Label->setFont(Letters);
    }
}
