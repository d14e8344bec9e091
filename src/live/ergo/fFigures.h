// A grid of figures, each a large value below its caption, as large as the panel around them allows.
#pragma once

#include <QSize>
#include <QWidget>

#include <cstddef>
#include <span>
#include <string>
#include <vector>

class QLabel;

/// A figure of the grid.
struct FigureShape
{
    const char* Value; // object name of the value's label; its caption's is the same with "_caption"
    const char* Caption;
    const char* Tip; // what it says
};

class fFigures : public QWidget
{
public:
    fFigures(QWidget* Parent, std::span<const FigureShape> Shapes, int Columns);

    void SetText(std::size_t Number, const std::string& Text);

    /// Sizes the letters for a panel of that size.
    void Fit(QSize Panel);

    std::size_t Count() const { return Values.size(); }
    QLabel& Value(std::size_t Number) { return *Values[Number]; }

private:
    std::vector<QLabel*> Captions;
    std::vector<QLabel*> Values;
};
