// A row of captions with large values below them, legible from afar: as large as the panel around them allows.
#pragma once

#include <QSize>
#include <QString>
#include <QWidget>

#include <cstddef>
#include <span>
#include <string>
#include <vector>

class QLabel;

/// A value of the row.
struct ReadoutShape
{
    const char* Value; // object name of the value's label
    const char* Label; // object name of the caption's label
    const char* Caption;
    int Share; // of the row's width
};

class fReadouts : public QWidget
{
public:
    /// ValueShare and CaptionShare are the heights of letters in the panel's height.
    fReadouts(QWidget* Parent, std::span<const ReadoutShape> Shapes, double InitValueShare = 0.115,
              double InitCaptionShare = 0.03);

    /// Shows a value. When it is longer than the one before, all get as small as it needs.
    void SetText(std::size_t Number, const std::string& Text);

    /// Sizes the letters for a panel of that size.
    void Fit(QSize Panel);

    /// Number of values.
    std::size_t Count() const { return Values.size(); }

    /// The label of a value, for its colour.
    QLabel& Value(std::size_t Number) { return *Values[Number]; }

private:
    std::vector<QLabel*> Captions;
    std::vector<QLabel*> Values;
    QSize Room;
    int ShareSum = 0;
    double ValueShare;
    double CaptionShare;
};
