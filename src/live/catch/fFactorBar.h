// The bar of a factor: three zones beside each other, the good one in the middle, and a mark at the factor's place.
#pragma once

#include <QWidget>

#include <array>
#include <optional>

class QFrame;

class fFactorBar : public QWidget
{
public:
    /// The zones are named Name "box_0" to "box_2", the mark Name "mark". Colours from the left, as style sheets write
    /// them; either outer zone is Margin times as wide as the good one.
    fFactorBar(QWidget* Parent, const char* Name, const std::array<const char*, 3>& Colours);

    void SetMargin(double InitMargin);

    /// Puts the mark at a place from 0, the left end, to 1; beyond them it stays at the end. Nothing: no mark.
    void SetMark(std::optional<double> InitPlace);

protected:
    void resizeEvent(QResizeEvent* Event) override;

private:
    void Arrange();
    void PlaceMark();

    std::array<QFrame*, 3> Boxes{};
    QFrame* Mark;
    double Margin = 1;
    std::optional<double> Place;
};
