// The report window: the plots of the report view, the values of its functions beside them, printing and saving.
#pragma once

#include "views/report/cReport.h"

#include <QWidget>

#include <functional>

class qSurface;
class QAction;
class QGridLayout;
class QMenuBar;
class QPrinter;
class QScrollArea;

class fData03report : public QWidget
{
public:
    /// Section of the settings that keeps its place.
    static constexpr const char* Section = "fData03report";

    fData03report();

    /// Lets the user choose a sample, whose report is opened.
    std::function<void()> OnChoose;

    /// Computes the report and shows it; as cReport::InitData.
    void InitData(int Kind, int16_t Sample, int32_t First, int32_t Last);

    /// Prints all pages. False when the printer cannot be used (reported to the user).
    bool PrintOn(QPrinter& Printer);

protected:
    void keyPressEvent(QKeyEvent* Event) override;
    void closeEvent(QCloseEvent* Event) override;

private:
    QMenuBar* BuildMenus();
    QWidget* BuildTable();
    void DrawPlot();
    void PrintReport();
    void Print();
    void Save();

    cReport Report;
    qSurface* picGraph;
    QScrollArea* picTable;
    QGridLayout* Values = nullptr;
    QAction* mnuReportIsTable = nullptr;
};
