// Names and two buttons.
#include "records/fCrewDB.h"

#include "platform/qt/qText.h"
#include "records/cCrewDB.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

fCrewDB::fCrewDB(const cCrewDB& InitDB, QWidget* Parent) : QWidget(Parent), DB(InitDB), DBList(new QListWidget(this))
{
    setObjectName("fCrewDB");
    DBList->setObjectName("DBList");
    DBList->setAccessibleName("Rowers of the database");
    auto* FromDB = new QPushButton("« &From Database", this);
    FromDB->setObjectName("cmdFromDB");
    FromDB->setToolTip("Puts the chosen rower into the current row, which keeps its seat and side (double click)");
    auto* ToDB = new QPushButton("&To Database »", this);
    ToDB->setObjectName("cmdToDB");
    ToDB->setToolTip("Takes all rowers of the table into the database, which is written with O&K");
    auto* Layout = new QVBoxLayout(this);
    Layout->setContentsMargins(0, 0, 0, 0);
    Layout->addWidget(new QLabel("Rowers' database", this));
    Layout->addWidget(DBList, 1);
    Layout->addWidget(FromDB);
    Layout->addWidget(ToDB);
    connect(FromDB, &QPushButton::clicked, this, [this] { TakeCurrent(); });
    connect(DBList, &QListWidget::itemDoubleClicked, this, [this] { TakeCurrent(); });
    connect(ToDB, &QPushButton::clicked, this, [this] { OnToDB(); });
}

void fCrewDB::Fill()
{
    DBList->clear();
    for (const CrewRow& Row : DB.Rows())
        DBList->addItem(Shown(Row.Name));
}

void fCrewDB::TakeCurrent()
{
    if (DBList->currentRow() >= 0) OnFromDB(DBList->currentRow() + 1);
}
