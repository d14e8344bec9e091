// A place for a label whose text changes with every picture.
#pragma once

#include <QLabel>

/// Gives a label its own size. A label that stands in a layout itself has all of the window laid out anew with every
/// text, which takes longer than drawing it; a longer text has to wait here until the layout changes for another
/// reason.
class qSteady : public QWidget
{
public:
    explicit qSteady(QLabel& InitLabel) : Label(InitLabel)
    {
        Label.setParent(this);
        setSizePolicy(Label.sizePolicy());
    }

    QSize sizeHint() const override { return Within(Label.sizeHint()); }
    QSize minimumSizeHint() const override { return Within(QSize(0, Label.minimumSizeHint().height())); }

protected:
    void resizeEvent(QResizeEvent* /*Event*/) override { Label.setGeometry(rect()); }

private:
    QSize Within(QSize Hint) const { return Hint.expandedTo(Label.minimumSize()).boundedTo(Label.maximumSize()); }

    QLabel& Label;
};
