// The list of the rowers' database beside the crew's grid.
#pragma once

#include <QWidget>

#include <functional>

class cCrewDB;
class QListWidget;

class fCrewDB : public QWidget
{
public:
    fCrewDB(const cCrewDB& InitDB, QWidget* Parent);

    /// A rower of the list, from 1, goes into the grid; the grid's rowers go into the database.
    std::function<void(int Index)> OnFromDB;
    std::function<void()> OnToDB;

    /// Lists the names of the database.
    void Fill();

private:
    void TakeCurrent();

    const cCrewDB& DB;
    QListWidget* DBList;
};
