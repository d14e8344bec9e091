// The texts of the calibration workbench: its numbers, the sensor's identifier, the range of a table, the analysis.
#pragma once

#include "calibration/mCalBoxes.h"

#include <QWidget>

#include <array>
#include <string>

class cCalibr;
class QGridLayout;
class QLayout;
class QLineEdit;
class QTextEdit;

class fCalTexts : public QWidget
{
public:
    /// What is typed goes to InitCalibr. Keys and clicks in the texts pass Watcher's event filter first.
    fCalTexts(QWidget* Watcher, cCalibr& InitCalibr);

    /// Shows the texts as they stand now.
    void ShowTexts();

    QLineEdit& Box(eCalBox Number) { return *Boxes[Number]; }

    /// Whether the cursor is where letters and blanks may be typed: in the sensor's identifier alone.
    bool IsTyping() const;

private:
    QLayout* BuildBoxes();
    QLayout* BuildRanges();
    void BuildAnalys();
    void AddBox(QGridLayout& Grid, int Index, int Row, int Column);
    QLineEdit* AddText(const char* Name, const QString& Text, const char* Tip);

    QWidget* const Filter;
    cCalibr& Calibr;
    std::array<QLineEdit*, CalBoxCnt> Boxes{};
    QLineEdit* txtSensID = nullptr;
    QLineEdit* txtArrMin = nullptr;
    QLineEdit* txtArrMax = nullptr;
    QTextEdit* txtAnalys = nullptr;
};
