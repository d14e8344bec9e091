// A cell of the coach's table: a value on the colour of its verdict, and a mark that says the same without colour: a
// full disc for a target that is reached, a half one near it, a ring below it.
#pragma once

#include "live/coach/cCoach.h"

#include <QLabel>

class fCoachCell : public QLabel
{
public:
    explicit fCoachCell(QWidget* Parent);

    /// Shows a value. Text and mark are set apart, so that the text is the value alone.
    void Put(const CoachCell& NewCell, const QString& Text);

    const CoachCell& Cell() const { return Held; }

    /// Where the mark stands: left of the value or, in cells that are high, above it.
    enum class eMark
    {
        Beside,
        Above
    };

    /// Sizes letters and mark.
    void SetPixels(int Pixels, eMark NewMark = eMark::Beside);

    /// Width and height that a text and its mark need, in pixels for each pixel of the letters.
    static QSizeF NeedOf(const QFont& Letters, const QString& Text, eMark Mark);

    /// The ground of the cell now.
    QColor Ground() const;

protected:
    void paintEvent(QPaintEvent* Event) override;

private:
    bool IsGrey() const { return !isEnabled() || Held.IsStale; }
    QColor Ink() const;

    CoachCell Held;
    eMark Mark = eMark::Beside;
};
