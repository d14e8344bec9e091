// A tab of the logger set-up for one kind of devices: those found, the logger's table, and how it uses them.
#pragma once

#include "acquisition/cLoggerSetUp.h"

#include <QWidget>

#include <array>

class fSettingBox;
class QCheckBox;
class QLabel;
class QListWidget;
class QPushButton;

class fDeviceTab : public QWidget
{
public:
    fDeviceTab(cLoggerSetUp& InitSetUp, cDeviceTable& InitTable);

    /// Shows lists and marks as they are now.
    void ShowState();

private:
    QWidget* BuildRegistered();
    QLayout* BuildMoves();
    QPushButton* AddButton(const QString& Name, const char* Caption, const char* Tip, void (fDeviceTab::*Action)());
    QString NameOf(const char* Begin, const char* End = "") const;
    void Find();
    void Read();
    void Register();
    void Select();
    void Delete();
    void MoveUp();
    void MoveDown();
    void Move(int Step);

    cLoggerSetUp& SetUp;
    cDeviceTable& Table;
    QListWidget* Found;
    QListWidget* Registered;
    std::array<QCheckBox*, cDeviceTable::MaxRows> Switches{};
    QLabel* Has;
    fSettingBox* Mode;
};
