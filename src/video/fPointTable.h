// The table of the figure's points on one frame: a line a point, with its place and angle.
#pragma once

#include "video/cDigit.h"

#include <QGroupBox>

#include <functional>
#include <vector>

class QLabel;

class fPointTable : public QGroupBox
{
public:
    fPointTable();

    /// Called when a point's name is clicked, with its number in gDots.
    std::function<void(int Dot)> OnChoose;

    /// Writes places and angles of the frame; the next point's name is bold.
    void ShowPoints(const cDigit& Digit);

protected:
    bool eventFilter(QObject* Watched, QEvent* Event) override;

private:
    struct PointLine
    {
        QLabel* lDotName = nullptr;
        QLabel* lbX = nullptr;
        QLabel* lbY = nullptr;
        QLabel* lbA = nullptr;
    };

    QLabel* AddLabel(const QString& Name, const QString& Text, Qt::Alignment Side, int Row, int Column);

    QWidget* Table;
    std::vector<PointLine> Lines;
};
