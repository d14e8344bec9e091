// A field of one colour that asks for another one at a double click, Enter or Space.
#pragma once

#include <QColor>
#include <QWidget>

#include <functional>

class qSwatch : public QWidget
{
public:
    explicit qSwatch(QWidget* Parent = nullptr);

    /// Called when another colour is wanted.
    std::function<void()> OnChoose;

    void SetColour(const QColor& Colour);
    QColor Colour() const { return Shown; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* Event) override;
    void mouseDoubleClickEvent(QMouseEvent* Event) override;
    void keyPressEvent(QKeyEvent* Event) override;

private:
    QColor Shown;
};
